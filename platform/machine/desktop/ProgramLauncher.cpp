// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/desktop/ProgramLauncher.h"

#include "platform/machine/base/Spawn.h"

#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>

namespace tonvale {

namespace {

bool hasEnded(int process) {
    pollfd state{process, POLLIN, 0};
    return ::poll(&state, 1, 0) > 0;
}

// Fails for a process that is not our child, whose parent does it then.
void reap(int process) {
    siginfo_t status{};
    (void)::waitid(P_PIDFD, static_cast<id_t>(process), &status, WEXITED | WNOHANG);
}

} // namespace

std::vector<std::string> splitParameters(const std::string &parameters) {
    std::vector<std::string> result;
    bool quoted = false, inside = false;
    for (const char c : parameters) {
        if (!quoted && (c == ' ' || c == '\t')) {
            inside = false;
            continue;
        }
        if (!inside) result.emplace_back();
        inside = true;
        if (c == '"') {
            quoted = !quoted;
        } else {
            result.back() += c;
        }
    }
    return result;
}

int ProgramLauncher::start(const std::string &program, const std::string &parameters, const std::string &directory,
                           std::uint64_t &process) {
    forgetEnded();
    pid_t child = 0;
    if (const int error = spawnDetached(program, splitParameters(parameters), directory, child)) return error;
    process = static_cast<std::uint64_t>(child);
    watch(process);
    return 0;
}

void ProgramLauncher::watch(std::uint64_t process) {
    // The C library's own function cannot be called from C++ in the version that we build with.
    UniqueFd descriptor(static_cast<int>(::syscall(SYS_pidfd_open, static_cast<pid_t>(process), 0)));
    if (descriptor) running_.insert_or_assign(process, std::move(descriptor));
}

bool ProgramLauncher::isRunning(std::uint64_t process) {
    forgetEnded();
    return running_.contains(process);
}

void ProgramLauncher::forgetEnded() {
    std::erase_if(running_, [](const auto &entry) {
        const int descriptor = entry.second.get();
        if (!hasEnded(descriptor)) return false;
        reap(descriptor);
        return true;
    });
}

} // namespace tonvale
