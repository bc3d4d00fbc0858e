// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <chrono>

namespace tonvale {

// The position between two reports of the engine: it runs with the time of day's steady sister, so
// that a display can ask as often as it likes.
class PlaybackClock {
public:
    using Steady = std::chrono::steady_clock;

    void set(double seconds, Steady::time_point now);
    // Takes a report in. A clock that is a little ahead of it stands until it is right, rather than
    // go back.
    void correct(double seconds, Steady::time_point now);
    void setRunning(bool running, Steady::time_point now);
    void setSpeed(double speed, Steady::time_point now);
    [[nodiscard]] bool isRunning() const { return running_; }
    [[nodiscard]] double at(Steady::time_point now) const;

private:
    [[nodiscard]] double unlimitedAt(Steady::time_point now) const;

    double seconds_ = 0;
    double least_ = 0; // what has been shown already
    Steady::time_point since_{};
    double speed_ = 1;
    bool running_ = false;
};

} // namespace tonvale
