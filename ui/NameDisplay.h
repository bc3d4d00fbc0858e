// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/PanelPart.h"

namespace tonvale {

// One line of text behind the glass, cut where it does not fit; then it is a hint, too.
class NameDisplay : public PanelPart {
public:
    using PanelPart::PanelPart;
    void setText(const QString &text);
    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::StaticText; }
    [[nodiscard]] QString shownValue() const override { return text_; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString text_;
};

} // namespace tonvale
