// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Application.h"

#include <cstdint>
#include <string>

namespace tonvale {

// Launches documents, folders, addresses and programs. Each launch returns kLaunched, or the code
// of its failure (below 33).
class CShellExecute {
public:
    explicit CShellExecute(Application &app) : app_(app) {}

    static constexpr std::int32_t kLaunched = -1;

    // Whether the program or document launched last runs still.
    bool StillExecuting();
    std::int32_t Explore(const std::string &folder, std::int32_t showCommand);
    std::int32_t LaunchDocument(const std::string &document, const std::string &directory, std::int32_t showCommand);
    std::int32_t LaunchEmail(const std::string &address, std::int32_t showCommand);
    std::int32_t LaunchFolder(const std::string &folder, std::int32_t showCommand);
    std::int32_t LaunchProgram(const std::string &program, const std::string &parameters, const std::string &directory,
                               std::int32_t showCommand);
    std::int32_t LaunchURL(const std::string &url, std::int32_t showCommand);
    std::int32_t PrintDocument(const std::string &document);

private:
    enum class KeepProcess { No, Yes };
    struct Request {
        std::string verb, file, parameters, directory;
        std::int32_t showCommand = 0;
    };
    std::int32_t launch(const char *member, const Request &request, KeepProcess keep = KeepProcess::No);

    Application &app_;
    std::int32_t returned_ = 0;
    std::uint64_t process_ = 0;
};

} // namespace tonvale
