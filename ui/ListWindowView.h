// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "playlists/PlaylistWindow.h"
#include "ui/FormWindow.h"

#include <QPointer>

class QMenuBar;

namespace tonvale {

class ListBoxView;

// A window with a list of what is to be played. The model says where its parts lie.
class ListWindowView : public FormWindow {
public:
    explicit ListWindowView(PlaylistWindow &model);
    ~ListWindowView() override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void buildMenuBar();
    void leaveMuteToTheHook();
    void buildParts();
    void buildVolume();
    void buildStatus();
    void keepFocus();
    // The widget lies where the model's part does.
    void place(QWidget &widget, Control &part);

    PlaylistWindow &model_;
    QMenuBar *bar_ = nullptr;
    QWidget *surface_ = nullptr;
    ListBoxView *list_ = nullptr;
    QPointer<QWidget> focus_; // that had it when the window was disabled
};

} // namespace tonvale
