// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/MediaDetails.h"

#include <mpv/client.h>

#include <cstdint>
#include <vector>

namespace tonvale {

struct TrackList {
    std::int32_t picture = 0;  // the first that moves, which a cover does not; 0: none
    std::int32_t rotation = 0; // of that picture: degrees to turn it clockwise
    std::vector<MediaTrack> tracks;
    std::int32_t audio = 0, subtitle = 0; // those that play; 0: none
};

// From the library's own list.
[[nodiscard]] TrackList readTracks(const mpv_node &list);

} // namespace tonvale
