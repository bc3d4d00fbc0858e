// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAbstractButton>

class QPainterPath;

namespace tonvale {

// A key of the panel with a drawn sign on it.
class TransportButton : public QAbstractButton {
public:
    enum class Sign { PlayNew, PlayCurrent, Pause, Stop, Mute, Delete, Help, Centre };

    TransportButton(QWidget *parent, Sign sign);

protected:
    void paintEvent(QPaintEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    Sign sign_;
};

} // namespace tonvale
