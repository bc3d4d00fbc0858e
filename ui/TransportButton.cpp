// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/TransportButton.h"

#include "ui/signs.h"
#include "ui/theme.h"

#include <QPainter>

#include <algorithm>

namespace tonvale {

namespace {

constexpr double kSignShare = 0.52, kLargestSign = 24; // of the key's shorter side; device-independent pixels

} // namespace

TransportButton::TransportButton(QWidget *parent, Sign sign) : PanelButton(parent), sign_(sign) {}

void TransportButton::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    const bool hovered = isEnabled() && underMouse();
    theme::paintKey(painter, rect(), isDown(), hovered);
    if (hasFocus()) theme::paintFocus(painter, QRectF(rect()).adjusted(1, 1, -1, -1));
    const double size = std::min(kLargestSign, std::min(width(), height()) * kSignShare);
    painter.translate(width() / 2.0, height() / 2.0 + (isDown() ? 1 : 0));
    painter.scale(size / kSignGrid, size / kSignGrid);
    paintSign(painter, sign_, isEnabled() ? (isDown() || hovered ? theme::kLit : theme::kText) : theme::kDisabledSign);
}

} // namespace tonvale
