// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tonvale {

// The address of a file by its path's bytes, all but the plain ones percent-encoded; empty for what
// is no absolute path.
[[nodiscard]] std::string fileAddress(std::string_view path);

// A percent sign that escapes nothing, and a "?" or "#" that is not escaped, have no place in the
// address of a file. Some programs write them all the same, and mean the name.
enum class StraySigns { Refused, Kept };

// The path, as bytes, of the address of a file ("file:///a", "file:/a", "file://localhost/a");
// nothing where it lies on another machine than `host`, or is no file.
[[nodiscard]] std::optional<std::string> pathOfAddress(std::string_view address, std::string_view host,
                                                       StraySigns stray);

} // namespace tonvale
