// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Services.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tonvale {

inline constexpr WindowHandle kDesktopWindow = 0;
// The classes of the windows of this family's programs, and that of our own.
inline constexpr const char *kFormClassPattern = "Thunder*Form*";
inline constexpr const char *kFormClass = "ThunderFormWindow";

enum class SearchFor { All, FirstOnly };

// Finds windows of this family's programs by class and title.
class WindowSearch {
public:
    explicit WindowSearch(WindowSystem &windows) : windows_(windows) {}

    // Both patterns must match ("*" any run of characters, case-sensitive). Returns how many
    // windows matched; with FirstOnly the handle of the one found, 0 when there is none.
    std::uint64_t FindWindowLike(WindowHandle parent, const std::string &classPattern, const std::string &titlePattern,
                                 SearchFor what);

    // What the last search found.
    [[nodiscard]] const std::vector<WindowInfo> &found() const { return found_; }

private:
    WindowSystem &windows_;
    std::vector<WindowInfo> found_;
};

} // namespace tonvale
