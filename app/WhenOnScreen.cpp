// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/WhenOnScreen.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>

#include <utility>

namespace tonvale {

namespace {

constexpr int kAfterStart = 500; // milliseconds

} // namespace

WhenOnScreen::WhenOnScreen(std::function<void()> work) : work_(std::move(work)) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool WhenOnScreen::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() != QEvent::Expose || !watched->isWindowType()) return false;
    QCoreApplication::instance()->removeEventFilter(this);
    QTimer::singleShot(kAfterStart, this, work_); // a file begins to sound before
    return false;
}

} // namespace tonvale
