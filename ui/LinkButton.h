// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/PanelButton.h"

namespace tonvale {

// A text that is clicked like a link.
class LinkButton : public PanelButton {
public:
    explicit LinkButton(QWidget *parent);
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace tonvale
