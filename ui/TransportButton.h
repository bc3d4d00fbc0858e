// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/PanelButton.h"

class QPainterPath;

namespace tonvale {

// A key of the panel with a drawn sign on it.
class TransportButton : public PanelButton {
public:
    enum class Sign { PlayNew, PlayCurrent, Pause, Stop, Mute, Delete, Help, Centre };

    TransportButton(QWidget *parent, Sign sign);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Sign sign_;
};

} // namespace tonvale
