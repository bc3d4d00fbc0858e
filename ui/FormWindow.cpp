// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/FormWindow.h"

#include "ui/children.h"
#include "ui/dropped_files.h"
#include "ui/input_codes.h"
#include "ui/menus.h"
#include "ui/text.h"
#include "ui/units.h"
#include "ui/window_place.h"

#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QCursor>
#include <QDropEvent>
#include <QEventLoop>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QSysInfo>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace tonvale {

namespace {

constexpr int kLongestWaitForScreen = 200; // milliseconds
constexpr int kLargest = 16000;            // device-independent pixels; window systems fail beyond
constexpr Qt::WindowStates kFilling = Qt::WindowMaximized | Qt::WindowFullScreen;
constexpr const char *kUriList = "text/uri-list";

Qt::WindowFlags flagsFor(BorderStyle border) {
    if (border == BorderStyle::None) return Qt::Window | Qt::FramelessWindowHint;
    const Qt::WindowFlags flags = Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                  Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint;
    // A fixed size is the form's to say, so there is nothing to maximize.
    return border == BorderStyle::Sizable ? flags | Qt::WindowMaximizeButtonHint : flags;
}

// The character that a key gives, or 0. One that is beyond a byte is "?".
std::int16_t keyAscii(const QKeyEvent &key) {
    constexpr int kBytes = 256;
    if (key.key() == Qt::Key_Escape) return kKeyEscape;
    if (key.text().isEmpty() || key.key() == Qt::Key_Delete) return 0;
    const int character = key.text().front().unicode();
    return static_cast<std::int16_t>(character < kBytes ? character : '?');
}

// The whole screen has the pointer of a program at work while this exists.
class WaitPointer {
public:
    WaitPointer() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitPointer() { QGuiApplication::restoreOverrideCursor(); }
    WaitPointer(const WaitPointer &) = delete;
    WaitPointer &operator=(const WaitPointer &) = delete;
};

// Getting a long list out of another program takes its time.
std::vector<std::string> namesIn(const QMimeData &dropped) {
    const WaitPointer pointer;
    const QByteArray list = dropped.data(QLatin1String(kUriList));
    return droppedFiles({list.data(), static_cast<std::size_t>(list.size())},
                        QSysInfo::machineHostName().toStdString());
}

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
    setWindowFlags(flagsFor(form.BorderStyle));
    form.setChrome(0, toTwips(titleHeight() + menuHeight));
}

bool FormWindow::isPlaced() const { return form_->Left != kNowhere; }

bool FormWindow::isSizable() const { return form_->BorderStyle == BorderStyle::Sizable; }

// Without a caption a maximized window has no title to show.
bool FormWindow::coversScreen() const {
    return isSizable() && form_->State == WindowState::Maximized && form_->Caption.get().empty();
}

int FormWindow::titleHeight() const {
    return form_->BorderStyle == BorderStyle::None || coversScreen() ? 0 : kNominalTitleHeight;
}

void FormWindow::bindWindow() {
    bindShape();
    bindCommands();
    bindings_.follow(form_->Visible, [this] { followVisible(); });
}

void FormWindow::bindShape() {
    Form &form = *form_;
    bindings_.follow(form.Enabled, [this] { setEnabled(form_->Enabled); });
    bindings_.follow(form.Width, [this] { followSize(); });
    bindings_.keep(form.Height.onChange([this] { followSize(); }));
    bindings_.keep(form.MinWidth.onChange([this] { followSize(); }));
    bindings_.keep(form.MinHeight.onChange([this] { followSize(); }));
    if (isPlaced()) followPlace();
    bindings_.keep(form.Left.onChange([this] { followPlace(); }));
    bindings_.keep(form.Top.onChange([this] { followPlace(); }));
    bindings_.follow(form.Topmost, [this] { followTopmost(); });
    bindings_.keep(form.State.onChange([this] { followState(); }));
    bindings_.follow(form.Caption, [this] {
        setWindowTitle(shown(form_->Caption));
        followState();
    });
    bindings_.follow(form.AcceptsFiles, [this] { setAcceptDrops(form_->AcceptsFiles); });
}

void FormWindow::bindCommands() {
    Form &form = *form_;
    bindings_.keep(form.raised.connect([this] {
        raise();
        activateWindow();
    }));
    bindings_.keep(form.refreshed.connect([this] { comeOnScreen(); }));
    bindings_.keep(form.popUpRequested.connect([this](MenuEntry &menu) { popUp(menu); }));
    bindings_.keep(form.moveRequested.connect([this] {
        if (QWindow *window = windowHandle()) window->startSystemMove();
    }));
}

void FormWindow::release() {
    bindings_.end();
    form_ = nullptr;
    hide();
    deleteLater();
}

void FormWindow::followSize() {
    if (telling_) return;
    const auto inside = [this](double width, double height) {
        return QSize(std::clamp(toPixels(width), 1, kLargest),
                     std::clamp(toPixels(height) - titleHeight(), std::max(1, menuHeight_), kLargest));
    };
    if (!isSizable()) {
        setFixedSize(inside(form_->Width, form_->Height));
        return;
    }
    setMinimumSize(inside(form_->MinWidth, form_->MinHeight));
    if (form_->State == WindowState::Normal) resize(inside(form_->Width, form_->Height));
}

// The form may be told any place; its title stays where a mouse can get it.
void FormWindow::followPlace() {
    if (!telling_) move(reachablePlace(*this, {toPixels(form_->Left), toPixels(form_->Top)}));
}

void FormWindow::followState() {
    const WindowState state = form_->State;
    Qt::WindowStates states = windowState() & ~(Qt::WindowMinimized | kFilling);
    if (state == WindowState::Minimized) states |= Qt::WindowMinimized;
    if (state == WindowState::Maximized && isSizable())
        states |= coversScreen() ? Qt::WindowFullScreen : Qt::WindowMaximized;
    form_->setChrome(0, toTwips(titleHeight() + menuHeight_));
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
    if (form_->Visible && !std::exchange(prepared_, true)) prepareFirstShow();
    if (form_ == nullptr) return;
    if (!form_->Visible && onRestored_) return showMinimized();
    if (form_->Visible && isPlaced() && testAttribute(Qt::WA_WState_Created)) followPlace();
    if (form_->Visible && isMinimized()) followState();
    setVisible(form_->Visible);
}

void FormWindow::hideAsMinimized(std::function<void()> onRestored) {
    onRestored_ = std::move(onRestored);
    // Not at once: the form may be about to be shown again.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (form_ != nullptr && prepared_ && !form_->Visible) followVisible();
        },
        Qt::QueuedConnection);
}

// A window is told its size before it is seen for the first time, and may answer with another.
void FormWindow::prepareFirstShow() {
    {
        const QScopedValueRollback telling(telling_, true);
        form_->userResized(form_->Width, form_->Height);
    }
    if (form_ == nullptr) return;
    followSize();
    if (isPlaced()) return;
    if (const auto place = firstPlace(*this)) form_->Move(toTwips(place->x()), toTwips(place->y()));
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

void FormWindow::popUp(MenuEntry &entry) {
    QMenu *&menu = popUps_[&entry];
    if (menu == nullptr) {
        menu = &makeChild<QMenu>(*this);
        bindMenu(bindings_, *menu, entry);
    }
    menu->popup(QCursor::pos());
}

void FormWindow::tellPlace() {
    if (form_ == nullptr || !isVisible() || windowState() & (Qt::WindowMinimized | kFilling)) return;
    const QScopedValueRollback telling(telling_, true);
    form_->Left = toTwips(pos().x());
    form_->Top = toTwips(pos().y());
}

void FormWindow::tellSize() {
    if (form_ == nullptr || !prepared_ || telling_ || !isSizable() || isMinimized()) return;
    {
        const QScopedValueRollback telling(telling_, true);
        form_->userResized(toTwips(width()), toTwips(height() + titleHeight()));
    }
    if (form_ != nullptr) followSize();
}

void FormWindow::tellState() {
    form_->State = isMinimized()                     ? WindowState::Minimized
                   : isMaximized() || isFullScreen() ? WindowState::Maximized
                                                     : WindowState::Normal;
    tellSize();
}

void FormWindow::closeEvent(QCloseEvent *event) {
    tellPlace();
    // An unloaded form has taken the window with it by now. A disabled one takes nothing from the user.
    event->setAccepted(form_ == nullptr || (form_->Enabled && form_->Unload()));
}

void FormWindow::moveEvent(QMoveEvent *event) {
    QWidget::moveEvent(event);
    tellPlace();
}

void FormWindow::resizeEvent(QResizeEvent *event) {
    QWidget::resizeEvent(event);
    tellSize();
}

void FormWindow::changeEvent(QEvent *event) {
    QWidget::changeEvent(event);
    if (form_ == nullptr) return;
    if (event->type() == QEvent::WindowStateChange) {
        if (form_->Visible) tellState();
    } else if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
        const auto restored = onRestored_; // which ends itself
        if (!form_->Visible && restored) return restored();
        tellPlace(); // the frame around it is known now
        form_->userActivated();
    }
}

void FormWindow::keyPressEvent(QKeyEvent *event) {
    const std::int16_t key = keyAscii(*event);
    if (key != 0 && form_ != nullptr)
        form_->userPressedKey(key);
    else
        QWidget::keyPressEvent(event);
}

void FormWindow::mouseReleaseEvent(QMouseEvent *event) {
    const std::int16_t button = buttonsIn(event->button());
    if (button == 0 || form_ == nullptr) return;
    form_->userReleasedButton(button, shiftIn(event->modifiers()), toTwips(event->position().x()),
                              toTwips(event->position().y() - menuHeight_));
}

// The keyboard's key for menus does what the right button does.
void FormWindow::contextMenuEvent(QContextMenuEvent *event) {
    if (event->reason() != QContextMenuEvent::Keyboard || form_ == nullptr) return;
    const QPoint middle = rect().center();
    form_->userReleasedButton(kRightButton, shiftIn(event->modifiers()), toTwips(middle.x()),
                              toTwips(middle.y() - menuHeight_));
}

void FormWindow::dragEnterEvent(QDragEnterEvent *event) {
    if (event->mimeData()->hasFormat(QLatin1String(kUriList))) event->acceptProposedAction();
}

void FormWindow::dropEvent(QDropEvent *event) {
    const std::vector<std::string> names = namesIn(*event->mimeData());
    if (form_ == nullptr || names.empty()) return;
    event->acceptProposedAction();
    form_->userDroppedFiles(names);
}

} // namespace tonvale
