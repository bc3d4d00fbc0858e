// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/FormWindow.h"

#include "ui/text.h"
#include "ui/units.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QEventLoop>
#include <QGuiApplication>
#include <QScopedValueRollback>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include <algorithm>

namespace tonvale {

namespace {

// What the desktop's title bar counts for in a form's height; how high it really is, is up to the
// window manager.
constexpr int kNominalTitleHeight = 22;    // device-independent pixels
constexpr int kLongestWaitForScreen = 200; // milliseconds
constexpr int kLeastInReach = 240;         // device-independent pixels of the title

// Ends a loop as the window is exposed. The window itself gets the event afterwards and paints.
class ExposeWatcher : public QObject {
public:
    explicit ExposeWatcher(QEventLoop &loop) : loop_(loop) {}

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override {
        if (event->type() == QEvent::Expose) loop_.quit();
        return false;
    }

private:
    QEventLoop &loop_;
};

} // namespace

FormWindow::FormWindow(Form &form, int menuHeight) : form_(&form), menuHeight_(menuHeight) {
    setObjectName(QString::fromStdString(form.Name));
    // Its size is the form's to say, so there is nothing to maximize.
    setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint);
    form.setChrome(0, toTwips(kNominalTitleHeight + menuHeight));
}

void FormWindow::bindWindow() {
    Form &form = *form_;
    bindings_.follow(form.Caption, [this] { setWindowTitle(shown(form_->Caption)); });
    bindings_.follow(form.Enabled, [this] { setEnabled(form_->Enabled); });
    bindings_.follow(form.Width, [this] { followSize(); });
    bindings_.keep(form.Height.onChange([this] { followSize(); }));
    // A form that nobody has placed is placed by the window manager.
    if (form.Left != 0 || form.Top != 0) followPlace();
    bindings_.keep(form.Left.onChange([this] { followPlace(); }));
    bindings_.keep(form.Top.onChange([this] { followPlace(); }));
    bindings_.follow(form.Topmost, [this] { followTopmost(); });
    bindings_.follow(form.State, [this] { followState(); });
    bindings_.keep(form.raised.connect([this] {
        raise();
        activateWindow();
    }));
    bindings_.keep(form.refreshed.connect([this] { comeOnScreen(); }));
    bindings_.follow(form.Visible, [this] { followVisible(); });
}

void FormWindow::release() {
    bindings_.end();
    form_ = nullptr;
    hide();
    deleteLater();
}

void FormWindow::followSize() {
    const int height = std::max(menuHeight_, toPixels(form_->Height) - kNominalTitleHeight);
    setFixedSize(toPixels(form_->Width), height);
}

void FormWindow::followPlace() {
    if (!telling_) move(reachable({toPixels(form_->Left), toPixels(form_->Top)}));
}

// The form may be told any place; its title stays where a mouse can get it.
QPoint FormWindow::reachable(QPoint place) const {
    const QScreen *screen = QGuiApplication::screenAt(place + QPoint(width() / 2, 0));
    if (screen == nullptr) screen = QGuiApplication::primaryScreen();
    if (screen == nullptr) return place;
    const QRect area = screen->availableGeometry();
    const int left = area.left() - std::max(0, width() - kLeastInReach), right = area.right() - kLeastInReach;
    const int top = area.top(), bottom = area.bottom() - kNominalTitleHeight;
    return {std::clamp(place.x(), left, std::max(left, right)), std::clamp(place.y(), top, std::max(top, bottom))};
}

void FormWindow::followState() {
    const WindowState state = form_->State;
    Qt::WindowStates states = windowState() & ~(Qt::WindowMinimized | Qt::WindowMaximized);
    if (state == WindowState::Minimized) states |= Qt::WindowMinimized;
    if (state == WindowState::Maximized) states |= Qt::WindowMaximized;
    setWindowState(states);
}

void FormWindow::followTopmost() {
    const bool topmost = form_->Topmost;
    if (topmost == windowFlags().testFlag(Qt::WindowStaysOnTopHint)) return;
    // Changing the widget's own flags would hide the window; its handle changes them in place.
    overrideWindowFlags(windowFlags().setFlag(Qt::WindowStaysOnTopHint, topmost));
    if (QWindow *window = windowHandle()) window->setFlag(Qt::WindowStaysOnTopHint, topmost);
}

void FormWindow::followVisible() {
    if (form_->Visible && testAttribute(Qt::WA_WState_Created)) followPlace();
    setVisible(form_->Visible);
}

// What follows may keep the thread busy for seconds, so the window is painted before.
void FormWindow::comeOnScreen() {
    QWindow *window = windowHandle();
    if (window == nullptr || !isVisible()) return;
    if (window->isExposed()) {
        QCoreApplication::sendPostedEvents(this, QEvent::UpdateRequest);
        return;
    }
    QEventLoop loop;
    ExposeWatcher watcher(loop);
    window->installEventFilter(&watcher);
    QTimer::singleShot(kLongestWaitForScreen, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
}

void FormWindow::tellPlace() {
    if (form_ == nullptr || !isVisible() || isMinimized()) return;
    const QScopedValueRollback telling(telling_, true);
    form_->Left = toTwips(pos().x());
    form_->Top = toTwips(pos().y());
}

void FormWindow::closeEvent(QCloseEvent *event) {
    tellPlace();
    // An unloaded form has taken the window with it by now.
    event->setAccepted(form_ == nullptr || form_->Unload());
}

void FormWindow::moveEvent(QMoveEvent *event) {
    QWidget::moveEvent(event);
    tellPlace();
}

void FormWindow::changeEvent(QEvent *event) {
    QWidget::changeEvent(event);
    if (form_ == nullptr) return;
    if (event->type() == QEvent::WindowStateChange) {
        form_->State = isMinimized()   ? WindowState::Minimized
                       : isMaximized() ? WindowState::Maximized
                                       : WindowState::Normal;
    } else if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
        tellPlace(); // the frame around it is known now
        form_->userActivated();
    }
}

} // namespace tonvale
