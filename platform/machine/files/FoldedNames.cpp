// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/files/FoldedNames.h"

#include "controls/Text.h"
#include "platform/machine/base/Directory.h"

#include <sys/stat.h>

#include <optional>
#include <string_view>

namespace tonvale {

namespace {

bool exists(const std::string &path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0;
}

// The first name in byte order among those that differ from `name` in case only.
std::optional<std::string> firstMatch(const std::string &directoryPath, std::string_view name) {
    const Directory directory(::opendir(directoryPath.empty() ? "." : directoryPath.c_str()));
    if (!directory) return std::nullopt;
    const std::string folded = lowerCase(name);
    std::optional<std::string> best;
    while (const dirent *entry = ::readdir(directory.get())) {
        const std::string_view candidate = entry->d_name;
        // Folding never changes the length.
        if (candidate.size() != folded.size() || (best && candidate >= *best)) continue;
        if (lowerCase(candidate) == folded) best = candidate;
    }
    return best;
}

} // namespace

std::string findFolded(const std::string &path) {
    if (path.empty() || path.find('\0') != std::string::npos || exists(path)) return path;
    std::string found;
    for (std::size_t begin = 0; begin < path.size();) {
        if (path[begin] == '/') {
            found += path[begin++];
            continue;
        }
        const std::size_t end = std::min(path.find('/', begin), path.size());
        const std::string name = path.substr(begin, end - begin);
        if (exists(found + name)) {
            found += name;
        } else if (const auto match = firstMatch(found, name)) {
            found += *match;
        } else {
            return path;
        }
        begin = end;
    }
    return found;
}

} // namespace tonvale
