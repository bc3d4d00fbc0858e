// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/bind.h"

#include "ui/DragFilter.h"
#include "ui/text.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QAction>
#include <QEvent>
#include <QKeySequence>
#include <QLabel>
#include <QSignalBlocker>

#include <algorithm>

namespace tonvale {

namespace {

constexpr int kStepsPerPage = 10;

// Tells a button's model that the mouse, or the keyboard, has come to it, so that it can choose its hint.
class HoverFilter : public QObject {
public:
    explicit HoverFilter(CommandButton &button) : button_(button) {}

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override {
        const auto type = event->type();
        const bool pointedAt = type == QEvent::Enter || type == QEvent::FocusIn || type == QEvent::ToolTip;
        if (pointedAt) button_.MouseMove();
        return false;
    }

private:
    CommandButton &button_;
};

// Hints may hold a mnemonic's "&", which a screen reader should not spell out.
QString spoken(const std::string &hint) { return shown(hint).remove(u'&'); }

// The start of a long path, and more of its end, where the name is.
QString shortened(const QString &text) {
    constexpr qsizetype kStart = 30, kEnd = 60;
    return text.size() > kStart + kEnd ? text.left(kStart) + QChar(0x2026) + text.right(kEnd) : text;
}

// A caption as a menu reads it: on one line, a shortcut behind a tab. A name in it may hold more
// than the one "&" that stands before the mnemonic.
QString menuText(const std::string &caption) {
    const QString text = shortened(shown(caption));
    QString result;
    bool hasMnemonic = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c != u'&') {
            result += c != u'\t' && c.category() == QChar::Other_Control ? QChar(u' ') : c;
        } else if (!hasMnemonic && i + 1 < text.size() && text[i + 1] != u'&') {
            hasMnemonic = true;
            result += c;
        } else {
            result += QLatin1String("&&");
            if (i + 1 < text.size() && text[i + 1] == u'&') ++i;
        }
    }
    return result;
}

void showValue(QAbstractSlider &widget, const RangedControl &control) {
    // What the model says need not be told back to it.
    const QSignalBlocker blocker(widget);
    widget.setRange(control.Min, control.Max);
    widget.setValue(control.Value());
}

void bindRange(Bindings &bindings, QAbstractSlider &widget, RangedControl &control) {
    const auto apply = [&widget, &control] { showValue(widget, control); };
    apply();
    bindings.keep(control.Min.onChange(apply));
    bindings.keep(control.Max.onChange(apply));
    bindings.keep(control.onValueChange(apply));
    bindControl(bindings, widget, control);
}

} // namespace

void Bindings::end() {
    models_.clear();
    for (const QMetaObject::Connection &connection : std::exchange(widgets_, {})) QObject::disconnect(connection);
    filters_.clear();
}

void bindControl(Bindings &bindings, QWidget &widget, Control &control) {
    bindings.follow(control.Enabled, [&] { widget.setEnabled(control.Enabled); });
    bindings.follow(control.Visible, [&] { widget.setVisible(control.Visible); });
    bindings.follow(control.ToolTipText, [&] {
        if (control.ToolTipText.get().empty()) return;
        widget.setToolTip(shown(control.ToolTipText));
        widget.setAccessibleName(spoken(control.ToolTipText));
    });
}

void bind(Bindings &bindings, QLabel &widget, Label &label) {
    bindings.follow(label.Caption, [&] { widget.setText(shown(label.Caption)); });
    bindControl(bindings, widget, label);
}

void bind(Bindings &bindings, QAbstractButton &widget, CommandButton &button) {
    bindings.keep(QObject::connect(&widget, &QAbstractButton::clicked, &widget, [&button] { button.Click(); }));
    const auto filter = std::make_shared<HoverFilter>(button);
    widget.installEventFilter(filter.get());
    bindings.keep(filter);
    button.MouseMove(); // a hint that depends on the state is there before the mouse is
    bindControl(bindings, widget, button);
}

void bind(Bindings &bindings, QAbstractSlider &widget, LedSpin &spin) {
    widget.setSingleStep(spin.Step);
    widget.setPageStep(spin.Step * kStepsPerPage);
    bindRange(bindings, widget, spin);
    bindings.keep(
        QObject::connect(&widget, &QAbstractSlider::valueChanged, &widget, [&spin](int value) { spin.Value(value); }));
}

void bind(Bindings &bindings, QAbstractSlider &widget, Slider &slider) {
    widget.setSingleStep(std::max(1, slider.LargeChange / kStepsPerPage));
    widget.setPageStep(slider.LargeChange);
    bindRange(bindings, widget, slider);
    bindings.keep(QObject::connect(&widget, &QAbstractSlider::valueChanged, &widget, [&](int value) {
        if (widget.isSliderDown())
            slider.scrollTo(value);
        else
            slider.Value(value);
    }));
}

void bind(Bindings &bindings, QAction &action, MenuEntry &entry) {
    const auto showChecked = [&] {
        action.setCheckable(entry.Checked);
        action.setChecked(entry.Checked);
    };
    bindings.follow(entry.Caption, [&] {
        const bool separates = entry.Caption == "-";
        action.setSeparator(separates);
        action.setText(separates ? QString() : menuText(entry.Caption));
    });
    bindings.follow(entry.Enabled, [&] {
        const bool hasAction = entry.Click || !entry.children.empty();
        action.setEnabled(entry.Enabled && hasAction);
    });
    bindings.follow(entry.Visible, [&] { action.setVisible(entry.Visible); });
    bindings.follow(entry.Checked, showChecked);
    if (!entry.Shortcut.empty()) action.setShortcut(QKeySequence(shown(entry.Shortcut), QKeySequence::PortableText));
    if (!entry.children.empty()) return;
    bindings.keep(QObject::connect(&action, &QAction::triggered, &action, [&entry, showChecked] {
        showChecked(); // the click has toggled the mark; only the model may
        entry.Click();
    }));
}

void bindDragging(Bindings &bindings, QWidget &widget, MouseEvents &part, Form &form) {
    const auto filter = std::make_shared<DragFilter>(part, form);
    widget.installEventFilter(filter.get());
    bindings.keep(filter);
}

} // namespace tonvale
