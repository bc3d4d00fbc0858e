// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Controls.h"

#include <string>
#include <utility>
#include <vector>

namespace tonvale {

// A button of a toolbar, or a gap between two of them.
struct ToolbarButton {
    enum class Kind { Button, Separator };
    std::string Key;
    std::string Caption;
    std::string ToolTipText;
    Kind kind = Kind::Button;
    std::string Image = {}; // the picture's key; empty: none
};

struct Toolbar : Control {
    explicit Toolbar(std::vector<ToolbarButton> buttons) : Buttons(std::move(buttons)) {}
    std::vector<ToolbarButton> Buttons;
    Event<const ToolbarButton &> ButtonClick;
};

} // namespace tonvale
