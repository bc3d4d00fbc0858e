// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QProxyStyle>

namespace tonvale {

// The toolkit's plain style, with check boxes of black glass, and menus that stand out of what is as dark as they are.
// The one picture that every menu bar asks for is drawn and not loaded: loading it would map all image plugins before
// the first window is on screen.
class PanelStyle : public QProxyStyle {
public:
    PanelStyle();

    int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override;
    QIcon standardIcon(StandardPixmap picture, const QStyleOption *option, const QWidget *widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override;
};

} // namespace tonvale
