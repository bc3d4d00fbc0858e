// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/instances/RequestReader.h"

#include <poll.h>
#include <sys/socket.h>

#include <cerrno>

namespace tonvale::instances {

namespace {

constexpr std::size_t kMostClients = 32;
constexpr std::chrono::milliseconds kLongestSilence{2000};
// After a failed accept, for want of descriptors say, the listener stays readable.
constexpr int kPauseMilliseconds = 100;

bool isOurs(int socket) {
    ucred peer{};
    socklen_t size = sizeof peer;
    return ::getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == ::geteuid();
}

} // namespace

void RequestReader::run() {
    while (true) {
        std::vector<pollfd> set = watched();
        if (::poll(set.data(), set.size(), timeout()) < 0 && errno != EINTR) return;
        if (set[0].revents != 0) return;
        // Those that were asked about come first; what is accepted below is added behind them.
        std::size_t index = 2;
        std::erase_if(clients_, [&](Client &client) {
            const bool ready = set[index++].revents != 0;
            return (ready && take(client)) || client.deadline.isOver();
        });
        if (set[1].revents != 0) acceptOne();
    }
}

// With no place left the listener is not watched: newcomers wait in its queue.
std::vector<pollfd> RequestReader::watched() const {
    const bool hasRoom = clients_.size() < kMostClients;
    std::vector<pollfd> set{{stopEvent_, POLLIN, 0}, {hasRoom ? listener_.get() : -1, POLLIN, 0}};
    for (const Client &client : clients_) set.push_back({client.socket.get(), POLLIN, 0});
    return set;
}

int RequestReader::timeout() const {
    // Clients are in the order of their coming.
    return clients_.empty() ? -1 : clients_.front().deadline.milliseconds();
}

void RequestReader::acceptOne() {
    UniqueFd socket(::accept4(listener_.get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
    if (!socket) {
        pollfd stop{stopEvent_, POLLIN, 0};
        (void)::poll(&stop, 1, kPauseMilliseconds);
        return;
    }
    if (isOurs(socket.get())) clients_.push_back({std::move(socket), Deadline(kLongestSilence)});
}

bool RequestReader::take(Client &client) {
    std::string packet;
    const Received received = receivePacket(client.socket.get(), packet);
    if (received == Received::Nothing) return false;
    if (received == Received::Packet)
        if (auto message = parseRequest(packet)) sink_({std::move(client.socket), std::move(*message)});
    return true;
}

} // namespace tonvale::instances
