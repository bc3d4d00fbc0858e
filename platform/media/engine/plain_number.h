// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <charconv>
#include <string>

namespace tonvale {

// A number as the decoder reads it, whatever the locale.
[[nodiscard]] inline std::string plainNumber(double value) {
    std::array<char, 64> text{};
    constexpr int kDigits = 6;
    const auto result = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, kDigits);
    return {text.data(), result.ptr};
}

} // namespace tonvale
