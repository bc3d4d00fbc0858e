// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Property.h"
#include "controls/Signal.h"

#include <string>

namespace tonvale {

// An icon in the desktop's tray.
struct TrayX {
    Property<bool> Visible{false};
    Property<std::string> ToolTip;
    Event<> DoubleClick, RightClick;
};

} // namespace tonvale
