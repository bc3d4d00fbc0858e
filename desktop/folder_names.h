// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>

namespace tonvale {

// The folder as it stands, ending in the separator of its kind.
[[nodiscard]] inline std::string withSeparator(std::string folder) {
    const char separator = folder.starts_with('/') ? '/' : '\\';
    if (!folder.ends_with(separator)) folder += separator;
    return folder;
}

} // namespace tonvale
