// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/file_address.h"

#include "controls/Text.h"

#include <algorithm>
#include <charconv>
#include <cstddef>

namespace tonvale {

namespace {

constexpr std::string_view kPlain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
constexpr std::string_view kOfNoPath = "%?#";
constexpr std::string_view kHexDigits = "0123456789ABCDEF";
constexpr std::string_view kScheme = "file:", kAuthority = "//", kThisMachine = "localhost";
constexpr std::size_t kEscapeDigits = 2;

std::optional<char> escapedByte(std::string_view digits) {
    if (digits.size() < kEscapeDigits) return std::nullopt;
    unsigned value = 0;
    const char *end = digits.data() + kEscapeDigits;
    const bool isByte = std::from_chars(digits.data(), end, value, 16).ptr == end;
    return isByte ? std::optional(static_cast<char>(value)) : std::nullopt;
}

std::optional<std::string> decoded(std::string_view text, StraySigns stray) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto escaped = text[i] == '%' ? escapedByte(text.substr(i + 1)) : std::nullopt;
        const bool isStray = !escaped && kOfNoPath.find(text[i]) != std::string_view::npos;
        if (isStray && stray == StraySigns::Refused) return std::nullopt;
        bytes += escaped.value_or(text[i]);
        if (escaped) i += kEscapeDigits;
    }
    const bool isName = bytes.find('\0') == std::string::npos;
    return isName ? std::optional(std::move(bytes)) : std::nullopt;
}

} // namespace

std::string fileAddress(std::string_view path) {
    if (!path.starts_with('/')) return {};
    std::string address = std::string(kScheme).append(kAuthority);
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

std::optional<std::string> pathOfAddress(std::string_view address, std::string_view host, StraySigns stray) {
    if (!equalFolded(address.substr(0, kScheme.size()), kScheme)) return std::nullopt;
    address.remove_prefix(kScheme.size());
    if (address.starts_with(kAuthority)) {
        address.remove_prefix(kAuthority.size());
        const std::size_t root = std::min(address.find('/'), address.size());
        const std::string_view machine = address.substr(0, root);
        if (!machine.empty() && !equalFolded(machine, kThisMachine) && !equalFolded(machine, host)) return std::nullopt;
        address.remove_prefix(root);
    }
    return address.starts_with('/') ? decoded(address, stray) : std::nullopt;
}

} // namespace tonvale
