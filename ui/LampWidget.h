// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/PanelPart.h"

#include <QColor>

namespace tonvale {

class LampWidget : public PanelPart {
public:
    using PanelPart::PanelPart;
    void setColor(const QColor &color);
    [[nodiscard]] QString shownValue() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QColor color_{Qt::red};
};

} // namespace tonvale
