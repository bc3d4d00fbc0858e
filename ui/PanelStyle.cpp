// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/PanelStyle.h"

#include "ui/theme.h"

#include <QIcon>
#include <QIconEngine>
#include <QPainter>
#include <QStyleOption>

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

void paintCheckBox(QPainter &painter, const QStyleOption &option) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    const QRectF box = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(QPen(option.state.testFlag(QStyle::State_HasFocus) ? theme::kLit : theme::kDisabledSign, 1));
    painter.setBrush(theme::kGlass);
    painter.drawRoundedRect(box, 2.5, 2.5);
    painter.setPen(QPen(enabled ? theme::kLit : theme::kDisabledSign, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const auto at = [&](double x, double y) {
        return QPointF(box.left() + x * box.width(), box.top() + y * box.height());
    };
    if (option.state.testFlag(QStyle::State_On)) {
        const QPointF mark[] = {at(0.22, 0.52), at(0.42, 0.72), at(0.78, 0.28)};
        painter.drawPolyline(mark, 3);
    } else if (option.state.testFlag(QStyle::State_NoChange)) {
        painter.drawLine(at(0.28, 0.5), at(0.72, 0.5));
    }
    painter.restore();
}

} // namespace

PanelStyle::PanelStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void PanelStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                               const QWidget *widget) const {
    if (element == PE_IndicatorCheckBox)
        paintCheckBox(*painter, *option);
    else
        QProxyStyle::drawPrimitive(element, option, painter, widget);
}

QIcon PanelStyle::standardIcon(StandardPixmap picture, const QStyleOption *option, const QWidget *widget) const {
    if (picture == SP_ToolBarHorizontalExtensionButton) return QIcon(std::make_unique<MoreSign>().release());
    return QProxyStyle::standardIcon(picture, option, widget);
}

} // namespace tonvale
