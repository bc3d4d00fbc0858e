// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/CShellExecute.h"

#include "desktop/error_box.h"

namespace tonvale {

namespace {

constexpr std::int32_t kLastFailure = 32;
constexpr std::int32_t kHideWindow = 0;

} // namespace

std::int32_t CShellExecute::launch(const char *member, const Request &request, KeepProcess keep) {
    returned_ = 0;
    process_ = 0;
    std::int32_t result = 0;
    withErrorBox(app_, member, [&] {
        const Shell::Launch launched = app_.services.shell.execute(request.verb, request.file, request.parameters,
                                                                   request.directory, request.showCommand);
        returned_ = launched.code;
        if (keep == KeepProcess::Yes) process_ = launched.process;
        result = launched.code > kLastFailure ? kLaunched : launched.code;
    });
    return result;
}

bool CShellExecute::StillExecuting() {
    bool running = false;
    withErrorBox(app_, "StillExecuting", [&] { running = process_ != 0 && app_.services.shell.isRunning(process_); });
    return running;
}

std::int32_t CShellExecute::Explore(const std::string &folder, std::int32_t showCommand) {
    return launch("Explore", {"explore", folder, "", "", showCommand});
}

std::int32_t CShellExecute::LaunchDocument(const std::string &document, const std::string &directory,
                                           std::int32_t showCommand) {
    return launch("LaunchDocument", {"Open", document, "", directory, showCommand}, KeepProcess::Yes);
}

std::int32_t CShellExecute::LaunchEmail(const std::string &address, std::int32_t showCommand) {
    return launch("LaunchEmail", {"", "mailto:" + address, "", "", showCommand});
}

std::int32_t CShellExecute::LaunchFolder(const std::string &folder, std::int32_t showCommand) {
    return launch("LaunchFolder", {"open", folder, "", "", showCommand});
}

std::int32_t CShellExecute::LaunchProgram(const std::string &program, const std::string &parameters,
                                          const std::string &directory, std::int32_t showCommand) {
    return launch("LaunchProgram", {"Open", program, parameters, directory, showCommand}, KeepProcess::Yes);
}

std::int32_t CShellExecute::LaunchURL(const std::string &url, std::int32_t showCommand) {
    return launch("LaunchURL", {"", url, "", "", showCommand});
}

std::int32_t CShellExecute::PrintDocument(const std::string &document) {
    return launch("PrintDocument", {"print", document, "", "", kHideWindow});
}

} // namespace tonvale
