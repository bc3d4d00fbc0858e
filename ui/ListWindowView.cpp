// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/ListWindowView.h"

#include "ui/ListBoxView.h"
#include "ui/NameDisplay.h"
#include "ui/PanelSurface.h"
#include "ui/SliderWidget.h"
#include "ui/TiledSurface.h"
#include "ui/ToolbarView.h"
#include "ui/children.h"
#include "ui/menus.h"
#include "ui/text.h"
#include "ui/theme.h"
#include "ui/units.h"

#include <QAction>
#include <QFrame>
#include <QLabel>
#include <QMenuBar>
#include <QTimer>

#include <algorithm>

namespace tonvale {

namespace {

constexpr int kMenuHeight = 21; // device-independent pixels
constexpr int kPrintSize = 13, kGlassPadding = 8;

// A line of text on black glass.
class GlassLine : public GlassSurface {
public:
    explicit GlassLine(QWidget *parent) : GlassSurface(parent), text_(makeChild<NameDisplay>(*this)) {}
    [[nodiscard]] NameDisplay &text() { return text_; }

protected:
    void resizeEvent(QResizeEvent * /*event*/) override {
        text_.setGeometry(rect().adjusted(kGlassPadding, 0, -kGlassPadding, 0));
    }

private:
    NameDisplay &text_;
};

} // namespace

ListWindowView::ListWindowView(PlaylistWindow &model) : FormWindow(model, kMenuHeight), model_(model) {
    surface_ = &makeChild<TiledSurface>(*this);
    buildMenuBar();
    buildParts();
    keepFocus();
    bindWindow();
    list_->setFocus();
}

ListWindowView::~ListWindowView() = default;

void ListWindowView::buildMenuBar() {
    bar_ = &makeChild<QMenuBar>(*this);
    bar_->setNativeMenuBar(false);
    bindMenuBar(bindings(), *bar_, model_.menuBar());
    leaveMuteToTheHook();
}

// The keyboard hook hears this key here as well, and muting twice would be muting not at all. The
// menu goes on to show it.
void ListWindowView::leaveMuteToTheHook() {
    const QKeySequence mute(shown(model_.MuteMenu.Shortcut), QKeySequence::PortableText);
    for (QAction *action : bar_->findChildren<QAction *>())
        if (action->shortcut() == mute) action->setShortcutContext(Qt::WidgetShortcut);
}

void ListWindowView::buildParts() {
    place(makeChild<ToolbarView>(*surface_, model_.Toolbar1, bindings()), model_.Toolbar1);
    buildVolume();
    auto &line = makeChild<QFrame>(*surface_);
    line.setFrameStyle(QFrame::HLine | QFrame::Sunken);
    place(line, model_.Picture2);
    list_ = &makeChild<ListBoxView>(*surface_, model_.List1);
    list_->setObjectName(QStringLiteral("List1"));
    place(*list_, model_.List1);
    bindings().keep(Connection([list = list_] { list->release(); }));
    buildStatus();
}

void ListWindowView::buildVolume() {
    auto &slider = makeChild<SliderWidget>(*surface_, SliderWidget::Light::FromStart);
    slider.setObjectName(QStringLiteral("Slider1"));
    bind(bindings(), slider, model_.Slider1);
    place(slider, model_.Slider1);
    auto &value = makeChild<QLabel>(*surface_);
    value.setObjectName(QStringLiteral("Label1"));
    value.setTextFormat(Qt::PlainText);
    value.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    value.setFont(theme::printFont(font(), kPrintSize));
    bind(bindings(), value, model_.Label1);
    place(value, model_.Label1);
}

void ListWindowView::buildStatus() {
    auto &status = makeChild<GlassLine>(*surface_);
    status.text().setObjectName(QStringLiteral("Label2"));
    place(status, model_.Label2);
    bindings().follow(model_.Label2.Caption, [this, &status] { status.text().setText(shown(model_.Label2.Caption)); });
}

void ListWindowView::place(QWidget &widget, Control &part) {
    const auto apply = [&widget, &part] {
        widget.setGeometry(toPixels(part.Left), toPixels(part.Top), toPixels(part.Width), toPixels(part.Height));
    };
    for (Property<double> *side : {&part.Left, &part.Top, &part.Width, &part.Height})
        bindings().keep(side->onChange(apply));
    apply();
}

// The keyboard stays where it was when the window is disabled between two items.
void ListWindowView::keepFocus() {
    bindings().keep(model_.Enabled.onChange([this] {
        if (!model_.Enabled) {
            focus_ = focusWidget();
            return;
        }
        QTimer::singleShot(0, this, [this] {
            if (focus_ && focusWidget() == nullptr) focus_->setFocus();
        });
    }));
}

void ListWindowView::resizeEvent(QResizeEvent *event) {
    FormWindow::resizeEvent(event);
    bar_->setGeometry(0, 0, width(), kMenuHeight);
    surface_->setGeometry(0, kMenuHeight, width(), std::max(0, height() - kMenuHeight));
}

} // namespace tonvale
