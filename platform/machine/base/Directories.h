// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/machine/base/UniqueFd.h"

#include <string>

namespace tonvale {

// Directories of this system, each without a separator at the end. They read the environment at
// every call and make nothing.
[[nodiscard]] std::string configDirectory();
[[nodiscard]] std::string cacheDirectory();
[[nodiscard]] std::string runtimeDirectory();
// Where this program lies.
[[nodiscard]] std::string programDirectory();

// Makes the directory and those above it where they are missing, for this user alone.
void makeDirectories(const std::string &path);

// Makes the directory and opens it. Throws error 70 unless it is a real directory, no link, that
// belongs to this user; what others may do in it is taken away.
[[nodiscard]] UniqueFd openPrivateDirectory(const std::string &path);

} // namespace tonvale
