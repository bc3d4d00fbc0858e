// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Loop.h"

#include <QObject>

#include <unordered_map>

namespace tonvale {

// The user-interface thread's loop on Qt's. It must outlive every thread that posts to it.
class QtEventLoop : public EventLoop {
public:
    void post(Callback callback) override;
    TimerId setTimer(std::int32_t milliseconds, Callback callback) override;
    void clearTimer(TimerId id) override;
    void doEvents() override;
    void quit() override;

    // Serves events until quit() is called; returns at once when it has been already.
    void run();

private:
    class Receiver : public QObject {
    public:
        std::unordered_map<int, Callback> timers;

    protected:
        void timerEvent(QTimerEvent *event) override;
    };

    Receiver receiver_;
    bool quitting_ = false;
};

} // namespace tonvale
