// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>

namespace tonvale {

// The name on disk that `path` finds without regard to case: in each directory of the path an
// exact name wins, else the first match in byte order. `path` itself when it finds none.
[[nodiscard]] std::string findFolded(const std::string &path);

} // namespace tonvale
