// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/dropped_files.h"

#include "core/file_address.h"

#include <algorithm>
#include <cstddef>

namespace tonvale {

namespace {

constexpr std::string_view kLineEnds("\r\n\0", 3);

} // namespace

std::vector<std::string> droppedFiles(std::string_view uriList, std::string_view host) {
    std::vector<std::string> paths;
    while (!uriList.empty()) {
        const std::size_t end = std::min(uriList.find_first_of(kLineEnds), uriList.size());
        auto path = pathOfAddress(uriList.substr(0, end), host, StraySigns::Kept);
        if (path) paths.push_back(std::move(*path));
        uriList.remove_prefix(std::min(end + 1, uriList.size()));
    }
    return paths;
}

} // namespace tonvale
