// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/dropped_files.h"

#include "controls/Text.h"

#include <algorithm>
#include <cstddef>

namespace tonvale {

namespace {

constexpr std::string_view kScheme = "file:", kAuthority = "//", kThisMachine = "localhost";

int hexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

std::string percentDecoded(std::string_view text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool escapes = text[i] == '%' && i + 2 < text.size();
        const int high = escapes ? hexDigit(text[i + 1]) : -1, low = escapes ? hexDigit(text[i + 2]) : -1;
        if (high < 0 || low < 0) {
            bytes += text[i];
            continue;
        }
        bytes += static_cast<char>(high * 16 + low);
        i += 2;
    }
    return bytes;
}

// The path of one address; empty when it is no file of this machine.
std::string localPath(std::string_view address, std::string_view host) {
    if (!equalFolded(address.substr(0, kScheme.size()), kScheme)) return {};
    address.remove_prefix(kScheme.size());
    if (address.starts_with(kAuthority)) {
        address.remove_prefix(kAuthority.size());
        const std::size_t root = std::min(address.find('/'), address.size());
        const std::string_view machine = address.substr(0, root);
        if (!machine.empty() && !equalFolded(machine, kThisMachine) && !equalFolded(machine, host)) return {};
        address.remove_prefix(root);
    }
    std::string path = percentDecoded(address);
    const bool isPath = path.starts_with('/') && path.find('\0') == std::string::npos;
    return isPath ? path : std::string();
}

} // namespace

std::vector<std::string> droppedFiles(std::string_view uriList, std::string_view host) {
    std::vector<std::string> paths;
    while (!uriList.empty()) {
        const std::size_t end = std::min(uriList.find_first_of(std::string_view("\r\n\0", 3)), uriList.size());
        std::string path = localPath(uriList.substr(0, end), host);
        if (!path.empty()) paths.push_back(std::move(path));
        uriList.remove_prefix(std::min(end + 1, uriList.size()));
    }
    return paths;
}

} // namespace tonvale
