// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/qt/QtEventLoop.h"

#include <QCoreApplication>
#include <QMetaObject>
#include <QTimerEvent>

#include <utility>

namespace tonvale {

namespace {

// Below this a timer's five per cent of slack would show; from here on the slack lets wake-ups of
// several timers fall together.
constexpr std::int32_t kCoarseFrom = 100;

} // namespace

void QtEventLoop::Receiver::timerEvent(QTimerEvent *event) {
    const auto found = timers.find(event->timerId());
    if (found == timers.end()) return;
    const Callback callback = found->second; // it may clear its own timer
    callback();
}

void QtEventLoop::post(Callback callback) {
    QMetaObject::invokeMethod(&receiver_, std::move(callback), Qt::QueuedConnection);
}

EventLoop::TimerId QtEventLoop::setTimer(std::int32_t milliseconds, Callback callback) {
    const int id = receiver_.startTimer(milliseconds, milliseconds < kCoarseFrom ? Qt::PreciseTimer : Qt::CoarseTimer);
    if (id == 0) return 0;
    receiver_.timers.insert_or_assign(id, std::move(callback));
    return static_cast<TimerId>(id);
}

void QtEventLoop::clearTimer(TimerId id) {
    const int timer = static_cast<int>(id);
    if (receiver_.timers.erase(timer) != 0) receiver_.killTimer(timer);
}

void QtEventLoop::doEvents() { QCoreApplication::processEvents(); }

// exit() and not QCoreApplication::quit(), which asks every window once more whether it may close.
void QtEventLoop::quit() {
    quitting_ = true;
    QCoreApplication::exit();
}

void QtEventLoop::run() {
    if (!quitting_) QCoreApplication::exec();
}

} // namespace tonvale
