// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/Text.h"

#include "controls/Utf8.h"

#include <cstdint>
#include <optional>

namespace tonvale {

namespace {

// The letters beyond ASCII that fold, all of them two bytes long in UTF-8 in both cases.
std::optional<std::uint32_t> lowerOf(std::uint32_t letter) {
    if (letter >= 0xC0 && letter <= 0xDE && letter != 0xD7) return letter + 0x20;
    const bool evenIsUpper = (letter >= 0x100 && letter <= 0x12F) || (letter >= 0x132 && letter <= 0x137) ||
                             (letter >= 0x14A && letter <= 0x177) || (letter >= 0x460 && letter <= 0x481) ||
                             (letter >= 0x48A && letter <= 0x4BF);
    if (evenIsUpper) return letter % 2 == 0 ? std::optional(letter + 1) : std::nullopt;
    const bool oddIsUpper = (letter >= 0x139 && letter <= 0x148) || (letter >= 0x179 && letter <= 0x17E);
    if (oddIsUpper) return letter % 2 == 1 ? std::optional(letter + 1) : std::nullopt;
    if (letter >= 0x391 && letter <= 0x3AB && letter != 0x3A2) return letter + 0x20;
    if (letter >= 0x410 && letter <= 0x42F) return letter + 0x20;
    if (letter >= 0x400 && letter <= 0x40F) return letter + 0x50;
    return std::nullopt;
}

std::optional<std::uint32_t> upperOf(std::uint32_t letter) {
    // Every pair lies at one of these distances; the lower case's own rule decides.
    for (const std::uint32_t distance : {0x20u, 0x01u, 0x50u}) {
        if (letter < distance) continue;
        if (lowerOf(letter - distance) == letter) return letter - distance;
    }
    return std::nullopt;
}

template <class FoldAscii, class FoldLetter>
std::string fold(std::string_view text, FoldAscii foldAscii, FoldLetter foldLetter) {
    std::string result(text);
    const bool hasLetters = isUtf8(text); // beyond ASCII
    for (std::size_t i = 0; i < result.size(); ++i) {
        const auto c = static_cast<unsigned char>(result[i]);
        if (c < 0x80) {
            result[i] = foldAscii(result[i]);
        } else if (hasLetters && c >= 0xC2 && c <= 0xDF) {
            const std::uint32_t letter = (c & 0x1Fu) << 6 | (static_cast<unsigned char>(result[i + 1]) & 0x3Fu);
            if (const auto folded = foldLetter(letter)) {
                result[i] = static_cast<char>(0xC0 | *folded >> 6);
                result[i + 1] = static_cast<char>(0x80 | (*folded & 0x3F));
            }
            ++i;
        }
    }
    return result;
}

} // namespace

std::string lowerCase(std::string_view text) {
    return fold(
        text, [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 0x20) : c; }, lowerOf);
}

std::string upperCase(std::string_view text) {
    return fold(
        text, [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 0x20) : c; }, upperOf);
}

bool equalFolded(std::string_view a, std::string_view b) {
    return a.size() == b.size() && upperCase(a) == upperCase(b);
}

std::string trimBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

std::string withoutOuterQuotes(std::string_view text) {
    if (text.starts_with('"')) text.remove_prefix(1);
    if (text.ends_with('"')) text.remove_suffix(1);
    return std::string(text);
}

bool matchesPattern(std::string_view text, std::string_view pattern) {
    // Iterative, with one place to come back to: linear for a single star, never exponential.
    std::size_t t = 0, p = 0;
    std::size_t starAt = std::string_view::npos, resumeAt = 0;
    while (t < text.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            starAt = p++;
            resumeAt = t;
        } else if (p < pattern.size() && (pattern[p] == '?' || pattern[p] == text[t])) {
            ++p;
            ++t;
        } else if (starAt != std::string_view::npos) {
            p = starAt + 1;
            t = ++resumeAt;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '*') ++p;
    return p == pattern.size();
}

std::string_view untilZero(std::string_view text) { return text.substr(0, text.find('\0')); }

std::string joinPath(std::string_view directory, std::string_view name) {
    std::string result(directory);
    result += directory.starts_with('/') ? '/' : '\\';
    result += name;
    return result;
}

} // namespace tonvale
