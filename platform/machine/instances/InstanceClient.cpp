// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/instances/InstanceClient.h"

#include "controls/Errors.h"

#include <poll.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace tonvale {

using namespace instances;

namespace {

constexpr unsigned kProcessShift = 32;
constexpr WindowHandle kLocalMask = 0xFFFFFFFF;

WindowHandle globalHandle(const Address &address, WindowHandle local) {
    return static_cast<WindowHandle>(address.process) << kProcessShift | local;
}

std::optional<Rendezvous> meet() {
    try {
        return std::optional<Rendezvous>(std::in_place);
    } catch (const RuntimeError &) {
        return std::nullopt; // isAvailable tells
    }
}

} // namespace

InstanceClient::InstanceClient(InstanceServer *own, std::chrono::milliseconds longestWait)
    : own_(own), longestWait_(longestWait), rendezvous_(meet()) {}

bool InstanceClient::isAvailable() { return rendezvous_.has_value(); }

std::vector<WindowInfo> InstanceClient::windows() {
    std::vector<WindowInfo> result;
    for (const Address &address : others()) listInto(result, address);
    return result;
}

void InstanceClient::sendClose(WindowHandle window) {
    const auto process = static_cast<pid_t>(window >> kProcessShift);
    for (const Address &address : others())
        if (address.process == process) closeAt(address, window & kLocalMask);
}

bool InstanceClient::execute(const std::string &path) {
    std::vector<Address> newestFirst = others();
    std::reverse(newestFirst.begin(), newestFirst.end());
    // The receiver takes one quote away at each end.
    const std::string command = '"' + path + '"';
    return std::any_of(newestFirst.begin(), newestFirst.end(), [&](const Address &address) {
        const UniqueFd socket = rendezvous_->connect(address);
        if (!socket || !sendMessage(socket.get(), Kind::Execute, command)) return false;
        const auto answer = receive(socket.get(), Deadline(longestWait_));
        return answer && answer->kind == Kind::Accepted;
    });
}

std::vector<Address> InstanceClient::others() const {
    if (!rendezvous_) return {};
    std::vector<Address> all = rendezvous_->all();
    if (own_ != nullptr)
        std::erase_if(all, [this](const Address &address) { return address.file == own_->socketFile(); });
    return all;
}

void InstanceClient::listInto(std::vector<WindowInfo> &result, const Address &address) {
    const UniqueFd socket = rendezvous_->connect(address);
    if (!socket || !sendMessage(socket.get(), Kind::List)) return;
    const Deadline deadline(longestWait_);
    for (std::size_t i = 0; i < kMostWindows; ++i) {
        const auto answer = receive(socket.get(), deadline);
        if (!answer || answer->kind != Kind::Window) return;
        auto window = unpackWindow(answer->text);
        if (!window || window->handle > kLocalMask) return;
        window->handle = globalHandle(address, window->handle);
        result.push_back(std::move(*window));
    }
}

void InstanceClient::closeAt(const Address &address, WindowHandle local) {
    const UniqueFd socket = rendezvous_->connect(address);
    if (!socket || !sendMessage(socket.get(), Kind::Close, std::to_string(local))) return;
    const Deadline deadline(longestWait_);
    const auto answer = receive(socket.get(), deadline, Until::AnswerOrOwnClose);
    // The connection's end is the process's end.
    if (answer && answer->kind == Kind::Leaving) (void)receive(socket.get(), deadline, Until::AnswerOrOwnClose);
}

// Nothing when the peer has gone, the time is over or this process itself is to close.
std::optional<Message> InstanceClient::receive(int socket, const Deadline &deadline, Until until) {
    std::string packet;
    while (waitFor(socket, deadline, until)) {
        const Received received = receivePacket(socket, packet);
        if (received == Received::Gone || (received == Received::Packet && packet.empty())) return std::nullopt;
        if (received == Received::Packet) return Message{static_cast<Kind>(packet.front()), packet.substr(1)};
    }
    return std::nullopt;
}

// Returns false when waiting any longer is of no use.
bool InstanceClient::waitFor(int socket, const Deadline &deadline, Until until) {
    std::array<pollfd, 2> set{{{socket, POLLIN, 0}, {own_ != nullptr ? own_->requestsFd() : -1, POLLIN, 0}}};
    while (true) {
        if (own_ != nullptr) own_->answerLists();
        if (until == Until::AnswerOrOwnClose && own_ != nullptr && own_->isAskedToClose()) return false;
        if (deadline.isOver()) return false;
        if (::poll(set.data(), set.size(), deadline.milliseconds()) < 0 && errno != EINTR) return false;
        if (set[0].revents != 0) return true;
    }
}

} // namespace tonvale
