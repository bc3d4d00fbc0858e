// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Controls.h"
#include "controls/Form.h"

#include <QObject>

class QMouseEvent;
class QWidget;

namespace tonvale {

// Turns what the mouse does on a widget into the mouse events of a model.
class DragFilter : public QObject {
public:
    DragFilter(MouseEvents &part, Form &form) : part_(part), form_(form) {}

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool press(QWidget &widget, const QMouseEvent &event);
    void raise(const Event<double, double> &event, const QMouseEvent &mouse) const;

    MouseEvents &part_;
    Form &form_;
};

} // namespace tonvale
