// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/machine/base/RegularFile.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace tonvale {

using Bytes = std::span<const std::uint8_t>;
using MutableBytes = std::span<std::uint8_t>;

// A regular file, opened for reading. Waits for nobody. It must not be the target itself.
[[nodiscard]] UniqueFd openSource(const std::string &path, const std::string &target = {});
[[nodiscard]] std::int64_t fileSize(int file);

// Works at a place of its own, as readAt() does, so that any number of threads may use one file.
void writeAt(int file, std::int64_t position, Bytes bytes);

} // namespace tonvale
