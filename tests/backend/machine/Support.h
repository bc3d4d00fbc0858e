// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Errors.h"
#include "tests/backend/TestLoop.h"

#include <gtest/gtest.h>
#include <sys/types.h>

#include <functional>
#include <optional>
#include <string>

namespace tonvale::test {

// A directory of its own for each test, gone with it. HOME and the XDG variables point into it.
class ScratchHome {
public:
    ScratchHome();
    ~ScratchHome();
    ScratchHome(const ScratchHome &) = delete;
    ScratchHome &operator=(const ScratchHome &) = delete;
    [[nodiscard]] const std::string &path() const { return path_; }
    [[nodiscard]] std::string operator/(const std::string &name) const { return path_ + "/" + name; }

private:
    std::string path_;
};

void writeFile(const std::string &path, const std::string &text);
[[nodiscard]] std::string readFile(const std::string &path);
[[nodiscard]] bool exists(const std::string &path);

// The number of the error that the operation throws, 0 when it throws none.
[[nodiscard]] int errorOf(const std::function<void()> &operation);

// Whether the condition came true in time.
[[nodiscard]] bool waitUntil(const std::function<bool()> &condition, int seconds = 10);

// A child process that runs a function; killed at the end unless it has ended before.
class Child {
public:
    explicit Child(const std::function<int()> &run);
    ~Child();
    Child(const Child &) = delete;
    Child &operator=(const Child &) = delete;
    [[nodiscard]] pid_t id() const { return id_; }
    // The exit code; -1 when it was killed or does not end.
    [[nodiscard]] int exitCode();
    [[nodiscard]] bool hasEnded();
    void kill();

private:
    pid_t id_ = -1;
    std::optional<int> status_;
};

// What it returns in a process without root's rights. Whoever has none keeps the own user, so what
// is to be forbidden has to be forbidden to the owner, too.
[[nodiscard]] int asNobody(const std::function<int()> &run);

// One-byte signals between processes.
class Pipe {
public:
    Pipe();
    ~Pipe();
    Pipe(const Pipe &) = delete;
    Pipe &operator=(const Pipe &) = delete;
    void send(char byte = '!') const;
    [[nodiscard]] char receive() const; // zero when nothing comes for a long time
    [[nodiscard]] int readEnd() const { return ends_[0]; }

private:
    int ends_[2] = {-1, -1};
};

} // namespace tonvale::test
