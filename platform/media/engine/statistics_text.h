// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/MediaDetails.h"

#include <string>
#include <string_view>

namespace tonvale {

// The library writes all figures of a moment into one text, a line each.
[[nodiscard]] const std::string &statisticsTemplate();
[[nodiscard]] MediaStatistics readStatistics(std::string_view text);

} // namespace tonvale
