// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Services.h"

#include <string>

namespace tonvale {

// Lets the user pick a directory; empty on cancel.
[[nodiscard]] inline std::string BrowseForFolder(FileDialogs &dialogs, const std::string &title) {
    return dialogs.browseForFolder(title).value_or(std::string());
}

} // namespace tonvale
