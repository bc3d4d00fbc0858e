// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "viewers/MediaOptionsWindow.h"

#include "controls/Numbers.h"

#include <initializer_list>
#include <string>
#include <utility>

namespace tonvale {

namespace {

constexpr std::int32_t kPercent = 100;
constexpr std::int32_t kAdjustmentStep = 10;

struct Range {
    const char *name;
    std::int32_t min, max;
    const char *unit;
};
// In the order of AdjustmentIndex.
constexpr std::array<Range, MediaOptionsWindow::kAdjustmentCount> kRanges{{
    {"&Speed", 25, 400, " %"},
    {"&Hue", -100, 100, ""},
    {"Sa&turation", -100, 100, ""},
    {"&Brightness", -100, 100, ""},
    {"Co&ntrast", -100, 100, ""},
}};
// In the order of PictureAspect.
constexpr std::array kAspects{"As Stored", "4:3", "16:9", "2.35:1"};

// The rows that a box gets, and which of them is `selected`.
struct TrackRows {
    std::vector<std::string> names;
    std::vector<std::int32_t> ids;
    std::int32_t row = 0;
};

TrackRows rowsOf(const std::vector<MediaTrack> &tracks, MediaTrack::Kind kind, std::int32_t selected) {
    TrackRows rows{{"None"}, {0}, 0};
    for (const MediaTrack &track : tracks) {
        if (track.kind != kind) continue;
        if (track.id == selected) rows.row = static_cast<std::int32_t>(rows.ids.size());
        rows.names.push_back(track.name.empty() ? "Track " + std::to_string(track.id) : track.name);
        rows.ids.push_back(track.id);
    }
    return rows;
}

PictureAspect aspectAt(std::int32_t row) {
    return row >= 0 && row < static_cast<std::int32_t>(kAspects.size()) ? static_cast<PictureAspect>(row)
                                                                        : PictureAspect::AsStored;
}

std::int32_t idAt(const std::vector<std::int32_t> &ids, std::int32_t row) {
    const auto index = static_cast<std::size_t>(row);
    return row >= 0 && index < ids.size() ? ids[index] : 0;
}

} // namespace

MediaOptionsWindow::MediaOptionsWindow(Application &app) : MediaDialogWindow(app.forms, "MediaOptions") {
    Caption = "Options";
    cboAspect.List = std::vector<std::string>(kAspects.begin(), kAspects.end());
    for (std::size_t i = 0; i < Adjustments.size(); ++i) {
        Adjustments[i].Name.Caption = kRanges[i].name;
        Adjustments[i].Slider.setRange(kRanges[i].min, kRanges[i].max);
        Adjustments[i].Slider.LargeChange = kAdjustmentStep;
    }
    connectControls();
    showSettings({});
    enableControls(false);
}

void MediaOptionsWindow::connectControls() {
    for (Adjustment &adjustment : Adjustments) {
        const auto changed = handler([this, &adjustment] {
            showValue(adjustment);
            apply();
        });
        adjustment.Slider.Change = changed;
        adjustment.Slider.Scroll = changed;
    }
    for (ComboBox *box : {&cboAspect, &cboAudio, &cboSubtitles}) box->Click = handler([this] { apply(); });
    chkDeinterlace.Click = handler([this] { apply(); });
    cmdReset.Click = handler([this] { cmdReset_Click(); });
    Command1.Click = handler([this] { Unload(); });
}

void MediaOptionsWindow::showMedia() {
    const MediaEngine *const media = engine();
    const MediaSettings settings = media != nullptr ? media->settings() : MediaSettings{};
    const std::vector<MediaTrack> tracks = media != nullptr ? media->tracks() : std::vector<MediaTrack>{};
    showing_ = true;
    const auto fill = [&](ComboBox &box, TrackIds &ids, MediaTrack::Kind kind, std::int32_t selected) {
        TrackRows rows = rowsOf(tracks, kind, selected);
        box.List = std::move(rows.names);
        ids = std::move(rows.ids);
        box.ListIndex = rows.row;
    };
    fill(cboAudio, audioIds_, MediaTrack::Kind::Audio, settings.audioTrack);
    fill(cboSubtitles, subtitleIds_, MediaTrack::Kind::Subtitle, settings.subtitleTrack);
    showSettings(settings);
    enableControls(media != nullptr);
}

// All but the tracks.
void MediaOptionsWindow::showSettings(const MediaSettings &settings) {
    const std::array<std::int32_t, kAdjustmentCount> values{
        toInt32(settings.speed * kPercent), settings.hue, settings.saturation, settings.brightness, settings.contrast};
    showing_ = true;
    for (std::size_t i = 0; i < values.size(); ++i) {
        Adjustments[i].Slider.Value(values[i]);
        showValue(Adjustments[i]);
    }
    cboAspect.ListIndex = static_cast<std::int32_t>(settings.aspect);
    chkDeinterlace.Value = settings.deinterlace ? 1 : 0;
    showing_ = false;
}

void MediaOptionsWindow::showValue(Adjustment &adjustment) {
    const auto index = static_cast<std::size_t>(&adjustment - Adjustments.data());
    adjustment.Value.Caption = std::to_string(adjustment.Slider.Value()) + kRanges[index].unit;
}

void MediaOptionsWindow::enableControls(bool enabled) {
    for (Adjustment &adjustment : Adjustments) adjustment.Slider.Enabled = enabled;
    for (Control *control :
         std::initializer_list<Control *>{&cboAspect, &cboAudio, &cboSubtitles, &chkDeinterlace, &cmdReset})
        control->Enabled = enabled;
}

MediaSettings MediaOptionsWindow::chosen() const {
    const auto value = [this](AdjustmentIndex index) { return Adjustments[index].Slider.Value(); };
    MediaSettings settings;
    settings.speed = static_cast<double>(value(kSpeed)) / kPercent;
    settings.hue = value(kHue);
    settings.saturation = value(kSaturation);
    settings.brightness = value(kBrightness);
    settings.contrast = value(kContrast);
    settings.aspect = aspectAt(cboAspect.ListIndex);
    settings.deinterlace = chkDeinterlace.Value == 1;
    settings.audioTrack = idAt(audioIds_, cboAudio.ListIndex);
    settings.subtitleTrack = idAt(subtitleIds_, cboSubtitles.ListIndex);
    return settings;
}

void MediaOptionsWindow::apply() {
    MediaEngine *const media = engine();
    if (media != nullptr && !showing_) media->setSettings(chosen());
}

// Which track is heard and read stays: that is a choice, not an adjustment.
void MediaOptionsWindow::cmdReset_Click() {
    showSettings({});
    apply();
}

} // namespace tonvale
