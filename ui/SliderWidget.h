// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAbstractSlider>

namespace tonvale {

// A horizontal fader. A click on its groove brings the thumb there and takes hold of it.
class SliderWidget : public QAbstractSlider {
public:
    enum class Light { FromStart, FromCentre };

    SliderWidget(QWidget *parent, Light light);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    [[nodiscard]] QRectF groove() const;
    [[nodiscard]] double thumbCentre() const;
    [[nodiscard]] int valueAt(double x) const;
    void paintGroove(QPainter &painter) const;
    void paintThumb(QPainter &painter) const;

    Light light_;
    double grip_ = 0; // from the thumb's centre to where the mouse holds it
};

} // namespace tonvale
