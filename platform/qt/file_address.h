// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>
#include <string>

namespace tonvale {

// The address of a file by its path's bytes, all but the plain ones percent-encoded; empty for what
// is no absolute path.
[[nodiscard]] std::string fileAddress(const std::string &path);

// The path of an address of a file on this machine, or nothing.
[[nodiscard]] std::optional<std::string> pathOfAddress(const std::string &address);

} // namespace tonvale
