// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/backend/machine/Support.h"

#include <poll.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <thread>

namespace tonvale::test {

namespace {

constexpr std::chrono::milliseconds kLookAgain{2};
constexpr unsigned kNobody = 65534;

// So that its owner can remove what is in it.
void openDirectoriesBelow(const std::string &path) {
    namespace fs = std::filesystem;
    std::error_code error;
    fs::permissions(path, fs::perms::owner_all, error);
    for (fs::recursive_directory_iterator entry(path, error), end; !error && entry != end; entry.increment(error))
        if (fs::is_directory(entry->symlink_status(error))) fs::permissions(entry->path(), fs::perms::owner_all, error);
}

} // namespace

ScratchHome::ScratchHome() {
    std::string pattern = "/tmp/tonvale-test-XXXXXX";
    if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no scratch directory");
    path_ = pattern;
    const auto point = [this](const char *variable, const std::string &below) {
        std::filesystem::create_directory(path_ + below);
        std::filesystem::permissions(path_ + below, std::filesystem::perms::owner_all);
        if (::setenv(variable, (path_ + below).c_str(), 1) != 0) throw std::runtime_error("setenv");
    };
    point("HOME", "");
    point("XDG_CONFIG_HOME", "/config");
    point("XDG_CACHE_HOME", "/cache");
    point("XDG_DATA_HOME", "/data");
    point("XDG_RUNTIME_DIR", "/run");
}

ScratchHome::~ScratchHome() {
    std::error_code ignored;
    openDirectoriesBelow(path_);
    std::filesystem::remove_all(path_, ignored);
}

void writeFile(const std::string &path, const std::string &text) {
    std::ofstream file(path, std::ios::binary);
    file << text;
    if (!file.flush()) throw std::runtime_error("cannot write " + path);
}

std::string readFile(const std::string &path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

bool exists(const std::string &path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0;
}

int errorOf(const std::function<void()> &operation) {
    try {
        operation();
    } catch (const RuntimeError &error) {
        return error.number();
    }
    return 0;
}

bool waitUntil(const std::function<bool()> &condition, int seconds) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(kLookAgain);
    }
    return true;
}

Child::Child(const std::function<int()> &run) : id_(::fork()) {
    if (id_ < 0) throw std::runtime_error("fork");
    if (id_ > 0) return;
    int code = 99;
    try {
        code = run();
    } catch (const std::exception &error) {
        std::cerr << "child: " << error.what() << std::endl;
    }
    ::_exit(code);
}

Child::~Child() {
    if (!hasEnded()) kill();
}

int Child::exitCode() {
    if (!waitUntil([this] { return hasEnded(); }, 60)) return -1;
    return WIFEXITED(*status_) ? WEXITSTATUS(*status_) : -1;
}

bool Child::hasEnded() {
    int status = 0;
    if (!status_ && ::waitpid(id_, &status, WNOHANG) == id_) status_ = status;
    return status_.has_value();
}

void Child::kill() {
    int status = 0;
    if (status_ || ::kill(id_, SIGKILL) != 0) return;
    if (::waitpid(id_, &status, 0) == id_) status_ = status;
}

int asNobody(const std::function<int()> &run) {
    return Child([&] {
               if (::geteuid() == 0 && (::setgid(kNobody) != 0 || ::setuid(kNobody) != 0)) return 98;
               return run();
           })
        .exitCode();
}

Pipe::Pipe() {
    if (::pipe(ends_) != 0) throw std::runtime_error("pipe");
}

Pipe::~Pipe() {
    for (const int end : ends_) (void)::close(end);
}

void Pipe::send(char byte) const {
    if (::write(ends_[1], &byte, 1) != 1) throw std::runtime_error("write");
}

char Pipe::receive() const {
    pollfd ready{ends_[0], POLLIN, 0};
    char byte = 0;
    if (::poll(&ready, 1, 30000) != 1 || ::read(ends_[0], &byte, 1) != 1) return 0;
    return byte;
}

} // namespace tonvale::test
