// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/seven_segment.h"

#include "ui/theme.h"

#include <QPainter>
#include <QPolygonF>

#include <array>
#include <cstddef>
#include <cstdint>

namespace tonvale {

namespace {

// Bit 0 is the top segment, then clockwise, bit 6 the middle one.
constexpr std::array<std::uint8_t, 10> kSegments = {0x3F, 0x06, 0x5B, 0x4F, 0x66, 0x6D, 0x7D, 0x07, 0x7F, 0x6F};
constexpr int kSegmentCount = 7;
constexpr double kSlant = -0.08;

// A bar from `a` to `b` with pointed ends, which lies in the middle of its stroke.
QPolygonF bar(QPointF a, QPointF b, double stroke) {
    const double half = stroke / 2, gap = stroke * 0.14;
    if (a.y() == b.y()) {
        a.rx() += gap;
        b.rx() -= gap;
        return {{a, a + QPointF(half, -half), b + QPointF(-half, -half), b, b + QPointF(-half, half),
                 a + QPointF(half, half)}};
    }
    a.ry() += gap;
    b.ry() -= gap;
    return {
        {a, a + QPointF(half, half), b + QPointF(half, -half), b, b + QPointF(-half, -half), a + QPointF(-half, half)}};
}

std::array<QPolygonF, kSegmentCount> segments(const QRectF &area, double stroke) {
    const QRectF middle = area.adjusted(stroke / 2, stroke / 2, -stroke / 2, -stroke / 2);
    const QPointF left(middle.left(), middle.center().y()), right(middle.right(), middle.center().y());
    return {bar(middle.topLeft(), middle.topRight(), stroke),
            bar(middle.topRight(), right, stroke),
            bar(right, middle.bottomRight(), stroke),
            bar(middle.bottomLeft(), middle.bottomRight(), stroke),
            bar(left, middle.bottomLeft(), stroke),
            bar(middle.topLeft(), left, stroke),
            bar(left, right, stroke)};
}

void slant(QPainter &painter, const QRectF &area) {
    painter.translate(area.center());
    painter.shear(kSlant, 0);
    painter.translate(-area.center());
}

void paintLit(QPainter &painter, const QPolygonF &shape, double glow) {
    QColor halo = theme::kLit;
    halo.setAlpha(46);
    painter.setPen(QPen(halo, glow, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(theme::kLit);
    painter.drawPolygon(shape);
}

} // namespace

void paintDigit(QPainter &painter, const QRectF &area, int value) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    slant(painter, area);
    const double inset = area.height() * 0.05;
    const QRectF face = area.adjusted(inset * 1.6, inset, -inset * 1.6, -inset);
    const double stroke = face.height() * 0.125;
    const unsigned lit = value >= 0 && value < int(kSegments.size()) ? kSegments[std::size_t(value)] : 0;
    const auto shapes = segments(face, stroke);
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme::kUnlit);
    for (unsigned i = 0; i < kSegmentCount; ++i)
        if ((lit >> i & 1) == 0) painter.drawPolygon(shapes[i]);
    for (unsigned i = 0; i < kSegmentCount; ++i)
        if ((lit >> i & 1) != 0) paintLit(painter, shapes[i], stroke * 0.8);
    painter.restore();
}

void paintColon(QPainter &painter, const QRectF &area) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    slant(painter, area);
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme::kLit);
    const double size = area.height() * 0.12;
    for (const double at : {0.33, 0.67})
        painter.drawRect(QRectF(area.center().x() - size / 2, area.top() + area.height() * at - size / 2, size, size));
    painter.restore();
}

} // namespace tonvale
