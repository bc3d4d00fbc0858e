// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/machine/base/UniqueFd.h"
#include "platform/machine/instances/Protocol.h"

#include <functional>
#include <vector>

struct pollfd;

namespace tonvale::instances {

inline constexpr std::size_t kMostWaitingRequests = 256;

struct Request {
    UniqueFd socket;
    Message message;
};

// Accepts connections of this user and takes one request from each; whoever breaks a rule, or
// says nothing for too long, is dropped.
class RequestReader {
public:
    using Sink = std::function<void(Request)>;

    RequestReader(UniqueFd listener, int stopEvent, Sink sink)
        : listener_(std::move(listener)), stopEvent_(stopEvent), sink_(std::move(sink)) {}

    // Returns when the stop event is signalled.
    void run();

private:
    struct Client {
        UniqueFd socket;
        Deadline deadline;
    };

    [[nodiscard]] std::vector<pollfd> watched() const;
    [[nodiscard]] int timeout() const;
    void acceptOne();
    // Returns whether the client is done with.
    bool take(Client &client);

    UniqueFd listener_;
    int stopEvent_;
    Sink sink_;
    std::vector<Client> clients_;
};

} // namespace tonvale::instances
