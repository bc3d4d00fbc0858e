// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/PanelButton.h"

#include "ui/input_codes.h"

#include <QKeyEvent>

namespace tonvale {

PanelButton::PanelButton(QWidget *parent) : QAbstractButton(parent) { setFocusPolicy(Qt::StrongFocus); }

void PanelButton::keyPressEvent(QKeyEvent *event) {
    if (isPlayStopKey(*event))
        event->ignore();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void PanelButton::enterEvent(QEnterEvent *event) {
    QAbstractButton::enterEvent(event);
    update();
}

void PanelButton::leaveEvent(QEvent *event) {
    QAbstractButton::leaveEvent(event);
    update();
}

} // namespace tonvale
