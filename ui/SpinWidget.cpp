// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/SpinWidget.h"

#include "ui/children.h"
#include "ui/seven_segment.h"
#include "ui/theme.h"

#include <QMouseEvent>
#include <QPainter>

namespace tonvale {

namespace {

constexpr int kDigits = 3;
constexpr double kKeyWidth = 26, kBorder = 3; // device-independent pixels
constexpr int kHoldDelay = 350, kRepeat = 40; // milliseconds

} // namespace

class SpinWidget::Face : public QWidget {
public:
    explicit Face(SpinWidget &spin) : QWidget(&spin), spin_(spin) {}

protected:
    void paintEvent(QPaintEvent * /*event*/) override {
        QPainter painter(this);
        theme::paintGlass(painter, rect());
        const QString digits = QString::number(spin_.value()).rightJustified(kDigits);
        const double wide = (width() - 2 * kBorder) / kDigits;
        for (int i = 0; i < kDigits; ++i)
            paintDigit(painter, {kBorder + i * wide, kBorder, wide, height() - 2 * kBorder}, digits[i].digitValue());
    }

private:
    SpinWidget &spin_;
};

SpinWidget::SpinWidget(QWidget *parent) : QAbstractSlider(parent), face_(&makeChild<Face>(*this)) {
    setOrientation(Qt::Vertical);
    setFocusPolicy(Qt::StrongFocus);
}

QRectF SpinWidget::key(SliderAction action) const {
    const double half = height() / 2.0;
    return {width() - kKeyWidth, action == SliderSingleStepAdd ? 0 : half, kKeyWidth, half};
}

void SpinWidget::resizeEvent(QResizeEvent *event) {
    QAbstractSlider::resizeEvent(event);
    face_->setGeometry(0, 0, width() - static_cast<int>(kKeyWidth) - 2, height());
}

void SpinWidget::press(SliderAction action) {
    pressed_ = action;
    if (action == SliderNoAction) {
        setRepeatAction(SliderNoAction);
    } else {
        triggerAction(action);
        setRepeatAction(action, kHoldDelay, kRepeat);
    }
    update();
}

void SpinWidget::mousePressEvent(QMouseEvent *event) {
    if (event->button() != Qt::LeftButton) return event->ignore();
    for (const SliderAction action : {SliderSingleStepAdd, SliderSingleStepSub})
        if (key(action).contains(event->position())) return press(action);
    event->ignore();
}

void SpinWidget::mouseReleaseEvent(QMouseEvent *event) {
    if (event->button() != Qt::LeftButton || pressed_ == SliderNoAction) return event->ignore();
    press(SliderNoAction);
}

void SpinWidget::sliderChange(SliderChange change) {
    QAbstractSlider::sliderChange(change);
    face_->update();
}

void SpinWidget::focusInEvent(QFocusEvent *event) {
    QAbstractSlider::focusInEvent(event);
    update();
}

void SpinWidget::focusOutEvent(QFocusEvent *event) {
    QAbstractSlider::focusOutEvent(event);
    press(SliderNoAction);
}

void SpinWidget::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    for (const SliderAction action : {SliderSingleStepAdd, SliderSingleStepSub}) {
        const QRectF area = key(action);
        theme::paintKey(painter, area, pressed_ == action, false);
        const QPointF centre = area.center();
        const double tip = action == SliderSingleStepAdd ? -3 : 3;
        painter.setPen(Qt::NoPen);
        painter.setBrush(isEnabled() ? theme::kText : theme::kPanelEdge);
        painter.drawPolygon(QPolygonF{
            {centre.x() - 5, centre.y() - tip}, {centre.x() + 5, centre.y() - tip}, {centre.x(), centre.y() + tip}});
    }
    if (hasFocus()) theme::paintFocus(painter, QRectF(width() - kKeyWidth, 0, kKeyWidth, height()));
}

} // namespace tonvale
