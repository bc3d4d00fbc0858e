// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/media/engine/PlaybackClock.h"

#include <algorithm>

namespace tonvale {

namespace {

constexpr double kJitter = 0.5;

} // namespace

void PlaybackClock::set(double seconds, Steady::time_point now) {
    seconds_ = least_ = seconds;
    since_ = now;
}

void PlaybackClock::correct(double seconds, Steady::time_point now) {
    const double shown = at(now);
    set(seconds, now);
    if (shown - seconds < kJitter) least_ = std::max(shown, seconds);
}

void PlaybackClock::setRunning(bool running, Steady::time_point now) {
    if (running == running_) return;
    seconds_ = unlimitedAt(now);
    since_ = now;
    running_ = running;
}

void PlaybackClock::setSpeed(double speed, Steady::time_point now) {
    seconds_ = unlimitedAt(now);
    since_ = now;
    speed_ = speed;
}

double PlaybackClock::at(Steady::time_point now) const { return std::max(least_, unlimitedAt(now)); }

double PlaybackClock::unlimitedAt(Steady::time_point now) const {
    return running_ ? seconds_ + std::chrono::duration<double>(now - since_).count() * speed_ : seconds_;
}

} // namespace tonvale
