// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/codec/Converter.h"

#include <cmath>
#include <exception>
#include <new>
#include <system_error>
#include <utility>

namespace tonvale {

namespace {

// The unit of positions is a hundredth of a per cent, whatever the file's length: windows multiply
// positions by 100 in 32 bits.
constexpr std::int32_t kLength = 10000;

RuntimeError currentError() {
    try {
        throw;
    } catch (const RuntimeError &error) {
        return error;
    } catch (const std::bad_alloc &) {
        return RuntimeError(ErrorNumber::OutOfMemory);
    } catch (const std::exception &error) {
        return RuntimeError(ErrorNumber::InternalError, error.what());
    }
}

} // namespace

struct Converter::Run {
    std::unique_ptr<Conversion> conversion;
    std::atomic<bool> progressWaits = false; // in the loop: one that is busy gets no more of them
    // The user-interface thread's.
    bool started = false;
    bool dropped = false; // its news are of no interest any more
};

Converter::Converter(EventLoop &loop, Open open, Callbacks callbacks)
    : loop_(loop), open_(std::move(open)), callbacks_(std::move(callbacks)) {}

Converter::~Converter() { stop(); }

std::int16_t Converter::open(const std::string &source, const std::string &target) {
    stop();
    openError_.reset();
    try {
        auto run = std::make_shared<Run>();
        run->conversion = open_(source, target);
        run_ = std::move(run);
    } catch (...) {
        openError_ = currentError();
    }
    return openError_ ? static_cast<std::int16_t>(openError_->number()) : std::int16_t{0};
}

void Converter::start() {
    if (run_ && run_->started) return;
    if (!run_ && !openError_) return;
    if (!run_) run_ = std::make_shared<Run>();
    run_->started = true;
    if (openError_) return postEnd(run_, std::exchange(openError_, std::nullopt));
    try {
        thread_ = std::jthread([this, run = run_](const std::stop_token &stop) { work(stop, run); });
    } catch (const std::system_error &) {
        postEnd(run_, RuntimeError(ErrorNumber::OutOfMemory));
    }
}

void Converter::stop() {
    thread_ = {};
    if (run_) run_->dropped = true;
    run_.reset();
    openError_.reset();
}

std::int32_t Converter::length() const { return run_ ? kLength : 0; }

void Converter::work(const std::stop_token &stop, const std::shared_ptr<Run> &run) {
    std::optional<RuntimeError> error;
    try {
        run->conversion->run(stop, [&](double done) { postProgress(run, done); });
    } catch (...) {
        error = currentError();
    }
    run->conversion.reset();
    postEnd(run, std::move(error));
}

void Converter::postProgress(const std::shared_ptr<Run> &run, double done) {
    if (run->progressWaits.exchange(true)) return;
    const auto position = static_cast<std::int32_t>(std::lround(done * kLength));
    loop_.post([this, weak = std::weak_ptr(run), position] {
        const auto running = weak.lock();
        if (!running || running->dropped) return;
        running->progressWaits = false;
        const auto progress = callbacks_.progress; // which may destroy this object
        progress(position);
    });
}

void Converter::postEnd(const std::shared_ptr<Run> &run, std::optional<RuntimeError> error) {
    loop_.post([this, weak = std::weak_ptr(run), error = std::move(error)] {
        const auto running = weak.lock();
        if (!running || running->dropped) return;
        // A handler may open and start the next file, or destroy this object.
        const auto callbacks = callbacks_;
        stop();
        if (error)
            callbacks.failed(*error);
        else
            callbacks.done();
    });
}

} // namespace tonvale
