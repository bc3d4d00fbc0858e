// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Toolbar.h"
#include "ui/bind.h"

#include <QWidget>

#include <vector>

namespace tonvale {

// Shows a toolbar: a row of keys, each with its sign and caption. The keys share the width, so that
// all of them are seen at the window's least size.
class ToolbarView : public QWidget {
public:
    ToolbarView(QWidget *parent, Toolbar &toolbar, Bindings &bindings);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    struct Part {
        QWidget *key; // null: a gap
        int width;    // as it needs it
    };
    void addKey(ToolbarButton &button, Bindings &bindings);

    Toolbar &toolbar_;
    std::vector<Part> parts_;
};

} // namespace tonvale
