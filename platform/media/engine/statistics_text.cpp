// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/media/engine/statistics_text.h"

#include <charconv>
#include <system_error>

namespace tonvale {

namespace {

template <class Number> Number number(std::string_view text) {
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc{} ? value : Number{};
}

struct Figure {
    const char *property;
    void (*read)(MediaStatistics &statistics, std::string_view text);
};

constexpr Figure kFigures[] = {
    {"file-format", [](MediaStatistics &statistics, std::string_view text) { statistics.container = text; }},
    {"video-codec", [](MediaStatistics &statistics, std::string_view text) { statistics.videoCodec = text; }},
    {"audio-codec", [](MediaStatistics &statistics, std::string_view text) { statistics.audioCodec = text; }},
    {"container-fps",
     [](MediaStatistics &statistics, std::string_view text) { statistics.frameRate = number<double>(text); }},
    {"video-bitrate",
     [](MediaStatistics &statistics, std::string_view text) { statistics.videoBitRate = number<double>(text); }},
    {"audio-bitrate",
     [](MediaStatistics &statistics, std::string_view text) { statistics.audioBitRate = number<double>(text); }},
    {"audio-params/samplerate",
     [](MediaStatistics &statistics, std::string_view text) { statistics.sampleRate = number<std::int32_t>(text); }},
    {"audio-params/channel-count",
     [](MediaStatistics &statistics, std::string_view text) { statistics.channels = number<std::int32_t>(text); }},
    {"frame-drop-count", [](MediaStatistics &statistics,
                            std::string_view text) { statistics.droppedFrames += number<std::int64_t>(text); }},
    {"decoder-frame-drop-count", [](MediaStatistics &statistics,
                                    std::string_view text) { statistics.droppedFrames += number<std::int64_t>(text); }},
};

std::string makeTemplate() {
    std::string text;
    // "=": as a number, not as a text for people. ":": empty where it is not known.
    for (const Figure &figure : kFigures) text += std::string("${=") + figure.property + ":}\n";
    return text;
}

} // namespace

const std::string &statisticsTemplate() {
    static const std::string text = makeTemplate();
    return text;
}

MediaStatistics readStatistics(std::string_view text) {
    MediaStatistics statistics;
    for (const Figure &figure : kFigures) {
        const std::size_t end = text.find('\n');
        figure.read(statistics, text.substr(0, end));
        text.remove_prefix(end == text.npos ? text.size() : end + 1);
    }
    return statistics;
}

} // namespace tonvale
