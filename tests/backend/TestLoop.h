// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Loop.h"

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <utility>

namespace tonvale::test {

using namespace std::chrono_literals;

// A loop that the test itself turns.
class TestLoop final : public EventLoop {
public:
    void post(Callback callback) override {
        const std::lock_guard lock(mutex_);
        posted_.push_back(std::move(callback));
        arrived_.notify_one();
    }
    TimerId setTimer(std::int32_t, Callback) override { return 0; }
    void clearTimer(TimerId) override {}
    void doEvents() override {
        while (const auto callback = next(0ms)) callback();
    }
    void quit() override {}

    // Serves the loop until the condition holds. False when it does not within the limit.
    bool runUntil(const std::function<bool()> &condition, std::chrono::milliseconds limit = 20s) {
        const auto end = std::chrono::steady_clock::now() + limit;
        while (!condition()) {
            if (std::chrono::steady_clock::now() > end) return false;
            if (const auto callback = next(5ms)) callback();
        }
        return true;
    }
    // Serves the loop for this time, to see that nothing happens in it.
    void runFor(std::chrono::milliseconds time) {
        static_cast<void>(runUntil([] { return false; }, time));
    }
    [[nodiscard]] bool hasWaiting() {
        const std::lock_guard lock(mutex_);
        return !posted_.empty();
    }

private:
    Callback next(std::chrono::milliseconds patience) {
        std::unique_lock lock(mutex_);
        if (!arrived_.wait_for(lock, patience, [this] { return !posted_.empty(); })) return nullptr;
        Callback callback = std::move(posted_.front());
        posted_.pop_front();
        return callback;
    }

    std::mutex mutex_;
    std::condition_variable arrived_;
    std::deque<Callback> posted_;
};

} // namespace tonvale::test
