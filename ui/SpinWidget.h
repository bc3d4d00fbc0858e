// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAbstractSlider>

namespace tonvale {

// A number in lit digits with a key for up and one for down; a key that is held repeats.
class SpinWidget : public QAbstractSlider {
public:
    explicit SpinWidget(QWidget *parent);
    // What shows the digits; the window can be dragged by it.
    [[nodiscard]] QWidget &face() { return *face_; }

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void sliderChange(SliderChange change) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    class Face;
    [[nodiscard]] QRectF key(SliderAction action) const;
    void press(SliderAction action);

    QWidget *face_; // a child
    SliderAction pressed_ = SliderNoAction;
};

} // namespace tonvale
