// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Loop.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <deque>
#include <map>
#include <stdexcept>
#include <utility>
#include <vector>

namespace tonvale::test {

// A loop whose time passes only when a test says so.
class FakeLoop : public EventLoop {
public:
    void post(Callback callback) override { posted_.push_back(std::move(callback)); }

    TimerId setTimer(std::int32_t milliseconds, Callback callback) override {
        timers_[++lastTimer_] = {milliseconds, now_ + milliseconds, std::move(callback)};
        return lastTimer_;
    }
    void clearTimer(TimerId id) override { timers_.erase(id); }
    void doEvents() override {
        serveDueTimers();
        runUntilIdle();
    }
    void quit() override { quitAsked = true; }

    // Runs what was posted, and what that posts in turn.
    void runUntilIdle() {
        for (int served = 0; !posted_.empty(); ++served) {
            if (served == kTooMany) throw std::logic_error("the loop never becomes idle");
            const Callback callback = std::move(posted_.front());
            posted_.pop_front();
            callback();
        }
    }

    // Lets time pass while messages are served: each timer comes at its own moment.
    void advance(std::int64_t milliseconds) {
        const std::int64_t end = now_ + milliseconds;
        runUntilIdle();
        while (!timers_.empty() && nextDue() <= end) {
            now_ = std::max(now_, nextDue());
            serveDueTimers();
            runUntilIdle();
        }
        now_ = std::max(now_, end);
    }

    // Lets time pass while nothing is served.
    void skip(std::int64_t milliseconds) { now_ += milliseconds; }

    [[nodiscard]] std::int64_t now() const { return now_; }
    [[nodiscard]] std::size_t waiting() const { return posted_.size(); }
    [[nodiscard]] std::size_t timerCount() const { return timers_.size(); }

    bool quitAsked = false;

private:
    struct Repeating {
        std::int32_t interval;
        std::int64_t due;
        Callback callback;
    };
    static constexpr int kTooMany = 100000;

    [[nodiscard]] std::int64_t nextDue() const {
        std::int64_t due = INT64_MAX;
        for (const auto &[id, timer] : timers_) due = std::min(due, timer.due);
        return due;
    }
    // A timer that was kept waiting for several intervals comes once.
    void serveDueTimers() {
        std::vector<TimerId> due;
        for (const auto &[id, timer] : timers_)
            if (timer.due <= now_) due.push_back(id);
        for (const TimerId id : due) {
            const auto found = timers_.find(id);
            if (found == timers_.end()) continue; // cleared by one before it
            found->second.due = now_ + found->second.interval;
            const Callback callback = found->second.callback;
            callback();
        }
    }

    std::deque<Callback> posted_;
    std::map<TimerId, Repeating> timers_;
    TimerId lastTimer_ = 0;
    std::int64_t now_ = 1000;
};

// Tells the loop's time. Blocking lets it pass and serves nothing.
class FakeClock : public Clock {
public:
    explicit FakeClock(FakeLoop &loop) : loop_(loop) {}

    double secondsSinceMidnight() override { return std::fmod(midnightOffset_ + seconds(), kDay); }
    std::int64_t milliseconds() override { return loop_.now(); }
    void block(std::int32_t milliseconds) override {
        blocked += milliseconds;
        loop_.skip(milliseconds);
    }

    // Sets the time of the day.
    void setSecondsSinceMidnight(double time) { midnightOffset_ = std::fmod(time - seconds() + kDay, kDay); }

    std::int64_t blocked = 0; // milliseconds

private:
    static constexpr double kDay = 86400;
    [[nodiscard]] double seconds() const { return static_cast<double>(loop_.now()) / 1000; }

    FakeLoop &loop_;
    double midnightOffset_ = 36000;
};

} // namespace tonvale::test
