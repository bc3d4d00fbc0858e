// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/Loop.h"

namespace tonvale {

Timer::Timer(EventLoop &loop, std::int32_t intervalMilliseconds) : loop_(loop), interval_(intervalMilliseconds) {}

Timer::~Timer() { Enabled(false); }

void Timer::Enabled(bool enabled) {
    if (enabled == enabled_) return;
    enabled_ = enabled;
    restart();
}

void Timer::Interval(std::int32_t milliseconds) {
    if (milliseconds == interval_) return;
    interval_ = milliseconds;
    restart();
}

void Timer::restart() {
    if (id_ != 0) loop_.clearTimer(id_);
    id_ = 0;
    // An interval of 0 stops the timer without disabling it.
    if (enabled_ && interval_ > 0) id_ = loop_.setTimer(interval_, [this] { Tick(); });
}

} // namespace tonvale
