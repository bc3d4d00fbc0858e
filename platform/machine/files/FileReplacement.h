// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <string_view>

namespace tonvale {

// Writes the content beside the file and puts it into its place when all of it is on the disk, so
// that whatever happens on the way the file is the old one or the new one. A file that is replaced
// keeps its permissions, and a link leads to the new content. Returns the errno of a failure, or 0.
[[nodiscard]] int replaceFileContent(std::string path, std::string_view content);

} // namespace tonvale
