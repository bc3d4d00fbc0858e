// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Controls.h"

#include <cstdint>
#include <string>
#include <utility>

namespace tonvale {

// A gauge with a caption.
struct MMGaugeX : Control {
    explicit MMGaugeX(std::string caption = {}) : Caption(std::move(caption)) {}
    Property<std::string> Caption;
    Property<std::int32_t> Value{0}; // 0 to 100
};

} // namespace tonvale
