// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

// bench_convert encode|decode THREADS SOURCE TARGET [SOURCE TARGET]...: converts files one after the
// other as the windows do, but without one. 0 threads: one for each core.

#include "platform/codec/codec_controls.h"

#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <mutex>
#include <span>
#include <string>
#include <string_view>

namespace tonvale {

namespace {

class PlainLoop final : public EventLoop {
public:
    void post(Callback callback) override {
        const std::lock_guard lock(mutex_);
        waiting_.push_back(std::move(callback));
        arrived_.notify_one();
    }
    TimerId setTimer(std::int32_t, Callback) override { return 0; }
    void clearTimer(TimerId) override {}
    void doEvents() override {}
    void quit() override { ended_ = true; }
    void run() {
        for (ended_ = false; !ended_;) next()();
    }

private:
    Callback next() {
        std::unique_lock lock(mutex_);
        arrived_.wait(lock, [this] { return !waiting_.empty(); });
        Callback callback = std::move(waiting_.front());
        waiting_.pop_front();
        return callback;
    }
    std::mutex mutex_;
    std::condition_variable arrived_;
    std::deque<Callback> waiting_;
    bool ended_ = false; // this thread's
};

bool encode(PlainLoop &loop, Crew crew, const std::string &source, const std::string &target) {
    const auto encoder = makeMp3Enc(
        loop, [](const std::string &path) { return path; }, crew);
    bool isGood = encoder->OpenEncoder(source, target) == 0;
    encoder->EncoderDone = [&] { loop.quit(); };
    encoder->EncoderError = [&](std::int32_t number, const std::string &text) {
        (void)std::fprintf(stderr, "%s: %d %s\n", source.c_str(), number, text.c_str());
        isGood = false;
        loop.quit();
    };
    encoder->StartEncoder();
    loop.run();
    return isGood;
}

bool decode(PlainLoop &loop, Crew crew, const std::string &source, const std::string &target) {
    const auto decoder = makeMp3Play(
        loop, [](const std::string &path) { return path; }, crew);
    const bool isGood = decoder->OpenDecoder(source, target) == 0;
    decoder->DecoderDone = [&] { loop.quit(); };
    decoder->StartDecoder();
    loop.run();
    return isGood;
}

int convert(std::span<char *const> arguments) {
    PlainLoop loop;
    const auto run = std::string_view(arguments[1]) == "encode" ? encode : decode;
    const Crew crew{static_cast<unsigned>(std::strtoul(arguments[2], nullptr, 10))};
    bool isGood = true;
    for (std::size_t i = 3; i + 1 < arguments.size(); i += 2)
        isGood = run(loop, crew, arguments[i], arguments[i + 1]) && isGood;
    return isGood ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

} // namespace tonvale

int main(int argc, char *argv[]) {
    const std::span<char *const> arguments(argv, static_cast<std::size_t>(argc));
    return arguments.size() < 5 ? EXIT_FAILURE : tonvale::convert(arguments);
}
