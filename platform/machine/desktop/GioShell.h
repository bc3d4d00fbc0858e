// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Services.h"
#include "platform/machine/desktop/GlibHandles.h"
#include "platform/machine/desktop/ProgramLauncher.h"

namespace tonvale {

// Starts programs themselves, and all else by the desktop's handlers.
class GioShell : public Shell {
public:
    explicit GioShell(FileService &files) : files_(files) {}

    Launch execute(const std::string &verb, const std::string &file, const std::string &parameters,
                   const std::string &directory, std::int32_t showCommand) override;
    bool isRunning(std::uint64_t process) override { return launcher_.isRunning(process); }

private:
    [[nodiscard]] Launch openAddress(const std::string &scheme, const std::string &address);
    [[nodiscard]] Launch openPath(const std::string &path, const std::string &parameters, const std::string &directory);
    [[nodiscard]] Launch explore(const std::string &path);
    [[nodiscard]] Launch openWithHandler(const std::string &path);
    [[nodiscard]] Launch launch(GAppInfo *handler, const std::string &address);

    FileService &files_;
    ProgramLauncher launcher_;
};

} // namespace tonvale
