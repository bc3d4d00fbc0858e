// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Services.h"

#include <algorithm>
#include <cmath>

namespace tonvale {

// Models count in twips, widgets in device-independent pixels.
[[nodiscard]] inline int toPixels(double twips) {
    constexpr double kFarthest = 1e6; // a place or size that was stored may be any number
    return static_cast<int>(std::lround(std::clamp(twips / kTwipsPerPixel, -kFarthest, kFarthest)));
}
[[nodiscard]] inline double toTwips(double pixels) { return pixels * kTwipsPerPixel; }

} // namespace tonvale
