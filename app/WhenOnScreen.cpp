// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/WhenOnScreen.h"

#include <QCoreApplication>
#include <QEvent>

#include <utility>

namespace tonvale {

WhenOnScreen::WhenOnScreen(std::function<void()> work) : work_(std::move(work)) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool WhenOnScreen::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() != QEvent::Expose || !watched->isWindowType()) return false;
    QCoreApplication::instance()->removeEventFilter(this);
    QMetaObject::invokeMethod(this, work_, Qt::QueuedConnection); // the window paints before
    return false;
}

} // namespace tonvale
