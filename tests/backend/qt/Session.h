// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCoreApplication>

#include <gtest/gtest.h>
#include <sys/types.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tonvale::test {

// A program that ends with its owner.
class Process {
public:
    explicit Process(std::vector<std::string> command);
    ~Process() { end(); }
    Process(const Process &) = delete;
    Process &operator=(const Process &) = delete;
    [[nodiscard]] pid_t id() const { return id_; }
    [[nodiscard]] bool isRunning() const;
    void end();

private:
    pid_t id_ = -1;
};

// Serves events until the condition holds; false when that takes too long.
[[nodiscard]] bool serveUntil(const std::function<bool()> &condition, int seconds = 20);
// Serves events for as long as it takes a message to go to the bus and back.
void serveBus();

enum class Display { None, X11 };

// A private session: a directory, a bus and, if wished, an X server. One for each process: the
// toolkit reads the environment once.
class Session {
public:
    explicit Session(Display display);
    ~Session();
    Session(const Session &) = delete;
    Session &operator=(const Session &) = delete;

    [[nodiscard]] const std::string &directory() const { return directory_; }
    void endBus() { bus_->end(); }

private:
    void startBus();
    void startDisplay();

    std::string directory_;
    std::unique_ptr<Process> bus_, display_;
    int argumentCount_ = 1;
    std::string name_ = "test";
    char *arguments_[2] = {name_.data(), nullptr};
    std::unique_ptr<QCoreApplication> application_;
};

// A test with a session of its own.
template <Display display> class SessionTest : public testing::Test {
protected:
    Session session{display};
};

} // namespace tonvale::test
