// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "viewers/register.h"

#include "viewers/MediaOptionsWindow.h"
#include "viewers/MediaStatisticsWindow.h"
#include "viewers/frmVideoPlay.h"

#include <memory>

namespace tonvale {

void registerViewerWindows(Application &app) {
    app.frmVideoPlay.setFactory([&app] { return std::make_unique<frmVideoPlay>(app); });
    app.MediaOptions.setFactory([&app] { return std::make_unique<MediaOptionsWindow>(app); });
    app.MediaStatistics.setFactory([&app] { return std::make_unique<MediaStatisticsWindow>(app); });
}

} // namespace tonvale
