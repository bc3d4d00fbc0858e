// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/base/Spawn.h"

#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

#include <csignal>

namespace tonvale {

namespace {

class SpawnSettings {
public:
    SpawnSettings() {
        if (error_ == 0) error_ = ::posix_spawnattr_init(&attributes_);
        if (error_ == 0) error_ = ::posix_spawn_file_actions_init(&actions_);
    }
    ~SpawnSettings() {
        (void)::posix_spawn_file_actions_destroy(&actions_);
        (void)::posix_spawnattr_destroy(&attributes_);
    }
    SpawnSettings(const SpawnSettings &) = delete;
    SpawnSettings &operator=(const SpawnSettings &) = delete;

    void detach() {
        sigset_t none;
        if (error_ == 0 && ::sigemptyset(&none) != 0) error_ = errno;
        if (error_ == 0) error_ = ::posix_spawnattr_setsigmask(&attributes_, &none);
        if (error_ == 0) error_ = ::posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK);
        if (error_ == 0) error_ = ::posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    }
    void startIn(const std::string &directory) {
        if (error_ == 0 && !directory.empty())
            error_ = ::posix_spawn_file_actions_addchdir_np(&actions_, directory.c_str());
    }
    [[nodiscard]] int spawn(const char *program, char *const *arguments, pid_t &child) const {
        return error_ != 0 ? error_ : ::posix_spawnp(&child, program, &actions_, &attributes_, arguments, environ);
    }

private:
    posix_spawnattr_t attributes_{};
    posix_spawn_file_actions_t actions_{};
    int error_ = 0;
};

} // namespace

int spawnDetached(const std::string &program, std::vector<std::string> arguments, const std::string &directory,
                  pid_t &child) {
    arguments.insert(arguments.begin(), program);
    std::vector<char *> pointers;
    for (std::string &argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    SpawnSettings settings;
    settings.detach();
    settings.startIn(directory);
    return settings.spawn(program.c_str(), pointers.data(), child);
}

} // namespace tonvale
