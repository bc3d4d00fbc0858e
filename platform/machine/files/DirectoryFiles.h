// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <vector>

namespace tonvale {

// Adds the names of the regular files right in the directory, and of links to such files, without
// regard to case in order of name. Names that begin with a dot are hidden. Returns the errno of a
// failure, or 0.
[[nodiscard]] int listFiles(const std::string &directory, std::vector<std::string> &names);

} // namespace tonvale
