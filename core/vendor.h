// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// Where the vendor can be reached.

namespace tonvale::vendor {

inline constexpr const char *kMailAddress = "tonvale@orvane.example";
inline constexpr const char *kSupportAddress = "support@orvane.example";
inline constexpr const char *kHomePage = "http://www.orvane.example/";

} // namespace tonvale::vendor
