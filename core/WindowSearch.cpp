// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/WindowSearch.h"

#include "controls/Text.h"

namespace tonvale {

namespace {

constexpr std::size_t kNameBuffer = 511; // 512 with its zero; longer classes and titles are compared by their start

} // namespace

std::uint64_t WindowSearch::FindWindowLike(WindowHandle parent, const std::string &classPattern,
                                           const std::string &titlePattern, SearchFor what) {
    found_.clear();
    if (parent != kDesktopWindow || !windows_.isAvailable()) return 0; // windows here have no children
    for (WindowInfo &window : windows_.windows()) {
        if (!matchesPattern(window.className.substr(0, kNameBuffer), classPattern)) continue;
        if (!matchesPattern(window.title.substr(0, kNameBuffer), titlePattern)) continue;
        found_.push_back(std::move(window));
        if (what == SearchFor::FirstOnly) break;
    }
    if (what == SearchFor::FirstOnly) return found_.size() == 1 ? found_.front().handle : 0;
    return found_.size();
}

} // namespace tonvale
