// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Property.h"

#include <cstdint>
#include <functional>

namespace tonvale {

// The user-interface thread's loop.
class EventLoop {
public:
    using Callback = std::function<void()>;
    using TimerId = std::uint64_t; // 0 is no timer

    virtual ~EventLoop() = default;

    // Runs `callback` on the loop, in the order of posting. May be called from any thread; all
    // else is for the user-interface thread alone.
    virtual void post(Callback callback) = 0;
    // Calls back every `milliseconds` until cleared.
    virtual TimerId setTimer(std::int32_t milliseconds, Callback callback) = 0;
    virtual void clearTimer(TimerId id) = 0;
    // Serves what is waiting and returns.
    virtual void doEvents() = 0;
    // Ends the program once the present event is done.
    virtual void quit() = 0;
};

class Clock {
public:
    virtual ~Clock() = default;
    // Seconds since midnight, local time, with fractions.
    virtual double secondsSinceMidnight() = 0;
    // A count of milliseconds that never goes back.
    virtual std::int64_t milliseconds() = 0;
    // Blocks the thread; nothing is served meanwhile.
    virtual void block(std::int32_t milliseconds) = 0;
};

// Raises its event every `Interval` milliseconds while it is enabled. Off at design.
class Timer {
public:
    Timer(EventLoop &loop, std::int32_t intervalMilliseconds);
    ~Timer();
    Timer(const Timer &) = delete;
    Timer &operator=(const Timer &) = delete;

    Event<> Tick;
    [[nodiscard]] bool Enabled() const { return enabled_; }
    void Enabled(bool enabled);
    [[nodiscard]] std::int32_t Interval() const { return interval_; }
    void Interval(std::int32_t milliseconds);

private:
    void restart();

    EventLoop &loop_;
    std::int32_t interval_;
    bool enabled_ = false;
    EventLoop::TimerId id_ = 0;
};

} // namespace tonvale
