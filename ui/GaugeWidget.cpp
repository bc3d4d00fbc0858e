// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/GaugeWidget.h"

#include "ui/theme.h"

#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace tonvale {

namespace {

constexpr int kSegmentCount = 20, kFirstAmber = 14, kFirstRed = 17;
constexpr double kGap = 2; // device-independent pixels

QColor unlit(const QColor &lit) { return QColor(lit.red() / 6, lit.green() / 6, lit.blue() / 6); }

} // namespace

GaugeWidget::GaugeWidget(QWidget *parent, Shows shows) : PanelPart(parent), shows_(shows) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

QColor GaugeWidget::colorOf(int index) const {
    if (shows_ == Shows::Progress) return theme::kLit;
    return index >= kFirstRed ? theme::kRed : index >= kFirstAmber ? theme::kAmber : theme::kLit;
}

void GaugeWidget::setPosition(int position) {
    if (std::exchange(position_, position) != position) announceValue();
    const int lit = (std::clamp(position, 0, 100) * kSegmentCount + 50) / 100;
    if (lit == lit_) return;
    const auto [first, last] = std::minmax({lit, lit_});
    lit_ = lit;
    update(segment(first).united(segment(last - 1)).toAlignedRect());
}

QString GaugeWidget::shownValue() const { return QString::number(position_); }

QRectF GaugeWidget::segment(int index) const {
    const double pitch = (width() + kGap) / double(kSegmentCount);
    return {index * pitch, 0, pitch - kGap, double(height())};
}

void GaugeWidget::paintEvent(QPaintEvent *event) {
    QPainter painter(this);
    painter.fillRect(event->rect(), theme::kGlass);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    for (int i = 0; i < kSegmentCount; ++i) {
        if (!segment(i).intersects(QRectF(event->rect()))) continue;
        painter.setBrush(i < lit_ ? colorOf(i) : unlit(colorOf(i)));
        painter.drawRoundedRect(segment(i), 1, 1);
    }
}

} // namespace tonvale
