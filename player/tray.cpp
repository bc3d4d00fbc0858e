// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "player/Form1.h"

namespace tonvale {

void Form1::connectTray() {
    TrayX1.DoubleClick = handler([this] { restoreFromTray(); });
    TrayX1.RightClick = handler([this] { PopupMenu(PopUpMenu2); });
    // The hook hears the whole desktop. A window that has taken this one's place, such as a list,
    // has hot keys of its own, and one key press must not be answered by both.
    const auto listen = [this] { WinHook1.Enabled(Visible || TrayX1.Visible); };
    visible_ = Visible.onChange(listen);
    trayVisible_ = TrayX1.Visible.onChange(listen);
    WinHook1.KeyDown = handler([this](std::int32_t keyCode) { WinHook1_KeyDown(keyCode); });
}

void Form1::traymenu_Click() {
    const std::string &title = app_.services.program.title;
    const std::string &path = ActiveMovie1.FileName();
    TrayX1.ToolTip = path.empty() ? title : title + "  -  " + app_.paths.ParsePath(path, "f");
    TrayX1.Visible = true;
    Hide();
    for (FormSlot *window : std::initializer_list<FormSlot *>{&app_.frmAssociate, &app_.settings, &app_.frmAbout})
        if (window->exists()) attempt([&] { window->form().Hide(); });
    ShowInTaskbar = false;
}

void Form1::restoreFromTray() {
    TrayX1.Visible = false;
    ShowInTaskbar = true;
    Show();
}

} // namespace tonvale
