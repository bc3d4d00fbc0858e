// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/AboutView.h"

#include "ui/EmblemWidget.h"
#include "ui/KeyButton.h"
#include "ui/LinkButton.h"
#include "ui/PanelSurface.h"
#include "ui/children.h"
#include "ui/text.h"
#include "ui/theme.h"
#include "ui/units.h"

#include <QLabel>
#include <QPainter>

#include <cmath>

namespace tonvale {

namespace {

// In device-independent pixels.
constexpr QRect kPlateArea(20, 20, 340, 156), kKeyArea(264, 190, 96, 32);
constexpr int kEmblemSize = 76;
constexpr QPoint kEmblemPlace(20, 20), kMailPlace(16, 104), kWebPlace(16, 126);
constexpr QRect kNameArea(114, 20, 210, 54), kVersionArea(116, 78, 200, 18);
constexpr int kMakerSize = 12, kNameSize = 32, kPrintSize = 13;
constexpr int kHolePitch = 8; // a part of the tile's size, so that tiles join without a seam

// The name of the program, as it is printed on its front.
class NamePlate : public PanelPart {
public:
    using PanelPart::PanelPart;
    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::Graphic; }
    [[nodiscard]] QString shownValue() const override { return {}; }

protected:
    void paintEvent(QPaintEvent * /*event*/) override {
        QPainter painter(this);
        QFont maker = theme::printFont(font(), kMakerSize);
        maker.setLetterSpacing(QFont::AbsoluteSpacing, 5);
        painter.setFont(maker);
        painter.setPen(theme::kGlassText);
        painter.drawText(QRect(2, 0, width(), 16), Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("ORVANE"));
        QFont name = theme::printFont(font(), kNameSize);
        name.setLetterSpacing(QFont::AbsoluteSpacing, 1);
        painter.setFont(name);
        painter.setPen(theme::kText);
        painter.drawText(QRect(0, 14, width(), height() - 14), Qt::AlignLeft | Qt::AlignVCenter,
                         QStringLiteral("Tonvale"));
    }
};

// A piece of a loudspeaker's grille.
void paintGrille(QPainter &painter, QSize size) {
    painter.fillRect(QRect(QPoint(), size), theme::kPanel);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    constexpr double kRadius = 2.1, kHalf = kHolePitch / 2.0;
    for (double y = kHalf / 2; y < size.height(); y += kHalf) {
        const bool between = std::lround(y / kHalf - 0.5) % 2 != 0;
        for (double x = between ? kHalf * 1.5 : kHalf / 2; x < size.width(); x += kHolePitch) {
            painter.setBrush(QColor(255, 255, 255, 26));
            painter.drawEllipse(QPointF(x, y + 0.7), kRadius, kRadius);
            painter.setBrush(theme::kPanelDark.darker(140));
            painter.drawEllipse(QPointF(x, y), kRadius, kRadius);
        }
    }
}

} // namespace

AboutView::AboutView(frmAbout &form) : FormWindow(form, 0), model_(form) {
    bindDragging(bindings(), *this, model_, model_);
    auto &plate = makeChild<GlassSurface>(*this);
    plate.setGeometry(kPlateArea);
    buildPlate(plate);
    auto &okay = makeChild<KeyButton>(*this);
    okay.setObjectName(QStringLiteral("Command1"));
    okay.setGeometry(kKeyArea);
    bindings().follow(model_.Command1.Caption, [this, &okay] { okay.setText(shown(model_.Command1.Caption)); });
    bind(bindings(), okay, model_.Command1);
    okay.setFocus();
    bindWindow();
}

void AboutView::buildPlate(QWidget &plate) {
    auto &emblem = makeChild<EmblemWidget>(plate, kEmblemSize);
    emblem.move(kEmblemPlace);
    bindControl(bindings(), emblem, model_.Image1);
    bindDragging(bindings(), emblem, model_.Image1, model_);
    auto &name = makeChild<NamePlate>(plate);
    name.setAccessibleName(QStringLiteral("Orvane Tonvale"));
    name.setGeometry(kNameArea);
    bindControl(bindings(), name, model_.Image2);
    bindDragging(bindings(), name, model_.Image2, model_);
    auto &version = makeChild<QLabel>(plate);
    version.setTextFormat(Qt::PlainText);
    version.setFont(theme::printFont(font(), kPrintSize));
    version.setGeometry(kVersionArea);
    bind(bindings(), version, model_.Label1);
    bindDragging(bindings(), version, model_.Label1, model_);
    addLink(plate, model_.Label2, "Label2", kMailPlace);
    addLink(plate, model_.Label3, "Label3", kWebPlace);
}

void AboutView::addLink(QWidget &plate, Label &label, const char *name, QPoint place) {
    auto &link = makeChild<LinkButton>(plate);
    link.setObjectName(QLatin1String(name));
    link.setFont(theme::printFont(font(), kPrintSize));
    link.move(place);
    bindings().follow(label.Caption, [&link, &label] {
        link.setText(shown(label.Caption));
        link.adjustSize();
    });
    bindings().keep(QObject::connect(&link, &LinkButton::clicked, &link, [&label] { label.Click(); }));
    bindControl(bindings(), link, label);
}

const QPixmap &AboutView::tile() {
    const QSize size(toPixels(model_.picTilePic.Width), toPixels(model_.picTilePic.Height));
    const double scale = devicePixelRatioF();
    if (tile_.isNull() || tile_.devicePixelRatio() != scale) {
        tile_ = QPixmap(size * scale);
        tile_.setDevicePixelRatio(scale);
        QPainter painter(&tile_);
        paintGrille(painter, size);
    }
    return tile_;
}

void AboutView::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    const double scale = devicePixelRatioF();
    for (const PixelRect &copy : model_.Form_Paint())
        painter.drawPixmap(QRectF(copy.x, copy.y, copy.width, copy.height), tile(),
                           QRectF(0, 0, copy.width * scale, copy.height * scale));
    painter.setPen(theme::kPanelEdge);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

} // namespace tonvale
