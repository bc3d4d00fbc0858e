// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/PictureWidget.h"

#include "ui/input_codes.h"
#include "ui/text.h"
#include "ui/units.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

namespace tonvale {

namespace {

constexpr int kPointerRest = 3000; // milliseconds until a pointer that stands still hides

} // namespace

PictureWidget::PictureWidget(QWidget &parent, MediaPlayer &player) : QWidget(&parent), player_(&player) {
    setObjectName(QStringLiteral("picture"));
    setAccessibleName(QStringLiteral("Picture"));
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    arranging_.setSingleShot(true);
    pointerRest_.setSingleShot(true);
    bindings_.keep(connect(&arranging_, &QTimer::timeout, this, [this] { arrange(); }));
    bindings_.keep(connect(&pointerRest_, &QTimer::timeout, this, [this] { setCursor(Qt::BlankCursor); }));
    parent.window()->installEventFilter(this);
    bindPlayer();
}

void PictureWidget::bindPlayer() {
    for (Property<double> *value : {&player_->Left, &player_->Top, &player_->Width, &player_->Height})
        bindings_.keep(value->onChange([this] { followPlace(); }));
    bindings_.follow(player_->ToolTipText, [this] { setToolTip(shown(player_->ToolTipText)); });
    bindings_.keep(player_->Visible.onChange([this] { arrangeSoon(); }));
    bindings_.keep(player_->FullScreenMode.onChange([this] { arrangeSoon(); }));
    bindings_.keep(player_->fileChanged.connect([this] { followFile(); }));
    bindings_.keep(player_->goingAway.connect([this] { letGo(); }));
    followPlace();
    followFile();
    arrange();
}

// Before the engine, whose picture it is, and whatever may still happen to the window.
void PictureWidget::letGo() {
    bindings_.end();
    arranging_.stop();
    pointerRest_.stop();
    canvas_.reset();
    hide();
    player_ = nullptr;
}

// The first film finds its canvas before it plays, so nothing of it is missed.
void PictureWidget::followFile() {
    arrangeSoon();
    MediaEngine *engine = player_->openEngine();
    if (engine == nullptr || engine->pictureSize().isEmpty()) return;
    const std::shared_ptr<PictureSource> source = engine->picture();
    if (!source || (canvas_ && canvas_->shows(*source))) return;
    canvas_.reset();
    canvas_ = makePictureCanvas(*this, source);
    canvas_->widget().setGeometry(rect());
}

void PictureWidget::followPlace() {
    if (isWindow()) return;
    setGeometry(toPixels(player_->Left), toPixels(player_->Top), toPixels(player_->Width), toPixels(player_->Height));
}

// A file that takes another's place lets go of the screen and takes it again; that is not to be seen.
void PictureWidget::arrangeSoon() { arranging_.start(0); }

void PictureWidget::arrange() {
    if (canvas_) canvas_->widget().setVisible(!player_->pictureSize().isEmpty());
    if (wantsScreen() == isWindow()) {
        setVisible(player_->Visible);
    } else if (isWindow()) {
        leaveScreen();
    } else {
        coverScreen();
    }
}

bool PictureWidget::wantsScreen() const {
    return player_->FullScreenMode && player_->Visible && !player_->pictureSize().isEmpty() &&
           parentWidget()->window()->isVisible();
}

void PictureWidget::coverScreen() {
    QScreen *screen = parentWidget()->window()->screen();
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    setScreen(screen);
    setWindowTitle(parentWidget()->window()->windowTitle());
    setGeometry(screen->geometry());
    showFullScreen();
    activateWindow();
    showPointer();
}

void PictureWidget::leaveScreen() {
    pointerRest_.stop();
    unsetCursor();
    setWindowFlags(Qt::Widget);
    setWindowState(Qt::WindowNoState);
    followPlace();
    setVisible(player_->Visible);
}

void PictureWidget::comeToFront() {
    if (!isWindow()) return;
    raise();
    activateWindow();
}

void PictureWidget::showPointer() {
    if (!isWindow()) return;
    unsetCursor();
    pointerRest_.start(kPointerRest);
}

// A window that goes takes its picture with it.
bool PictureWidget::eventFilter(QObject *watched, QEvent *event) {
    if (player_ != nullptr && (event->type() == QEvent::Hide || event->type() == QEvent::Show)) arrangeSoon();
    return QWidget::eventFilter(watched, event);
}

void PictureWidget::paintEvent(QPaintEvent *event) { QPainter(this).fillRect(event->rect(), Qt::black); }

void PictureWidget::resizeEvent(QResizeEvent * /*event*/) {
    if (canvas_) canvas_->widget().setGeometry(rect());
}

void PictureWidget::mouseMoveEvent(QMouseEvent *event) {
    showPointer();
    player_->MouseMove(buttonsIn(event->buttons()), shiftIn(event->modifiers()), toTwips(event->position().x()),
                       toTwips(event->position().y()));
}

// Accepted, so that the release comes here, too.
void PictureWidget::mousePressEvent(QMouseEvent * /*event*/) { showPointer(); }

void PictureWidget::mouseReleaseEvent(QMouseEvent *event) {
    if (isWindow() && event->button() == Qt::LeftButton) player_->userClickedFullScreen();
    if (player_ == nullptr) return; // what the click has led to
    player_->MouseUp(buttonsIn(event->button()), shiftIn(event->modifiers()), toTwips(event->position().x()),
                     toTwips(event->position().y()));
}

void PictureWidget::keyPressEvent(QKeyEvent *event) {
    if (isWindow() && event->key() == Qt::Key_Escape)
        player_->userPressedEscape();
    else
        QWidget::keyPressEvent(event);
}

// The keyboard's key for menus does what the right button does.
void PictureWidget::contextMenuEvent(QContextMenuEvent *event) {
    if (event->reason() != QContextMenuEvent::Keyboard || !isWindow()) return QWidget::contextMenuEvent(event);
    player_->MouseUp(kRightButton, shiftIn(event->modifiers()), toTwips(event->pos().x()), toTwips(event->pos().y()));
}

// The window manager's way to close it.
void PictureWidget::closeEvent(QCloseEvent *event) {
    if (player_ == nullptr) return;
    player_->userPressedEscape();
    event->ignore();
}

} // namespace tonvale
