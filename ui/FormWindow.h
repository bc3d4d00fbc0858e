// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/bind.h"

#include <QWidget>

#include <functional>
#include <map>

class QMenu;

namespace tonvale {

// A window on the desktop that shows a Form: its place, size, state and caption, both ways, and
// what the keyboard, the mouse and the file managers do to it.
class FormWindow : public QWidget {
public:
    // `menuHeight` is what a menu bar takes of the inside, in pixels.
    FormWindow(Form &form, int menuHeight);

    // Lets go of the form, which may be gone soon, and of the window once its events are done.
    void release();

    // Where its form would hide it, the window stays as a minimized one, and `onRestored` is told when
    // the user gets it back. An empty function ends this.
    void hideAsMinimized(std::function<void()> onRestored);

protected:
    // To be called when all parts are there: from here on the window follows the form.
    void bindWindow();
    [[nodiscard]] Bindings &bindings() { return bindings_; }

    void closeEvent(QCloseEvent *event) override;
    void moveEvent(QMoveEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void bindShape();
    void bindCommands();
    void followSize();
    void followPlace();
    void followState();
    void followTopmost();
    void followVisible();
    void prepareFirstShow();
    void comeOnScreen();
    void popUp(MenuEntry &menu);
    void tellPlace();
    void tellSize();
    void tellState();
    [[nodiscard]] bool isPlaced() const;
    [[nodiscard]] bool isSizable() const;
    [[nodiscard]] bool coversScreen() const;
    [[nodiscard]] int titleHeight() const;

    Form *form_; // null once released
    int menuHeight_;
    bool telling_ = false; // the form is being told where the window is, or how large
    bool prepared_ = false;
    std::function<void()> onRestored_;            // hides as a minimized window while there is one
    std::map<const MenuEntry *, QMenu *> popUps_; // children
    Bindings bindings_;
};

} // namespace tonvale
