// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <vector>

namespace tonvale {

struct PixelSize {
    std::int32_t width = 0, height = 0;
};

struct PixelRect {
    std::int32_t x = 0, y = 0, width = 0, height = 0;
    friend bool operator==(const PixelRect &, const PixelRect &) = default;
};

// Where copies of a tile cover a window: row by row, `step` apart, cut off at the window's edges. A
// tile or a step without a size covers nothing.
[[nodiscard]] std::vector<PixelRect> tiles(PixelSize window, PixelSize tile, PixelSize step);
[[nodiscard]] inline std::vector<PixelRect> tiles(PixelSize window, PixelSize tile) {
    return tiles(window, tile, tile);
}

} // namespace tonvale
