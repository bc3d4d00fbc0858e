// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/desktop/LazyDesktop.h"

#include "platform/machine/base/Module.h"

namespace tonvale {

namespace {

constexpr std::int32_t kNoAssociation = 31;

} // namespace

DesktopModule &LazyDesktop::module() {
    std::call_once(loaded_, [this] {
        auto *make =
            reinterpret_cast<DesktopModuleFunction *>(symbolOfModule("tonvale-desktop.so", kDesktopModuleSymbol));
        if (make != nullptr) make(files_, module_);
    });
    return module_;
}

Shell::Launch LazyDesktop::LazyShell::execute(const std::string &verb, const std::string &file,
                                              const std::string &parameters, const std::string &directory,
                                              std::int32_t showCommand) {
    Shell *shell = desktop_.module().shell.get();
    return shell != nullptr ? shell->execute(verb, file, parameters, directory, showCommand) : Launch{kNoAssociation};
}

bool LazyDesktop::LazyShell::isRunning(std::uint64_t process) {
    // What has not been loaded has started nothing.
    return process != 0 && desktop_.module().shell && desktop_.module().shell->isRunning(process);
}

} // namespace tonvale
