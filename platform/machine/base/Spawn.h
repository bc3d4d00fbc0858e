// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace tonvale {

// Starts a program in a session of its own, with nothing to read on its standard input, and never
// by way of a command interpreter. A name without a '/' is looked for in PATH. Returns the errno of
// a failure, or 0 and the child's id.
[[nodiscard]] int spawnDetached(const std::string &program, std::vector<std::string> arguments,
                                const std::string &directory, pid_t &child);

} // namespace tonvale
