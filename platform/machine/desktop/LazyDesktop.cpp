// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/desktop/LazyDesktop.h"

#include "controls/Text.h"
#include "core/batch_converter.h"
#include "platform/machine/base/Module.h"

namespace tonvale {

namespace {

constexpr std::int32_t kNoAssociation = 31;

bool isBatchConverter(const std::string &file) {
    const std::string name = lowerCase(file.substr(file.find_last_of('/') + 1));
    return name.substr(0, name.rfind('.')) == batch_converter::kProgram;
}

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
    if (shell == nullptr) return {kNoAssociation};
    const Launch launch = shell->execute(verb, file, parameters, directory, showCommand);
    if (launch.process != 0 && isBatchConverter(file)) desktop_.batchConverters_.push_back(launch.process);
    return launch;
}

std::vector<std::uint64_t> LazyDesktop::batchConverters() {
    std::erase_if(batchConverters_, [this](std::uint64_t process) { return !shell_.isRunning(process); });
    return batchConverters_;
}

bool LazyDesktop::LazyShell::isRunning(std::uint64_t process) {
    // What has not been loaded has started nothing.
    return process != 0 && desktop_.module().shell && desktop_.module().shell->isRunning(process);
}

} // namespace tonvale
