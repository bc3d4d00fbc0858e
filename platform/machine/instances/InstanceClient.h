// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Services.h"
#include "platform/machine/instances/InstanceServer.h"
#include "platform/machine/instances/Protocol.h"
#include "platform/machine/instances/Rendezvous.h"

#include <optional>

namespace tonvale {

// The windows of all other instances. A window's handle holds the process in its upper half.
class InstanceClient : public WindowSystem {
public:
    // `own` is this process's own server, or null. While this thread waits for another instance
    // it goes on telling others about its windows, and it stops waiting for one to close when it is
    // asked to close itself, so that instances never wait for each other in a ring.
    explicit InstanceClient(InstanceServer *own = nullptr,
                            std::chrono::milliseconds longestWait = std::chrono::seconds(20));

    bool isAvailable() override;
    std::vector<WindowInfo> windows() override;
    void sendClose(WindowHandle window) override;

    // Hands the path to the newest instance that takes it; false when none does.
    bool execute(const std::string &path);

private:
    enum class Until { Answer, AnswerOrOwnClose };
    [[nodiscard]] bool waitFor(int socket, const instances::Deadline &deadline, Until until);
    [[nodiscard]] std::optional<instances::Message> receive(int socket, const instances::Deadline &deadline,
                                                            Until until = Until::Answer);
    [[nodiscard]] std::vector<instances::Address> others() const;
    void listInto(std::vector<WindowInfo> &result, const instances::Address &address);
    void closeAt(const instances::Address &address, WindowHandle local);

    InstanceServer *own_;
    std::chrono::milliseconds longestWait_;
    std::optional<instances::Rendezvous> rendezvous_;
};

} // namespace tonvale
