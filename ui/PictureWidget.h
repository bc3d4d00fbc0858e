// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/MediaPlayer.h"
#include "ui/PictureCanvas.h"
#include "ui/bind.h"

#include <QTimer>
#include <QWidget>

namespace tonvale {

// The picture of a media player in its window, or over the whole screen. It is black until there is
// a film; what paints one is made at the first.
class PictureWidget final : public QWidget {
public:
    PictureWidget(QWidget &parent, MediaPlayer &player);

    // Its window has come to the front, which is behind a picture that covers the screen.
    void comeToFront();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void bindPlayer();
    void followFile();
    void followPlace();
    void arrangeSoon();
    void arrange();
    [[nodiscard]] bool wantsScreen() const;
    void coverScreen();
    void leaveScreen();
    void showPointer();
    void letGo();

    MediaPlayer *player_; // null once it has gone
    Bindings bindings_;
    std::unique_ptr<PictureCanvas> canvas_;
    QTimer arranging_, pointerRest_;
};

} // namespace tonvale
