// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAbstractButton>

namespace tonvale {

// A button that paints itself: takes the focus, is pressed by Return as well as by Space, and is
// painted anew as the pointer comes and goes.
class PanelButton : public QAbstractButton {
public:
    explicit PanelButton(QWidget *parent);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
};

} // namespace tonvale
