// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/qt/owner_window.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <memory>

namespace tonvale {

namespace {

QWidget *ownerWindow() {
    if (QWidget *active = QApplication::activeWindow()) return active;
    for (QWidget *widget : QApplication::topLevelWidgets())
        if (widget->isVisible() && widget->windowType() == Qt::Window) return widget;
    return nullptr;
}

// A dialog finds its size as it is shown, so it is placed with every size until it is on screen.
class Placer : public QObject {
public:
    Placer(QDialog &dialog, const QWidget *owner)
        : QObject(&dialog), dialog_(dialog), screen_(owner != nullptr ? owner->screen() : dialog.screen()),
          middle_(owner != nullptr ? owner->frameGeometry().center() : screen_->availableGeometry().center()) {}

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override {
        if (event->type() == QEvent::Expose || event->type() == QEvent::Paint) dialog_.removeEventFilter(this);
        if (event->type() == QEvent::Resize || event->type() == QEvent::Show) place();
        return false;
    }

private:
    void place() {
        const QRect area = screen_->availableGeometry();
        const QPoint corner = middle_ - dialog_.rect().center();
        const int right = std::max(area.left(), area.right() - dialog_.width());
        const int bottom = std::max(area.top(), area.bottom() - dialog_.height());
        dialog_.move(std::clamp(corner.x(), area.left(), right), std::clamp(corner.y(), area.top(), bottom));
    }

    QDialog &dialog_;
    const QScreen *screen_;
    const QPoint middle_;
};

} // namespace

void placeAboveActiveWindow(QDialog &dialog) {
    const QWidget *owner = ownerWindow();
    // Nothing to minimize: it would leave the window it stands above blocked for no visible reason.
    dialog.setWindowFlags((dialog.windowFlags() & Qt::WindowStaysOnTopHint) | Qt::Dialog | Qt::CustomizeWindowHint |
                          Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
    dialog.winId(); // makes the window handle
    if (owner != nullptr && owner->windowHandle() != nullptr)
        dialog.windowHandle()->setTransientParent(owner->windowHandle());
    dialog.installEventFilter(std::make_unique<Placer>(dialog, owner).release()); // the dialog owns it
}

} // namespace tonvale
