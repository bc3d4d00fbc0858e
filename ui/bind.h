// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Controls.h"
#include "controls/Form.h"

#include <QMetaObject>

#include <memory>
#include <utility>
#include <vector>

class QAbstractButton;
class QAbstractSlider;
class QAction;
class QLabel;
class QObject;
class QWidget;

namespace tonvale {

// The ties between models and the widgets that show them, in both directions. Ending them, at the
// latest by destruction, makes either side safe to outlive the other; whoever owns the widgets
// keeps the bindings beside them.
class Bindings {
public:
    Bindings() = default;
    ~Bindings() { end(); }
    Bindings(const Bindings &) = delete;
    Bindings &operator=(const Bindings &) = delete;

    void keep(Connection connection) { models_.push_back(std::move(connection)); }
    void keep(QMetaObject::Connection connection) { widgets_.push_back(std::move(connection)); }
    void keep(std::shared_ptr<QObject> filter) { filters_.push_back(std::move(filter)); }

    // Applies the value now and at each change.
    template <class Value, class Apply> void follow(Value &value, Apply apply) {
        apply();
        keep(value.onChange(std::move(apply)));
    }
    void end();

private:
    std::vector<Connection> models_;
    std::vector<QMetaObject::Connection> widgets_;
    std::vector<std::shared_ptr<QObject>> filters_;
};

// What every control has: whether it is enabled and visible, and its hint.
void bindControl(Bindings &bindings, QWidget &widget, Control &control);
void bind(Bindings &bindings, QLabel &widget, Label &label);
void bind(Bindings &bindings, QAbstractButton &widget, CommandButton &button);
void bind(Bindings &bindings, QAbstractSlider &widget, LedSpin &spin);
void bind(Bindings &bindings, QAbstractSlider &widget, Slider &slider);
void bind(Bindings &bindings, QAction &action, MenuEntry &entry);

// Hands what the mouse does on the widget to a part by which the window is dragged.
void bindDragging(Bindings &bindings, QWidget &widget, MouseEvents &part, Form &form);

} // namespace tonvale
