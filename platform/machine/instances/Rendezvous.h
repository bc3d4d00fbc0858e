// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/machine/base/UniqueFd.h"

#include <sys/types.h>

#include <chrono>
#include <string>
#include <vector>

namespace tonvale::instances {

// One instance's socket in the directory that all instances of this user share. The file's name
// tells when the process started and its id, so that names sort by age.
struct Address {
    std::string file;
    pid_t process = 0;
};

class Rendezvous {
public:
    Rendezvous(); // throws RuntimeError where there is no directory of this user alone

    // All sockets, the oldest first.
    [[nodiscard]] std::vector<Address> all() const;
    // A socket that is listening already when its name appears.
    [[nodiscard]] UniqueFd listen(const Address &address) const;
    [[nodiscard]] Address ownAddress() const;
    // Null when nobody listens; a name that a dead process has left is removed.
    [[nodiscard]] UniqueFd connect(const Address &address) const;
    void remove(const Address &address) const;
    // One process at a time holds the turn, for as long as the descriptor lives. Null when it has
    // not come within `longest`.
    [[nodiscard]] UniqueFd waitForTurn(std::chrono::milliseconds longest) const;

private:
    [[nodiscard]] std::string pathOf(const std::string &file) const;

    UniqueFd directory_;
};

} // namespace tonvale::instances
