// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Hands one path to the newest running player, or starts the player when none runs.

#include "controls/Errors.h"
#include "platform/machine/base/Directories.h"
#include "platform/machine/base/Spawn.h"
#include "platform/machine/instances/InstanceClient.h"

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <climits>
#include <cstdio>
#include <cstring>
#include <exception>
#include <thread>

namespace {

using namespace tonvale;

constexpr const char *kUsage = "Usage: tonvale-open PATH\n";
constexpr int kUsageError = 2;
constexpr std::chrono::seconds kLongestTurn{20}, kLongestStart{5};
constexpr std::chrono::milliseconds kStartPoll{10};

std::string absolutePath(const std::string &path) {
    if (path.starts_with('/')) return path;
    std::array<char, PATH_MAX> directory{};
    if (::getcwd(directory.data(), directory.size()) == nullptr) throw RuntimeError(ErrorNumber::PathNotFound);
    const std::string prefix = directory.data();
    return prefix.ends_with('/') ? prefix + path : prefix + '/' + path;
}

// The player beside this program; where there is none, the one that is found by name.
std::string playerProgram() {
    const std::string beside = programDirectory() + "/tonvale";
    return ::access(beside.c_str(), X_OK) == 0 ? beside : "tonvale";
}

// So that the next file to be opened finds the player.
void waitUntilReached(InstanceClient &client, pid_t player) {
    const auto end = std::chrono::steady_clock::now() + kLongestStart;
    while (client.windows().empty() && std::chrono::steady_clock::now() < end) {
        if (::waitpid(player, nullptr, WNOHANG) == player) return; // it has ended already
        std::this_thread::sleep_for(kStartPoll);
    }
}

int startPlayer(InstanceClient &client, const std::string &path) {
    const std::string program = playerProgram();
    pid_t child = 0;
    const int error = spawnDetached(program, {path}, {}, child);
    if (error == 0) {
        waitUntilReached(client, child);
        return 0;
    }
    (void)std::fprintf(stderr, "tonvale-open: cannot start %s: %s\n", program.c_str(), std::strerror(error));
    return 1;
}

// Without a place to meet at there is nobody to take turns with either.
UniqueFd waitForTurn() {
    try {
        return instances::Rendezvous().waitForTurn(kLongestTurn);
    } catch (const RuntimeError &) {
        return {};
    }
}

int open(const std::string &argument) {
    if (argument == "--help" && ::access("--help", F_OK) != 0) return std::fputs(kUsage, stdout) < 0 ? 1 : 0;
    const std::string path = argument.empty() ? argument : absolutePath(argument);
    if (path.empty() || path.size() > instances::kLongestPath) {
        (void)std::fputs(kUsage, stderr);
        return kUsageError;
    }
    // Files that are opened all at once go to one player, which the first of them starts.
    const UniqueFd turn = waitForTurn();
    InstanceClient client;
    return client.execute(path) ? 0 : startPlayer(client, path);
}

} // namespace

int main(int argc, char **argv) {
    try {
        return open(argc == 2 ? argv[1] : "");
    } catch (const std::exception &error) {
        (void)std::fprintf(stderr, "tonvale-open: %s\n", error.what());
        return 1;
    }
}
