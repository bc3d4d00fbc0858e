// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/LedDigitsWidget.h"

#include "ui/seven_segment.h"
#include "ui/theme.h"

#include <QPaintEvent>
#include <QPainter>

namespace tonvale {

namespace {

constexpr double kDigitWidth = 20, kColonWidth = 9, kHeight = 33; // device-independent pixels

} // namespace

LedDigitsWidget::LedDigitsWidget(QWidget *parent) : PanelPart(parent) { setAttribute(Qt::WA_OpaquePaintEvent); }

void LedDigitsWidget::setDigit(std::size_t index, int value) {
    if (digits_[index] == value) return;
    digits_[index] = value;
    update(digitArea(index).toAlignedRect());
    announceValue();
}

QString LedDigitsWidget::shownValue() const {
    QString text;
    for (std::size_t i = 0; i < kDigits; ++i) {
        if (i > 0 && i % 2 == 0) text += u':';
        text += QChar(u'0' + digits_[i]);
    }
    return text;
}

QSize LedDigitsWidget::sizeHint() const { return QSizeF(kDigits * kDigitWidth + 2 * kColonWidth, kHeight).toSize(); }

QRectF LedDigitsWidget::digitArea(std::size_t index) const {
    return {double(index) * kDigitWidth + double(index / 2) * kColonWidth, 0, kDigitWidth, kHeight};
}

QRectF LedDigitsWidget::colonArea(std::size_t pair) const {
    return {double(pair + 1) * 2 * kDigitWidth + double(pair) * kColonWidth, 0, kColonWidth, kHeight};
}

void LedDigitsWidget::paintEvent(QPaintEvent *event) {
    QPainter painter(this);
    painter.fillRect(event->rect(), theme::kGlass);
    const QRectF due(event->rect());
    for (std::size_t i = 0; i < kDigits; ++i)
        if (digitArea(i).intersects(due)) paintDigit(painter, digitArea(i), digits_[i]);
    for (const std::size_t pair : {0u, 1u})
        if (colonArea(pair).intersects(due)) paintColon(painter, colonArea(pair));
}

} // namespace tonvale
