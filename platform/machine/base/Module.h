// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace tonvale {

// The address of `symbol` in the shared object `file`, which lies beside the program or in its
// library directory; null when it cannot be loaded. It stays loaded: its libraries keep threads
// and exit handlers of their own.
[[nodiscard]] void *symbolOfModule(const char *file, const char *symbol);

} // namespace tonvale
