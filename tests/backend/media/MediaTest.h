// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Errors.h"
#include "controls/Loop.h"
#include "platform/media/engine/MpvEngine.h"

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <deque>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <mutex>
#include <sstream>
#include <string>
#include <utility>

namespace tonvale {

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
        while (auto callback = next(0ms)) callback();
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

inline std::string media(const std::string &name) { return std::string(MEDIA_DIRECTORY "/") + name; }

inline std::string readFile(const std::filesystem::path &path) {
    std::ostringstream content;
    content << std::ifstream(path, std::ios::binary).rdbuf();
    return content.str();
}

// The number of the error that the action throws, 0 if none.
inline std::int32_t errorOf(const std::function<void()> &action) {
    try {
        action();
    } catch (const RuntimeError &error) {
        EXPECT_FALSE(error.description().empty());
        return error.number();
    }
    return 0;
}

// A directory of the test's own, an engine that plays into nothing, and its loop.
class MediaTest : public testing::Test {
protected:
    MediaTest() {
        std::string name = (std::filesystem::temp_directory_path() / "media_test.XXXXXX").string();
        if (!::mkdtemp(name.data())) throw std::runtime_error("no scratch directory");
        scratch = name;
        options.outputs = "null";
    }
    ~MediaTest() override {
        engine.reset();
        std::error_code ignored;
        std::filesystem::remove_all(scratch, ignored);
    }

    void makeEngine() {
        MediaEngine::Callbacks callbacks;
        callbacks.ended = [this] { ++ended; };
        engine = std::make_unique<MpvEngine>(loop, callbacks, options);
    }
    void open(const std::string &path) {
        if (!engine) makeEngine();
        engine->open(path);
    }
    void openAndPlay(const std::string &path) {
        open(path);
        engine->play();
    }
    bool reachesPosition(double seconds) {
        return loop.runUntil([&] { return engine->position() >= seconds; });
    }
    bool hasEnded() {
        return loop.runUntil([&] { return ended > 0; });
    }
    std::string write(const std::string &name, const std::string &content) {
        const std::string path = scratch / name;
        std::ofstream(path, std::ios::binary) << content;
        return path;
    }
    std::int32_t openError(const std::string &path) {
        return errorOf([&] { open(path); });
    }

    std::filesystem::path scratch;
    TestLoop loop;
    MpvEngine::Options options;
    std::unique_ptr<MediaEngine> engine;
    int ended = 0;
};

} // namespace tonvale
