// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/LampWidget.h"

#include <QPainter>
#include <QRadialGradient>

#include <algorithm>

namespace tonvale {

void LampWidget::setColor(const QColor &color) {
    if (color == color_) return;
    color_ = color;
    update();
    announceValue();
}

QString LampWidget::shownValue() const {
    const bool red = color_.red() > 127, green = color_.green() > 127;
    return red && green ? QStringLiteral("yellow") : green ? QStringLiteral("green") : QStringLiteral("red");
}

void LampWidget::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double size = std::min(width(), height());
    const QPointF centre(width() / 2.0, height() / 2.0);
    QRadialGradient halo(centre, size / 2);
    QColor glow = color_;
    glow.setAlpha(110);
    halo.setColorAt(0.45, glow);
    glow.setAlpha(0);
    halo.setColorAt(1, glow);
    painter.setPen(Qt::NoPen);
    painter.setBrush(halo);
    painter.drawEllipse(centre, size / 2, size / 2);
    QRadialGradient bulb(centre - QPointF(size * 0.09, size * 0.11), size * 0.36);
    bulb.setColorAt(0, color_.lighter(170));
    bulb.setColorAt(0.4, color_);
    bulb.setColorAt(1, color_.darker(190));
    painter.setPen(QPen(QColor(0x70, 0x76, 0x7e), 1.2));
    painter.setBrush(bulb);
    painter.drawEllipse(centre, size * 0.3, size * 0.3);
}

} // namespace tonvale
