// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/qt/owner_window.h"

#include <QApplication>
#include <QDialog>
#include <QWindow>

namespace tonvale {

namespace {

QWidget *ownerWindow() {
    if (QWidget *active = QApplication::activeWindow()) return active;
    for (QWidget *widget : QApplication::topLevelWidgets())
        if (widget->isVisible() && widget->windowType() == Qt::Window) return widget;
    return nullptr;
}

} // namespace

void placeAboveActiveWindow(QDialog &dialog) {
    const QWidget *owner = ownerWindow();
    if (owner == nullptr || owner->windowHandle() == nullptr) return;
    dialog.winId(); // makes the window handle
    dialog.windowHandle()->setTransientParent(owner->windowHandle());
    if (!dialog.testAttribute(Qt::WA_Resized)) dialog.adjustSize();
    dialog.move(owner->frameGeometry().center() - dialog.rect().center());
}

} // namespace tonvale
