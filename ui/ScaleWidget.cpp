// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/ScaleWidget.h"

#include "ui/theme.h"

#include <QPainter>

#include <array>

namespace tonvale {

namespace {

struct Mark {
    double at; // share of the width
    const char *text;
};
constexpr std::array<Mark, 6> kMarks = {{{0, "-20"}, {0.25, "-10"}, {0.45, "-5"}, {0.6, "-3"}, {0.75, "0"}, {1, "+3"}}};
constexpr double kTick = 4; // device-independent pixels

} // namespace

void ScaleWidget::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    painter.setFont(theme::printFont(font(), 9));
    painter.setPen(theme::kGlassText);
    const QFontMetricsF metrics(painter.font());
    for (const Mark &mark : kMarks) {
        const QString text = QLatin1String(mark.text);
        const double x = mark.at * (width() - 1), wide = metrics.horizontalAdvance(text);
        const double left = mark.at == 0 ? 0 : mark.at == 1 ? width() - wide : x - wide / 2;
        painter.drawText(QPointF(left, height() - kTick - 2), text);
        painter.fillRect(QRectF(x, height() - kTick, 1, kTick), theme::kGlassText);
    }
}

} // namespace tonvale
