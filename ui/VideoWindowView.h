// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/FormWindow.h"
#include "viewers/frmVideoPlay.h"

namespace tonvale {

// A film on black, as large as the screen.
class VideoWindowView : public FormWindow {
public:
    explicit VideoWindowView(frmVideoPlay &form);

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace tonvale
