// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "playlists/FileListBox.h"

#include "controls/Text.h"

#include <algorithm>
#include <sstream>
#include <utility>

namespace tonvale {

namespace {

std::vector<std::string> patternsOf(const std::string &list) {
    std::vector<std::string> patterns;
    std::istringstream stream(lowerCase(list));
    for (std::string pattern; std::getline(stream, pattern, ';');) patterns.push_back(pattern);
    return patterns;
}

} // namespace

void FileListBox::Refresh() {
    names_.clear();
    const std::vector<std::string> patterns = patternsOf(Pattern);
    for (std::string &name : files_.filesIn(Path)) {
        const std::string folded = lowerCase(name);
        if (std::ranges::any_of(patterns, [&](const auto &pattern) { return matchesPattern(folded, pattern); }))
            names_.push_back(std::move(name));
    }
}

} // namespace tonvale
