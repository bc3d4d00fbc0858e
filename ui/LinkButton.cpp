// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/LinkButton.h"

#include "ui/theme.h"

#include <QKeyEvent>
#include <QPainter>

namespace tonvale {

namespace {

constexpr int kBeside = 4, kAbove = 3; // around the text; device-independent pixels

} // namespace

LinkButton::LinkButton(QWidget *parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
}

QSize LinkButton::sizeHint() const {
    return fontMetrics().size(Qt::TextSingleLine, text()) + QSize(2 * kBeside, 2 * kAbove);
}

void LinkButton::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void LinkButton::enterEvent(QEnterEvent *event) {
    QAbstractButton::enterEvent(event);
    update();
}

void LinkButton::leaveEvent(QEvent *event) {
    QAbstractButton::leaveEvent(event);
    update();
}

void LinkButton::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    QFont font = painter.font();
    font.setUnderline(underMouse());
    painter.setFont(font);
    painter.setPen(theme::kLit);
    painter.drawText(rect().adjusted(kBeside, 0, -kBeside, 0), Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                     text());
    if (hasFocus()) theme::paintFocus(painter, rect());
}

} // namespace tonvale
