// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/PanelPart.h"

namespace tonvale {

// A bar of lit segments.
class GaugeWidget : public PanelPart {
public:
    // A level is told in colours, too; progress is not better or worse as it grows.
    enum class Shows { Level, Progress };
    explicit GaugeWidget(QWidget *parent, Shows shows = Shows::Level);
    void setPosition(int position); // 0 to 100
    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::ProgressBar; }
    [[nodiscard]] QString shownValue() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    [[nodiscard]] QRectF segment(int index) const;

    [[nodiscard]] QColor colorOf(int index) const;

    const Shows shows_;
    int position_ = 0, lit_ = 0;
};

} // namespace tonvale
