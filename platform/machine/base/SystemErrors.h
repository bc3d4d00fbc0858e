// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Errors.h"

namespace tonvale {

// The run-time error that stands for a failed system call. ENOENT counts as a missing file.
[[nodiscard]] RuntimeError systemError(int error);

} // namespace tonvale
