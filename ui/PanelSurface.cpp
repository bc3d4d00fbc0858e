// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/PanelSurface.h"

#include "ui/theme.h"

#include <QPainter>

namespace tonvale {

void PanelSurface::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    theme::paintBrushed(painter, rect());
}

void GlassSurface::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    theme::paintGlass(painter, rect());
}

} // namespace tonvale
