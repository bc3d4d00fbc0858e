// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/bind.h"

#include <vector>

class QMenu;
class QMenuBar;

namespace tonvale {

enum class FillMenu { WhenOpened, AtOnce };

// Shows a tree of entries in a menu. Unless it is to be filled at once, the menu is filled as it
// opens for the first time, or where an entry below it has a shortcut, which must work before that.
void bindMenu(Bindings &bindings, QMenu &menu, MenuEntry &entry, FillMenu filling = FillMenu::WhenOpened);

void bindMenuBar(Bindings &bindings, QMenuBar &bar, const std::vector<MenuEntry *> &entries);

} // namespace tonvale
