// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/PanelPart.h"

namespace tonvale {

// The program's emblem as a picture in a window.
class EmblemWidget : public PanelPart {
public:
    EmblemWidget(QWidget *parent, int size);
    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::Graphic; }
    [[nodiscard]] QString shownValue() const override { return {}; }

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace tonvale
