// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/PanelPart.h"

namespace tonvale {

// The printed scale beside the gauge.
class ScaleWidget : public PanelPart {
public:
    using PanelPart::PanelPart;
    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::Graphic; }
    [[nodiscard]] QString shownValue() const override { return {}; }

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace tonvale
