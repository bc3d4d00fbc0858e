// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/TrayIcon.h"

#include "ui/FormWindow.h"
#include "ui/emblem.h"
#include "ui/menus.h"
#include "ui/text.h"

#include <QMenu>
#include <QSystemTrayIcon>

namespace tonvale {

namespace {

// A tray may come and go, as panels crash and are started anew, and says nothing about it.
constexpr int kLookAgain = 3000; // milliseconds

} // namespace

TrayIcon::TrayIcon(Bindings &bindings, TrayX &tray, FormWindow &window, MenuEntry &menu)
    : bindings_(bindings), tray_(tray), window_(window), entry_(menu) {
    lookAgain_.setInterval(kLookAgain);
    bindings.keep(QObject::connect(&lookAgain_, &QTimer::timeout, &lookAgain_, [this] { choosePlace(); }));
    bindings.follow(tray.Visible, [this] { follow(); });
}

TrayIcon::~TrayIcon() = default;

void TrayIcon::follow() {
    if (tray_.Visible) {
        choosePlace();
        lookAgain_.start();
    } else {
        lookAgain_.stop();
        hideIcon();
        window_.hideAsMinimized({});
    }
}

void TrayIcon::choosePlace() {
    if (QSystemTrayIcon::isSystemTrayAvailable()) {
        showIcon();
        window_.hideAsMinimized({});
    } else {
        hideIcon();
        window_.hideAsMinimized([this] { tray_.DoubleClick(); });
    }
}

void TrayIcon::showIcon() {
    if (!icon_) make();
    icon_->show();
}

void TrayIcon::hideIcon() {
    if (icon_) icon_->hide();
}

void TrayIcon::make() {
    menu_ = std::make_unique<QMenu>();
    // The tray's own program shows a copy of the menu, so all of it has to be there.
    bindMenu(bindings_, *menu_, entry_, FillMenu::AtOnce);
    icon_ = std::make_unique<QSystemTrayIcon>(emblemIcon());
    icon_->setContextMenu(menu_.get());
    bindings_.follow(tray_.ToolTip, [this] { icon_->setToolTip(shown(tray_.ToolTip)); });
    // Queued, since the icon must not go while it tells of a click. Most trays know no double
    // click, so that any click counts as one.
    bindings_.keep(QObject::connect(
        icon_.get(), &QSystemTrayIcon::activated, icon_.get(),
        [this](QSystemTrayIcon::ActivationReason reason) {
            const bool clicked = reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick;
            if (clicked && tray_.Visible) tray_.DoubleClick();
        },
        Qt::QueuedConnection));
}

} // namespace tonvale
