// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "viewers/MediaStatisticsWindow.h"

#include "controls/Numbers.h"

#include <string>
#include <string_view>

namespace tonvale {

namespace {

constexpr std::int32_t kRefreshMilliseconds = 500;
constexpr double kKilo = 1000;
constexpr int kRateDigits = 5; // 23.976
constexpr const char *kUnknown = "-";

std::string withUnit(double value, double divisor, const char *unit) {
    return value > 0 ? formatDigits(value / divisor, 1) + unit : std::string();
}

std::string frameRate(double rate) { return rate > 0 ? formatGeneral(rate, kRateDigits) + " frames/s" : std::string(); }

std::string pictureSize(PictureSize size) {
    return size.isEmpty() ? std::string() : std::to_string(size.width) + " x " + std::to_string(size.height);
}

struct RowKind {
    const char *name;
    std::string (*text)(const MediaStatistics &known); // empty: not known
};
constexpr std::array<RowKind, MediaStatisticsWindow::kRowCount> kRows{{
    {"Container", [](const auto &known) { return known.container; }},
    {"Video Codec", [](const auto &known) { return known.videoCodec; }},
    {"Audio Codec", [](const auto &known) { return known.audioCodec; }},
    {"Picture Size", [](const auto &known) { return pictureSize(known.picture); }},
    {"Frame Rate", [](const auto &known) { return frameRate(known.frameRate); }},
    {"Video Bit Rate", [](const auto &known) { return withUnit(known.videoBitRate, kKilo, " kbit/s"); }},
    {"Audio Bit Rate", [](const auto &known) { return withUnit(known.audioBitRate, kKilo, " kbit/s"); }},
    {"Sample Rate", [](const auto &known) { return withUnit(known.sampleRate, 1, " Hz"); }},
    {"Channels", [](const auto &known) { return withUnit(known.channels, 1, ""); }},
    {"Dropped Frames",
     [](const auto &known) { return known.picture.isEmpty() ? std::string() : std::to_string(known.droppedFrames); }},
}};

} // namespace

MediaStatisticsWindow::MediaStatisticsWindow(Application &app)
    : MediaDialogWindow(app.forms, "MediaStatistics"), Timer1(app.services.loop, kRefreshMilliseconds) {
    Caption = "Video Statistics";
    for (std::size_t i = 0; i < Rows.size(); ++i) Rows[i].Name.Caption = kRows[i].name;
    Command1.Click = handler([this] { Unload(); });
    Timer1.Tick = handler([this] { showMedia(); });
    visible_ = Visible.onChange([this] { Timer1.Enabled(Visible); });
}

void MediaStatisticsWindow::showMedia() {
    const MediaEngine *const media = engine();
    const MediaStatistics known = media != nullptr ? media->statistics() : MediaStatistics{};
    for (std::size_t i = 0; i < Rows.size(); ++i) {
        const std::string text = kRows[i].text(known);
        Rows[i].Value.Caption = text.empty() ? kUnknown : text;
    }
}

} // namespace tonvale
