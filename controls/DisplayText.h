// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <string_view>

namespace tonvale {

// A text of bytes as UTF-8, for showing it: as it stands where it is valid UTF-8, else read as
// Windows-1252.
[[nodiscard]] std::string displayText(std::string_view bytes);

} // namespace tonvale
