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

// Between two groups of a menu's entries.
void paintMenuLine(QPainter &painter, const QRect &area) {
    constexpr int kInset = 8;
    painter.fillRect(QRect(area.left() + kInset, area.center().y(), area.width() - 2 * kInset, 1), theme::kPanelEdge);
}

void paintMenuEdge(QPainter &painter, const QRect &area) {
    painter.save();
    painter.setPen(theme::kPanelEdge);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(area.adjusted(0, 0, -1, -1));
    painter.restore();
}

bool isMenuLine(const QStyleOption &option) {
    const auto *entry = qstyleoption_cast<const QStyleOptionMenuItem *>(&option);
    return entry != nullptr && entry->menuItemType == QStyleOptionMenuItem::Separator && entry->text.isEmpty();
}

} // namespace

PanelStyle::PanelStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void PanelStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                               const QWidget *widget) const {
    if (element == PE_IndicatorCheckBox)
        paintCheckBox(*painter, *option);
    else if (element == PE_FrameMenu)
        paintMenuEdge(*painter, option->rect);
    else
        QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void PanelStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                             const QWidget *widget) const {
    if (element == CE_MenuItem && isMenuLine(*option))
        paintMenuLine(*painter, option->rect);
    else
        QProxyStyle::drawControl(element, option, painter, widget);
}

int PanelStyle::pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const {
    return metric == PM_MenuPanelWidth ? 1 : QProxyStyle::pixelMetric(metric, option, widget);
}

QIcon PanelStyle::standardIcon(StandardPixmap picture, const QStyleOption *option, const QWidget *widget) const {
    if (picture == SP_ToolBarHorizontalExtensionButton) return QIcon(std::make_unique<MoreSign>().release());
    return QProxyStyle::standardIcon(picture, option, widget);
}

} // namespace tonvale
