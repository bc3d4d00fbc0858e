// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/machine/base/UniqueFd.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace tonvale {

// Blanks separate; double quotes hold together what has blanks, and go.
[[nodiscard]] std::vector<std::string> splitParameters(const std::string &parameters);

// Starts programs, each in a session of its own, and knows which of them still run.
class ProgramLauncher {
public:
    // The errno of a failure, or 0. `process` names the program for isRunning.
    [[nodiscard]] int start(const std::string &program, const std::string &parameters, const std::string &directory,
                            std::uint64_t &process);
    // For processes that something else has started.
    void watch(std::uint64_t process);
    [[nodiscard]] bool isRunning(std::uint64_t process);

private:
    void forgetEnded();

    std::map<std::uint64_t, UniqueFd> running_; // by process id, with a descriptor that outlives its reuse
};

} // namespace tonvale
