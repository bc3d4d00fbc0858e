// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Controls.h"
#include "controls/Form.h"
#include "controls/VvWeb.h"

// What the main window needs of windows that are built elsewhere. Their holders have no factory
// until they are, so a reference fails and the step is skipped.

namespace tonvale {

// A window with a list of paths (frmPlayList, frmVivoPlayList).
class ListWindow : public Form {
public:
    using Form::Form;
    ListBox List1;
};

// The window that shows a Vivo movie (VivoPlayer).
class VivoWindow : public Form {
public:
    using Form::Form;
    virtual VvWeb &VvWeb1() = 0;
};

} // namespace tonvale
