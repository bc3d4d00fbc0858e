// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Errors.h"
#include "platform/media/engine/MpvEngine.h"
#include "tests/backend/TestLoop.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <sstream>
#include <string>

namespace tonvale {

using namespace std::chrono_literals;

using test::TestLoop;

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
