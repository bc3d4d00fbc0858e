// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/instances/Rendezvous.h"

#include "platform/machine/base/Directories.h"
#include "platform/machine/base/Directory.h"
#include "platform/machine/base/SystemErrors.h"
#include "platform/machine/instances/Protocol.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <string_view>
#include <thread>

namespace tonvale::instances {

namespace {

constexpr std::string_view kPrefix = "instance-";
constexpr std::string_view kSuffix = ".sock";
constexpr int kBacklog = 64;
constexpr const char *kTurnFile = "opening.lock";
constexpr std::chrono::milliseconds kTurnPoll{10};
constexpr timeval kLongestConnect{2, 0};

UniqueFd makeSocket() {
    UniqueFd socket(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0));
    if (!socket) throw systemError(errno);
    return socket;
}

sockaddr_un socketAddress(const std::string &path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) throw systemError(ENAMETOOLONG);
    std::copy(path.begin(), path.end(), address.sun_path);
    return address;
}

template <class Call> int withAddress(const Call &call, int socket, const std::string &path) {
    const sockaddr_un address = socketAddress(path);
    return call(socket, reinterpret_cast<const sockaddr *>(&address), static_cast<socklen_t>(sizeof address));
}

// "instance-<start>-<process>.sock"; process 0 for any other name.
Address addressOf(std::string_view file) {
    Address address{std::string(file), 0};
    if (!file.starts_with(kPrefix) || !file.ends_with(kSuffix)) return address;
    file.remove_suffix(kSuffix.size());
    const auto process = parseHandle(file.substr(file.rfind('-') + 1));
    if (process && *process <= 0x7FFFFFFF) address.process = static_cast<pid_t>(*process);
    return address;
}

} // namespace

Rendezvous::Rendezvous() : directory_(openPrivateDirectory(runtimeDirectory())) {}

std::vector<Address> Rendezvous::all() const {
    std::vector<Address> result;
    const Directory entries(::opendir(pathOf(".").c_str()));
    if (!entries) throw systemError(errno);
    while (const dirent *entry = ::readdir(entries.get()))
        if (Address address = addressOf(entry->d_name); address.process != 0) result.push_back(std::move(address));
    std::sort(result.begin(), result.end(), [](const Address &a, const Address &b) { return a.file < b.file; });
    return result;
}

Address Rendezvous::ownAddress() const {
    timespec now{};
    if (::clock_gettime(CLOCK_BOOTTIME, &now) != 0) throw systemError(errno);
    char stamp[32];
    (void)std::snprintf(stamp, sizeof stamp, "%012lld.%09ld-", static_cast<long long>(now.tv_sec), now.tv_nsec);
    const pid_t process = ::getpid();
    return {std::string(kPrefix) + stamp + std::to_string(process) + std::string(kSuffix), process};
}

UniqueFd Rendezvous::listen(const Address &address) const {
    UniqueFd socket = makeSocket();
    // Under its final name it would refuse connections until it listens, and whoever saw that
    // would take it for a dead one and remove it.
    const std::string hidden = ".new-" + address.file;
    if (withAddress(::bind, socket.get(), pathOf(hidden)) != 0) throw systemError(errno);
    if (::listen(socket.get(), kBacklog) != 0 ||
        ::renameat(directory_.get(), hidden.c_str(), directory_.get(), address.file.c_str()) != 0) {
        const int error = errno;
        (void)::unlinkat(directory_.get(), hidden.c_str(), 0);
        throw systemError(error);
    }
    return socket;
}

UniqueFd Rendezvous::connect(const Address &address) const {
    UniqueFd socket = makeSocket();
    // Bounds the wait for a peer whose queue is full.
    if (::setsockopt(socket.get(), SOL_SOCKET, SO_SNDTIMEO, &kLongestConnect, sizeof kLongestConnect) != 0)
        throw systemError(errno);
    if (withAddress(::connect, socket.get(), pathOf(address.file)) == 0) return socket;
    if (errno == ECONNREFUSED) remove(address);
    return {};
}

void Rendezvous::remove(const Address &address) const {
    // Another process may have been quicker.
    (void)::unlinkat(directory_.get(), address.file.c_str(), 0);
}

// By way of the open directory, since a socket's address holds 107 characters only.
std::string Rendezvous::pathOf(const std::string &file) const {
    return "/proc/self/fd/" + std::to_string(directory_.get()) + "/" + file;
}

UniqueFd Rendezvous::waitForTurn(std::chrono::milliseconds longest) const {
    UniqueFd turn(::openat(directory_.get(), kTurnFile, O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR));
    const auto end = std::chrono::steady_clock::now() + longest;
    while (turn && ::flock(turn.get(), LOCK_EX | LOCK_NB) != 0) {
        if (std::chrono::steady_clock::now() >= end) return {};
        std::this_thread::sleep_for(kTurnPoll);
    }
    return turn;
}

} // namespace tonvale::instances
