// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Screen.h"

#include <memory>

namespace tonvale {

// Keeps the screen from blanking: by the screen saver's service, else by the desktop's portal, else
// by the display itself.
[[nodiscard]] std::unique_ptr<ScreenSaver::Hold> holdOffScreenSaver();

} // namespace tonvale
