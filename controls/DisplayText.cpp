// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/DisplayText.h"

#include "controls/Utf8.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace tonvale {

namespace {

// What Windows-1252 has in place of the control codes from 0x80 on; 0xFFFD where it has nothing.
constexpr std::array<char16_t, 32> kWindows1252 = {0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                   0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD,
                                                   0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                   0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};

void appendUtf8(std::string &text, std::uint32_t letter) {
    if (letter < 0x800) {
        text += static_cast<char>(0xC0 | letter >> 6);
    } else {
        text += static_cast<char>(0xE0 | letter >> 12);
        text += static_cast<char>(0x80 | (letter >> 6 & 0x3F));
    }
    text += static_cast<char>(0x80 | (letter & 0x3F));
}

} // namespace

std::string displayText(std::string_view bytes) {
    if (isUtf8(bytes)) return std::string(bytes);
    std::string text;
    for (const char c : bytes) {
        const std::uint32_t byte = static_cast<unsigned char>(c);
        if (byte < 0x80)
            text += c;
        else
            appendUtf8(text, byte < 0xA0 ? kWindows1252[byte - 0x80] : byte);
    }
    return text;
}

} // namespace tonvale
