// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/LinkButton.h"

#include "ui/theme.h"

#include <QPainter>

namespace tonvale {

namespace {

constexpr int kBeside = 4, kAbove = 3; // around the text; device-independent pixels

} // namespace

LinkButton::LinkButton(QWidget *parent) : PanelButton(parent) { setCursor(Qt::PointingHandCursor); }

QSize LinkButton::sizeHint() const {
    return fontMetrics().size(Qt::TextSingleLine, text()) + QSize(2 * kBeside, 2 * kAbove);
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
