// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAccessible>
#include <QWidget>

namespace tonvale {

// A part of the panel that shows something and takes no input. What it shows is told to assistive
// programs, too.
class PanelPart : public QWidget {
public:
    using QWidget::QWidget;
    [[nodiscard]] virtual QAccessible::Role accessibleRole() const { return QAccessible::Indicator; }
    [[nodiscard]] virtual QString shownValue() const = 0;

protected:
    // To be called when the value has changed.
    void announceValue();
};

// Makes the parts known to assistive programs; they ask only when they run.
void installPanelAccessibility();

} // namespace tonvale
