// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tonvale {

// The paths, as bytes, of the local files in a list of addresses ("text/uri-list"), in its order.
// What lies on another machine than `host`, or is no file, is left out.
[[nodiscard]] std::vector<std::string> droppedFiles(std::string_view uriList, std::string_view host);

} // namespace tonvale
