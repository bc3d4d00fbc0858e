// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <algorithm>
#include <array>
#include <string_view>

// What the engines are chosen by: sets of file name extensions, in lower case and with the dot.
// Whether a caller folds case before it asks is the caller's own rule.

namespace tonvale::media {

inline constexpr std::array<std::string_view, 2> kVivo{".viv", ".vivo"};
inline constexpr std::string_view kShortVivo = ".viv";
inline constexpr std::string_view kPlaylist = ".ply";
inline constexpr std::string_view kCdTrack = ".cda";
inline constexpr std::string_view kRealMetafile = ".ram";
inline constexpr std::array<std::string_view, 5> kRealMedia{".ram", ".ra", ".rm", ".rpm", ".rmm"};
inline constexpr std::array<std::string_view, 10> kVideo{".avi", ".mov", ".mpg", ".mpeg", ".dat",
                                                         ".m1v", ".enc", ".qt",  ".mpv",  ".mpa"};
inline constexpr std::array<std::string_view, 13> kNoZoom{".cda", ".rpm",  ".mp3",  ".wav", ".asf", ".mid", ".midi",
                                                          ".aif", ".aifc", ".aiff", ".au",  ".snd", ".rmi"};

template <std::size_t size>
[[nodiscard]] constexpr bool isIn(const std::array<std::string_view, size> &set, std::string_view extension) {
    return std::find(set.begin(), set.end(), extension) != set.end();
}

} // namespace tonvale::media
