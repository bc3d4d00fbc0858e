// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/FormWindow.h"

class QAbstractButton;

namespace tonvale {

// A window that is laid out by the toolkit on a brushed front, and as large as its parts need it.
class DialogView : public FormWindow {
public:
    explicit DialogView(Form &form) : FormWindow(form, 0), model_(form) {}

protected:
    // To be called before the window is shown: it stays before the window that is in use now, even
    // where that one covers the screen.
    void stayBeforeActiveWindow();
    // To be called when all parts are in the layout: makes the form as large as they need it, and
    // shows it.
    void finish();
    // A key with the caption of the model.
    QAbstractButton &addKey(CommandButton &button, const char *name);

    void paintEvent(QPaintEvent *event) override;

private:
    Form &model_;
};

} // namespace tonvale
