// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/bind.h"

#include <QWidget>

namespace tonvale {

// A window on the desktop that shows a Form: its place, size, state and caption, both ways.
class FormWindow : public QWidget {
public:
    // `menuHeight` is what a menu bar takes of the inside, in pixels.
    FormWindow(Form &form, int menuHeight);

    // Lets go of the form, which may be gone soon, and of the window once its events are done.
    void release();

protected:
    // To be called when all parts are there: from here on the window follows the form.
    void bindWindow();
    [[nodiscard]] Bindings &bindings() { return bindings_; }

    void closeEvent(QCloseEvent *event) override;
    void moveEvent(QMoveEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void followSize();
    void followPlace();
    [[nodiscard]] QPoint reachable(QPoint place) const;
    void followState();
    void followTopmost();
    void followVisible();
    void comeOnScreen();
    void tellPlace();

    Form *form_; // null once released
    int menuHeight_;
    bool telling_ = false; // the form is being told where the window is
    Bindings bindings_;
};

} // namespace tonvale
