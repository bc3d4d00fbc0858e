// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/register.h"

#include "desktop/Disclaimer.h"
#include "desktop/Settings.h"
#include "desktop/frmAbout.h"

#include <memory>

namespace tonvale {

void registerDesktopWindows(Application &app) {
    app.settings.setFactory([&app] { return std::make_unique<Settings>(app); });
    app.frmAbout.setFactory([&app] { return std::make_unique<frmAbout>(app); });
    app.Disclaimer.setFactory([&app] { return std::make_unique<Disclaimer>(app); });
}

} // namespace tonvale
