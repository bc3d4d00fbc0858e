// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/TrayX.h"

#include <QTimer>

#include <memory>

class QMenu;
class QSystemTrayIcon;

namespace tonvale {

class Bindings;
class FormWindow;
struct MenuEntry;

// The icon in the desktop's tray. Where there is no tray, or while it is gone, the window that
// hides stays minimized instead, so that its user can always get it back; getting it back is a
// double click on the icon then.
class TrayIcon {
public:
    // `bindings` end before the models do. `menu` is what the icon's right click brings up.
    TrayIcon(Bindings &bindings, TrayX &tray, FormWindow &window, MenuEntry &menu);
    ~TrayIcon();
    TrayIcon(const TrayIcon &) = delete;
    TrayIcon &operator=(const TrayIcon &) = delete;

private:
    void follow();
    void choosePlace();
    void showIcon();
    void hideIcon();
    void make();

    Bindings &bindings_;
    TrayX &tray_;
    FormWindow &window_;
    MenuEntry &entry_;
    QTimer lookAgain_;
    std::unique_ptr<QMenu> menu_; // both made when the icon is first shown
    std::unique_ptr<QSystemTrayIcon> icon_;
};

} // namespace tonvale
