// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/signs.h"

#include <QColor>
#include <QPainter>
#include <QPainterPath>

namespace tonvale {

namespace {

using Sign = TransportButton::Sign;

void triangle(QPainterPath &path, double left, double top, double right, double bottom) {
    path.moveTo(left, top);
    path.lineTo(right, (top + bottom) / 2);
    path.lineTo(left, bottom);
    path.closeSubpath();
}

// An eject sign: a file is to be chosen before it plays.
void playNew(QPainterPath &path) {
    path.moveTo(0, -10);
    path.lineTo(11, 3);
    path.lineTo(-11, 3);
    path.closeSubpath();
    path.addRect(-11, 6, 22, 4);
}

void speaker(QPainterPath &path) {
    path.moveTo(-12, -4);
    path.lineTo(-7, -4);
    path.lineTo(0, -10);
    path.lineTo(0, 10);
    path.lineTo(-7, 4);
    path.lineTo(-12, 4);
    path.closeSubpath();
}

void bin(QPainterPath &path) {
    path.addRect(-10, -8, 20, 2.6);
    path.addRect(-3.5, -11, 7, 3);
    path.moveTo(-8, -4);
    path.lineTo(8, -4);
    path.lineTo(6.5, 11);
    path.lineTo(-6.5, 11);
    path.closeSubpath();
}

QPainterPath filledPart(Sign sign) {
    QPainterPath path;
    switch (sign) {
    case Sign::PlayNew: playNew(path); break;
    case Sign::PlayCurrent: triangle(path, -8, -11, 11, 11); break;
    case Sign::Pause:
        path.addRect(-9, -10, 6.5, 20);
        path.addRect(2.5, -10, 6.5, 20);
        break;
    case Sign::Stop: path.addRect(-9, -9, 18, 18); break;
    case Sign::Mute: speaker(path); break;
    case Sign::Delete: bin(path); break;
    case Sign::Help: path.addEllipse(QPointF(0, 9.5), 2, 2); break;
    case Sign::Centre:
        triangle(path, -12, -5, -4, 5);
        triangle(path, 12, -5, 4, 5);
        path.addRect(-1.2, -9, 2.4, 18);
        break;
    }
    return path;
}

QPainterPath drawnPart(Sign sign) {
    QPainterPath path;
    if (sign == Sign::Mute) {
        path.moveTo(4, -5);
        path.lineTo(12, 5);
        path.moveTo(12, -5);
        path.lineTo(4, 5);
    } else if (sign == Sign::Help) {
        path.moveTo(-6, -5);
        path.cubicTo(-6, -13, 7, -13, 7, -5);
        path.cubicTo(7, -0.5, 0, -0.5, 0, 5);
    }
    return path;
}

} // namespace

void paintSign(QPainter &painter, TransportButton::Sign sign, const QColor &color) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawPath(filledPart(sign));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color, 2.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(drawnPart(sign));
}

} // namespace tonvale
