// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Services.h"

#include <memory>

namespace tonvale {

// What the desktop module offers by the name kDesktopModuleSymbol.
struct DesktopModule {
    std::unique_ptr<Shell> shell;
    std::unique_ptr<RecentDocuments> recentDocuments; // may be used on a thread of its own
};
using DesktopModuleFunction = void(FileService &files, DesktopModule &module);
inline constexpr const char *kDesktopModuleSymbol = "tonvaleMakeDesktop";

} // namespace tonvale
