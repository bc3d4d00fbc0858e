// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/Utf8.h"

#include <cstddef>
#include <cstdint>

namespace tonvale {

namespace {

std::uint32_t byteAt(std::string_view text, std::size_t index) {
    return index < text.size() ? static_cast<unsigned char>(text[index]) : 0;
}

bool isContinuation(std::uint32_t byte) { return (byte & 0xC0) == 0x80; }

// How many bytes the sequence that begins at `index` has; 0 when it is not valid.
std::size_t sequenceLength(std::string_view text, std::size_t index) {
    const std::uint32_t lead = byteAt(text, index), second = byteAt(text, index + 1);
    if (lead < 0x80) return 1;
    if (lead < 0xC2 || lead > 0xF4 || !isContinuation(second)) return 0;
    if (lead < 0xE0) return 2;
    if (!isContinuation(byteAt(text, index + 2))) return 0;
    if (lead < 0xF0) {
        const bool overlong = lead == 0xE0 && second < 0xA0, surrogate = lead == 0xED && second >= 0xA0;
        return overlong || surrogate ? 0 : 3;
    }
    const bool overlong = lead == 0xF0 && second < 0x90, beyond = lead == 0xF4 && second >= 0x90;
    return overlong || beyond || !isContinuation(byteAt(text, index + 3)) ? 0 : 4;
}

} // namespace

bool isUtf8(std::string_view text) {
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t length = sequenceLength(text, i);
        if (length == 0) return false;
        i += length;
    }
    return true;
}

} // namespace tonvale
