// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Services.h"

#include <cmath>

namespace tonvale {

// Models count in twips, widgets in device-independent pixels.
[[nodiscard]] inline int toPixels(double twips) { return static_cast<int>(std::lround(twips / kTwipsPerPixel)); }
[[nodiscard]] inline double toTwips(double pixels) { return pixels * kTwipsPerPixel; }

} // namespace tonvale
