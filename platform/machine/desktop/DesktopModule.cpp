// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/desktop/DesktopModule.h"

#include "platform/machine/desktop/GioShell.h"
#include "platform/machine/desktop/XbelRecentDocuments.h"

extern "C" __attribute__((visibility("default"))) void tonvaleMakeDesktop(tonvale::FileService &files,
                                                                          tonvale::DesktopModule &module) {
    module.shell = std::make_unique<tonvale::GioShell>(files);
    module.recentDocuments = std::make_unique<tonvale::XbelRecentDocuments>(files);
}
