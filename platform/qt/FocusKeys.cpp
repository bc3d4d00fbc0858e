// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/qt/FocusKeys.h"

#include "platform/qt/key_codes.h"

#include <QCoreApplication>
#include <QKeyEvent>

#include <utility>

namespace tonvale {

FocusKeys::FocusKeys(Tell tell) : tell_(std::move(tell)) { QCoreApplication::instance()->installEventFilter(this); }

bool FocusKeys::eventFilter(QObject *watched, QEvent *event) {
    // Comes once to the window for each press, and also for those that are a menu's shortcut.
    if (event->type() != QEvent::ShortcutOverride || !watched->isWindowType()) return false;
    const auto &key = static_cast<const QKeyEvent &>(*event);
    if (key.isAutoRepeat() || !key.modifiers().testFlag(Qt::ControlModifier)) return false;
    if (const auto code = virtualKeyOfEvent(key)) tell_(*code);
    return false;
}

} // namespace tonvale
