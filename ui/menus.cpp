// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/menus.h"

#include "ui/children.h"

#include <QMenu>
#include <QMenuBar>

#include <algorithm>

namespace tonvale {

namespace {

bool hasShortcut(const MenuEntry &entry) {
    return !entry.Shortcut.empty() || std::any_of(entry.children.begin(), entry.children.end(),
                                                  [](const MenuEntry *child) { return hasShortcut(*child); });
}

void fill(Bindings &bindings, QMenu &menu, const MenuEntry &entry, FillMenu filling) {
    for (MenuEntry *child : entry.children) {
        if (child->children.empty()) {
            bind(bindings, *menu.addAction(QString()), *child);
        } else {
            bindMenu(bindings, *menu.addMenu(QString()), *child, filling);
        }
    }
}

} // namespace

void bindMenu(Bindings &bindings, QMenu &menu, MenuEntry &entry, FillMenu filling) {
    bind(bindings, *menu.menuAction(), entry);
    if (filling == FillMenu::AtOnce || hasShortcut(entry)) fill(bindings, menu, entry, filling);
    bindings.keep(QObject::connect(&menu, &QMenu::aboutToShow, &menu, [&bindings, &menu, &entry, filling] {
        if (menu.isEmpty()) fill(bindings, menu, entry, filling);
        entry.Click();
    }));
}

void bindMenuBar(Bindings &bindings, QMenuBar &bar, const std::vector<MenuEntry *> &entries) {
    for (MenuEntry *entry : entries) bindMenu(bindings, *bar.addMenu(QString()), *entry);
}

} // namespace tonvale
