// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/PanelStyle.h"

#include "ui/theme.h"

#include <QIcon>
#include <QIconEngine>
#include <QPainter>

#include <memory>

namespace tonvale {

namespace {

// "More": two angles that point to the right.
class MoreSign : public QIconEngine {
public:
    void paint(QPainter *painter, const QRect &area, QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        const QRectF box =
            QRectF(area).adjusted(area.width() * 0.2, area.height() * 0.25, -area.width() * 0.2, -area.height() * 0.25);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(theme::kText, area.width() / 10.0));
        for (const double left : {box.left(), box.center().x()}) {
            const double right = left + box.width() / 2;
            const QPointF angle[] = {{left, box.top()}, {right, box.center().y()}, {left, box.bottom()}};
            painter->drawPolyline(angle, 3);
        }
        painter->restore();
    }
    [[nodiscard]] QIconEngine *clone() const override { return std::make_unique<MoreSign>().release(); }
};

} // namespace

PanelStyle::PanelStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

QIcon PanelStyle::standardIcon(StandardPixmap picture, const QStyleOption *option, const QWidget *widget) const {
    if (picture == SP_ToolBarHorizontalExtensionButton) return QIcon(std::make_unique<MoreSign>().release());
    return QProxyStyle::standardIcon(picture, option, widget);
}

} // namespace tonvale
