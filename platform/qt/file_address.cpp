// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/qt/file_address.h"

#include "controls/Text.h"

#include <charconv>
#include <string_view>

namespace tonvale {

namespace {

constexpr std::string_view kPlain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
constexpr std::string_view kHexDigits = "0123456789ABCDEF";
constexpr std::string_view kScheme = "file://", kThisMachine = "localhost";

// The byte after a percent sign; nothing when there is none, or it is a zero.
std::optional<char> encodedByte(std::string_view digits) {
    unsigned value = 0;
    if (digits.size() < 2) return std::nullopt;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + 2, value, 16);
    const bool good = error == std::errc() && end == digits.data() + 2 && value != 0;
    return good ? std::optional(static_cast<char>(value)) : std::nullopt;
}

std::optional<std::string> decoded(std::string_view text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\0' || text[i] == '?' || text[i] == '#') return std::nullopt;
        if (text[i] != '%') {
            bytes += text[i];
            continue;
        }
        const auto byte = encodedByte(text.substr(i + 1));
        if (!byte) return std::nullopt;
        bytes += *byte;
        i += 2;
    }
    return bytes;
}

} // namespace

std::string fileAddress(const std::string &path) {
    if (!path.starts_with('/')) return {};
    std::string address(kScheme);
    for (const char c : path) {
        if (kPlain.find(c) != std::string_view::npos) {
            address += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        address += '%';
        address += kHexDigits[byte >> 4];
        address += kHexDigits[byte & 15];
    }
    return address;
}

std::optional<std::string> pathOfAddress(const std::string &address) {
    if (lowerCase(address.substr(0, kScheme.size())) != kScheme) return std::nullopt;
    std::string_view rest = std::string_view(address).substr(kScheme.size());
    if (rest.starts_with(kThisMachine)) rest.remove_prefix(kThisMachine.size());
    return rest.starts_with('/') ? decoded(rest) : std::nullopt;
}

} // namespace tonvale
