// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/tiles.h"

#include <algorithm>

namespace tonvale {

std::vector<PixelRect> tiles(PixelSize window, PixelSize tile, PixelSize step) {
    std::vector<PixelRect> places;
    if (tile.width <= 0 || tile.height <= 0 || step.width <= 0 || step.height <= 0) return places;
    for (std::int64_t y = 0; y < window.height; y += step.height)
        for (std::int64_t x = 0; x < window.width; x += step.width)
            places.push_back({static_cast<std::int32_t>(x), static_cast<std::int32_t>(y),
                              static_cast<std::int32_t>(std::min<std::int64_t>(tile.width, window.width - x)),
                              static_cast<std::int32_t>(std::min<std::int64_t>(tile.height, window.height - y))});
    return places;
}

} // namespace tonvale
