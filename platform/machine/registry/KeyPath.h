// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <string_view>

namespace tonvale {

// A key's path cut into the key above it and its own name; both are empty for the root itself.
struct KeyPath {
    std::string parent;
    std::string name;

    // Ends at the first zero character; empty names between separators do not count.
    [[nodiscard]] static KeyPath of(std::string_view key);
    [[nodiscard]] std::string text() const { return parent.empty() ? name : parent + '\\' + name; }
    [[nodiscard]] bool isRoot() const { return name.empty(); }
};

} // namespace tonvale
