// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/KeyButton.h"

#include "ui/theme.h"

#include <QPainter>

#include <algorithm>

namespace tonvale {

namespace {

constexpr int kLeastWidth = 92, kHeight = 32, kBeside = 18; // device-independent pixels

} // namespace

KeyButton::KeyButton(QWidget *parent) : PanelButton(parent) {}

QSize KeyButton::sizeHint() const {
    const int word = fontMetrics().size(Qt::TextShowMnemonic, text()).width();
    return {std::max(kLeastWidth, word + 2 * kBeside), kHeight};
}

void KeyButton::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    const bool hovered = isEnabled() && underMouse();
    theme::paintKey(painter, rect(), isDown(), hovered);
    if (hasFocus()) theme::paintFocus(painter, QRectF(rect()).adjusted(1, 1, -1, -1));
    painter.setPen(isEnabled() ? (isDown() || hovered ? theme::kLit : theme::kText) : theme::kDisabledText);
    painter.drawText(rect().translated(0, isDown() ? 1 : 0), Qt::AlignCenter | Qt::TextShowMnemonic, text());
}

} // namespace tonvale
