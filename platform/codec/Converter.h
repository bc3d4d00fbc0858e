// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Errors.h"
#include "controls/Loop.h"
#include "platform/codec/Conversion.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>

namespace tonvale {

// Runs one conversion at a time on threads of its own and tells of it on the loop. What waits in
// the loop is dropped by a stop.
class Converter {
public:
    struct Callbacks {
        std::function<void(std::int32_t position)> progress;
        std::function<void()> done;
        std::function<void(const RuntimeError &error)> failed;
    };
    // Opens a conversion, or throws.
    using Open = std::function<std::unique_ptr<Conversion>(const std::string &source, const std::string &target)>;

    Converter(EventLoop &loop, Open open, Callbacks callbacks);
    ~Converter();
    Converter(const Converter &) = delete;
    Converter &operator=(const Converter &) = delete;

    [[nodiscard]] std::int16_t open(const std::string &source, const std::string &target);
    void start();
    void stop();
    [[nodiscard]] std::int32_t length() const;

private:
    struct Run;
    void work(const std::stop_token &stop, const std::shared_ptr<Run> &run);
    void postProgress(const std::shared_ptr<Run> &run, double done);
    void postEnd(const std::shared_ptr<Run> &run, std::optional<RuntimeError> error);

    EventLoop &loop_;
    const Open open_;
    const Callbacks callbacks_;
    // The user-interface thread's.
    std::optional<RuntimeError> openError_;
    std::shared_ptr<Run> run_; // null when nothing is open
    std::jthread thread_;
};

} // namespace tonvale
