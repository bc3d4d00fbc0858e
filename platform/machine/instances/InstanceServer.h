// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Loop.h"
#include "core/Services.h"
#include "platform/machine/base/UniqueFd.h"
#include "platform/machine/instances/Rendezvous.h"

#include <functional>
#include <memory>
#include <thread>

namespace tonvale {

// Lets other processes of this user reach this one: list its windows, close one, hand over a
// path. A thread of its own takes the requests in; they are served on the user-interface thread.
class InstanceServer {
public:
    // All are called on the user-interface thread.
    struct Handlers {
        // Handles have 32 bits at most. None means that the process is about to end.
        std::function<std::vector<WindowInfo>()> windows;
        std::function<void(const std::string &command)> execute;
        std::function<void(WindowHandle window)> close; // returns when the window has gone
    };

    // Throws RuntimeError where this user has no place for a socket.
    InstanceServer(EventLoop &loop, Handlers handlers);
    ~InstanceServer();
    InstanceServer(const InstanceServer &) = delete;
    InstanceServer &operator=(const InstanceServer &) = delete;

    [[nodiscard]] const std::string &socketFile() const { return address_.file; }

    // For a user-interface thread that waits for another instance, and would otherwise keep that
    // one waiting for itself: readable when requests have come, which answerLists then serves
    // so far as they run no handler that changes anything.
    [[nodiscard]] int requestsFd() const;
    void answerLists();
    [[nodiscard]] bool isAskedToClose() const;

private:
    struct Shared;

    instances::Rendezvous rendezvous_;
    instances::Address address_;
    std::shared_ptr<Shared> shared_;
    std::thread thread_;
};

} // namespace tonvale
