// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string_view>

namespace tonvale {

// Whether the bytes are UTF-8 throughout (RFC 3629: no overlong forms, no surrogates).
[[nodiscard]] bool isUtf8(std::string_view text);

} // namespace tonvale
