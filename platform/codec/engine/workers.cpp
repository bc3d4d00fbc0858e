// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/codec/engine/workers.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

namespace tonvale {

namespace {

constexpr std::chrono::milliseconds kWatchInterval{40};

class Workers {
public:
    // Where a thread cannot be made, those that have been are asked to stop.
    Workers(Crew crew, const std::function<void(const std::stop_token &)> &work) : Workers(crew) {
        for (unsigned i = 0, count = working_; i < count; ++i) threads_.emplace_back([this, &work] { runOne(work); });
    }
    ~Workers() { stop_.request_stop(); }
    Workers(const Workers &) = delete;
    Workers &operator=(const Workers &) = delete;

    void requestStop() { stop_.request_stop(); }
    // Whether all have ended in this time.
    bool wait(std::chrono::milliseconds time) {
        std::unique_lock lock(mutex_);
        return ended_.wait_for(lock, time, [this] { return working_ == 0; });
    }
    void rethrow() const {
        if (failure_) std::rethrow_exception(failure_);
    }

private:
    explicit Workers(Crew crew) : working_(std::max(1U, crew.threads)) {}
    void runOne(const std::function<void(const std::stop_token &)> &work) {
        try {
            work(stop_.get_token());
        } catch (...) {
            const std::lock_guard lock(mutex_);
            if (!failure_) failure_ = std::current_exception();
            stop_.request_stop();
        }
        const std::lock_guard lock(mutex_);
        if (--working_ == 0) ended_.notify_all();
    }

    std::stop_source stop_;
    std::mutex mutex_;
    std::condition_variable ended_;
    unsigned working_;
    std::exception_ptr failure_;
    std::vector<std::jthread> threads_; // last, so that they have ended before the rest goes
};

} // namespace

void runWorkers(Crew crew, const std::stop_token &stop, const std::function<void(const std::stop_token &)> &work,
                const std::function<void()> &watch) {
    Workers workers(crew, work);
    const std::stop_callback forward(stop, [&workers] { workers.requestStop(); });
    while (!workers.wait(kWatchInterval)) watch();
    workers.rethrow();
}

} // namespace tonvale
