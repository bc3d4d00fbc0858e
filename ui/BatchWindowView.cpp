// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/BatchWindowView.h"

#include "ui/GaugeWidget.h"
#include "ui/ListBoxView.h"
#include "ui/PanelPart.h"
#include "ui/PanelSurface.h"
#include "ui/ToolbarView.h"
#include "ui/children.h"
#include "ui/menus.h"
#include "ui/text.h"
#include "ui/theme.h"
#include "ui/units.h"

#include <QGridLayout>
#include <QLabel>
#include <QMenuBar>
#include <QPainter>
#include <QTextOption>

namespace tonvale {

namespace {

// In device-independent pixels.
constexpr int kMenuHeight = 21, kToolbarHeight = 40;
constexpr int kMargin = 10, kGap = 8, kInset = 10;
constexpr int kPrintSize = 13, kStatusLines = 5;
constexpr int kGaugeHeight = 16;
constexpr int kLeastWidth = 400, kLeastHeight = 280;

// What the window has to say. A path breaks where it must, and of one that is longer than all lines
// the middle is left out.
class StatusText : public PanelPart {
public:
    explicit StatusText(QWidget *parent) : PanelPart(parent) {
        setFont(theme::printFont(font(), kPrintSize));
        setFixedHeight(kStatusLines * fontMetrics().lineSpacing());
    }
    void setText(const QString &text) {
        text_ = text;
        setAccessibleName(text);
        update();
        announceValue();
    }
    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::StaticText; }
    [[nodiscard]] QString shownValue() const override { return text_; }

protected:
    void paintEvent(QPaintEvent * /*event*/) override {
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        option.setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        QPainter painter(this);
        painter.setPen(theme::kGlassText);
        const bool fits = painter.boundingRect(QRectF(rect()), text_, option).height() <= height();
        if (!fits) option.setWrapMode(QTextOption::WrapAnywhere);
        painter.drawText(QRectF(rect()), fits ? text_ : shortened(), option);
    }

private:
    [[nodiscard]] QString shortened() const {
        // A little stays free at the end of each line.
        return fontMetrics().elidedText(text_, Qt::ElideMiddle, width() * kStatusLines * 9 / 10);
    }
    QString text_;
};

// The words beside the gauge are lit while it moves.
void light(QLabel &words, bool lit) {
    QPalette ink;
    ink.setColor(QPalette::WindowText, lit ? theme::kLit : theme::kDisabledText);
    words.setPalette(ink);
}

} // namespace

BatchWindowView::BatchWindowView(BatchWindow &model) : FormWindow(model, kMenuHeight), model_(model) {
    auto &all = makeChild<QVBoxLayout>(*this);
    all.setContentsMargins(0, 0, 0, 0);
    all.setSpacing(0);
    all.setMenuBar(&makeMenuBar());
    all.addWidget(&makeToolbar());
    all.addWidget(&makeFront(), 1);
    model_.MinWidth = toTwips(kLeastWidth);
    model_.MinHeight = toTwips(kLeastHeight);
    bindWindow();
    list_->setFocus();
}

QWidget &BatchWindowView::makeMenuBar() {
    auto &bar = makeChild<QMenuBar>(*this);
    bar.setNativeMenuBar(false);
    bar.setFixedHeight(kMenuHeight);
    bindMenuBar(bindings(), bar, model_.menuBar());
    return bar;
}

QWidget &BatchWindowView::makeToolbar() {
    auto &toolbar = makeChild<ToolbarView>(*this, model_.Toolbar1, bindings());
    toolbar.setFixedHeight(kToolbarHeight);
    return toolbar;
}

QWidget &BatchWindowView::makeFront() {
    auto &front = makeChild<PanelSurface>(*this);
    auto &grid = makeChild<QGridLayout>(front);
    grid.setContentsMargins(kMargin, kGap, kMargin, kMargin);
    grid.setSpacing(kGap);
    grid.setColumnStretch(1, 1);
    list_ = &makeChild<ListBoxView>(front, model_.List1);
    list_->setObjectName(QStringLiteral("List1"));
    list_->setAccessibleName(QStringLiteral("Files"));
    grid.addWidget(list_, 0, 0, 1, -1);
    addGauge(grid);
    grid.addWidget(&makeStatus(), 2, 0, 1, -1);
    return front;
}

void BatchWindowView::addGauge(QGridLayout &grid) {
    auto &words = makeChild<QLabel>(*this);
    words.setObjectName(QStringLiteral("Gauge.Caption"));
    words.setTextFormat(Qt::PlainText);
    words.setFont(theme::printFont(font(), kPrintSize));
    auto &bar = makeChild<GaugeWidget>(*this, GaugeWidget::Shows::Progress);
    bar.setObjectName(QStringLiteral("Gauge"));
    bar.setFixedHeight(kGaugeHeight);
    MMGaugeX &gauge = model_.Gauge;
    bindings().follow(gauge.Caption, [&words, &bar, &gauge] {
        words.setText(shown(gauge.Caption));
        bar.setAccessibleName(shown(gauge.Caption));
    });
    bindings().follow(gauge.Value, [&words, &bar, &gauge] {
        bar.setPosition(gauge.Value);
        light(words, gauge.Value > 0);
    });
    grid.addWidget(&words, 1, 0);
    grid.addWidget(&bar, 1, 1);
}

QWidget &BatchWindowView::makeStatus() {
    auto &glass = makeChild<GlassSurface>(*this);
    auto &inside = makeChild<QVBoxLayout>(glass);
    inside.setContentsMargins(kInset, kInset / 2, kInset, kInset / 2);
    auto &status = makeChild<StatusText>(glass);
    status.setObjectName(QStringLiteral("Label1"));
    bindings().follow(model_.Label1.Caption, [this, &status] { status.setText(shown(model_.Label1.Caption)); });
    inside.addWidget(&status);
    return glass;
}

} // namespace tonvale
