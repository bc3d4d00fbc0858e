// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/machine/base/Directories.h"

#include <string>

namespace tonvale {

// The address of `symbol` in the shared object `file`, which lies beside the program or, installed,
// in ../lib/orvane-tonvale from there; null, and the reason on standard error, when it cannot be
// loaded. It stays loaded: its libraries keep threads and exit handlers of their own.
[[nodiscard]] void *symbolOfModule(const char *file, const char *symbol,
                                   const std::string &directory = programDirectory());

} // namespace tonvale
