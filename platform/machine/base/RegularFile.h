// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/machine/base/UniqueFd.h"

#include <cstdint>
#include <span>
#include <string>

namespace tonvale {

// Opens a regular file for reading, with no effect on anything else, and waits for nobody. Returns
// 0, or the error number of the system; EISDIR for what is no regular file.
[[nodiscard]] int openRegularFile(const std::string &path, UniqueFd &file);

// As many bytes from this place on as there are; fewer at the file's end only. Throws.
[[nodiscard]] std::size_t readAt(int file, std::int64_t position, std::span<std::uint8_t> bytes);

} // namespace tonvale
