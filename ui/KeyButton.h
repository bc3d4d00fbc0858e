// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/PanelButton.h"

namespace tonvale {

// A key of the panel with a word on it.
class KeyButton : public PanelButton {
public:
    explicit KeyButton(QWidget *parent);
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace tonvale
