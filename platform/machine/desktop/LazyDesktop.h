// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/machine/desktop/DesktopModule.h"
#include "platform/machine/desktop/RecentDocumentsQueue.h"

#include <cstdint>
#include <mutex>
#include <string>
#include <vector>

namespace tonvale {

// The desktop's services, whose libraries are loaded when the first of them is used.
class LazyDesktop {
public:
    // `files` has to allow use on several threads.
    explicit LazyDesktop(FileService &files) : files_(files) {}

    [[nodiscard]] Shell &shell() { return shell_; }
    [[nodiscard]] RecentDocuments &recentDocuments() { return recentDocuments_; }
    // The processes of the batch converter that have been started here and still run.
    [[nodiscard]] std::vector<std::uint64_t> batchConverters();

private:
    class LazyShell : public Shell {
    public:
        explicit LazyShell(LazyDesktop &desktop) : desktop_(desktop) {}
        Launch execute(const std::string &verb, const std::string &file, const std::string &parameters,
                       const std::string &directory, std::int32_t showCommand) override;
        bool isRunning(std::uint64_t process) override;

    private:
        LazyDesktop &desktop_;
    };

    // Any thread.
    [[nodiscard]] DesktopModule &module();

    FileService &files_;
    std::once_flag loaded_;
    DesktopModule module_; // set once
    LazyShell shell_{*this};
    std::vector<std::uint64_t> batchConverters_;
    // Last, so that its waiting work is done while the rest is still there.
    RecentDocumentsQueue recentDocuments_{[this] { return module().recentDocuments.get(); }};
};

} // namespace tonvale
