// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Services.h"

#include <span>
#include <string>

namespace tonvale {

// The command line as one text, from the arguments after the program's name. A single argument is
// put in quotes, of which the reader takes one off at each end, so any name arrives as it is; and
// one that names a file here becomes absolute. Several are joined: a name with blanks needs no
// quotes. There are no switches.
[[nodiscard]] std::string commandLine(std::span<char *const> arguments, FileService &files);

} // namespace tonvale
