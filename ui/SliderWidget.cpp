// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/SliderWidget.h"

#include "ui/theme.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tonvale {

namespace {

constexpr double kThumbWidth = 16, kThumbHeight = 18, kGrooveHeight = 6; // device-independent pixels
constexpr double kMarkGap = 4;
constexpr int kMarks = 10;

} // namespace

SliderWidget::SliderWidget(QWidget *parent, Light light) : QAbstractSlider(parent), light_(light) {
    setOrientation(Qt::Horizontal);
    setFocusPolicy(Qt::StrongFocus);
}

QRectF SliderWidget::groove() const {
    return {kThumbWidth / 2 + 1, (height() - kGrooveHeight) / 2.0, width() - kThumbWidth - 2, kGrooveHeight};
}

double SliderWidget::thumbCentre() const {
    const double range = double(maximum()) - minimum();
    return groove().left() + (range > 0 ? (double(sliderPosition()) - minimum()) / range * groove().width() : 0);
}

int SliderWidget::valueAt(double x) const {
    const double share = std::clamp((x - groove().left()) / groove().width(), 0.0, 1.0);
    return static_cast<int>(std::lround(minimum() + share * (double(maximum()) - minimum())));
}

void SliderWidget::mousePressEvent(QMouseEvent *event) {
    if (event->button() != Qt::LeftButton || maximum() == minimum()) return event->ignore();
    grip_ = event->position().x() - thumbCentre();
    if (std::abs(grip_) > kThumbWidth / 2) {
        grip_ = 0;
        setValue(valueAt(event->position().x()));
    }
    setSliderDown(true);
    update();
}

void SliderWidget::mouseMoveEvent(QMouseEvent *event) {
    if (!isSliderDown()) return event->ignore();
    setSliderPosition(valueAt(event->position().x() - grip_));
}

void SliderWidget::mouseReleaseEvent(QMouseEvent *event) {
    if (event->button() != Qt::LeftButton || !isSliderDown()) return event->ignore();
    setSliderDown(false);
    update();
}

void SliderWidget::focusInEvent(QFocusEvent *event) {
    QAbstractSlider::focusInEvent(event);
    update();
}

void SliderWidget::focusOutEvent(QFocusEvent *event) {
    QAbstractSlider::focusOutEvent(event);
    update();
}

void SliderWidget::paintGroove(QPainter &painter) const {
    const QRectF slot = groove();
    painter.setPen(QPen(QColor(0xff, 0xff, 0xff, 40), 1));
    painter.setBrush(theme::kGlass);
    painter.drawRoundedRect(slot.adjusted(-1.5, -0.5, 1.5, 0.5), 3, 3);
    const double from = light_ == Light::FromStart ? slot.left() : slot.center().x();
    const double to = thumbCentre();
    painter.setPen(Qt::NoPen);
    if (isEnabled() && maximum() > minimum()) {
        painter.setBrush(theme::kLit);
        painter.drawRoundedRect(QRectF(std::min(from, to), slot.top() + 2, std::abs(to - from), slot.height() - 4), 1,
                                1);
    }
    for (int i = 0; i <= kMarks; ++i) {
        const bool strong = i == 0 || i == kMarks || i * 2 == kMarks;
        const QColor color = strong ? theme::kDisabledText : theme::kPanelEdge;
        painter.fillRect(
            QRectF(std::round(slot.left() + slot.width() * i / kMarks), std::round(slot.bottom() + kMarkGap), 1, 3),
            color);
    }
}

void SliderWidget::paintThumb(QPainter &painter) const {
    const double tall = std::min(kThumbHeight, height() - 4.0);
    const QRectF thumb(thumbCentre() - kThumbWidth / 2, (height() - tall) / 2, kThumbWidth, tall);
    theme::paintKey(painter, thumb, false, isSliderDown() || underMouse());
    painter.setPen(Qt::NoPen);
    painter.setBrush(isEnabled() ? theme::kLit : theme::kPanelEdge);
    painter.drawRect(QRectF(thumb.center().x() - 1, thumb.top() + 4, 2, thumb.height() - 8));
    if (hasFocus()) theme::paintFocus(painter, thumb);
}

void SliderWidget::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintGroove(painter);
    paintThumb(painter);
}

} // namespace tonvale
