// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/qt/CompanionWindows.h"

#include "core/WindowSearch.h"
#include "platform/qt/X11Windows.h"

#include <unistd.h>

#include <csignal>

namespace tonvale {

namespace {

// Handles of instances leave these bits free.
constexpr WindowHandle kX11Window = WindowHandle(1) << 63, kProcess = WindowHandle(1) << 62;
constexpr WindowHandle kNumber = 0xFFFFFFFF;

bool isOf(const X11Windows::Window &window, pid_t session) {
    return window.process > 0 && ::getsid(window.process) == session;
}

// All that it has started goes with it. No other session has this number while it runs.
void askToEnd(pid_t process) {
    if (process > 1 && ::getpgid(process) == process) (void)::kill(-process, SIGTERM);
}

} // namespace

std::vector<WindowInfo> CompanionWindows::windows() {
    std::vector<WindowInfo> result = instances_.windows();
    const std::vector<Companion> companions = running_();
    if (companions.empty()) return result;
    const std::vector<X11Windows::Window> shown = X11Windows().list();
    for (const Companion &companion : companions) {
        bool seen = false;
        for (const X11Windows::Window &window : shown) {
            if (!isOf(window, static_cast<pid_t>(companion.process))) continue;
            result.push_back({kX11Window | window.id, kFormClass, window.title});
            seen = true;
        }
        if (!seen) result.push_back({kProcess | companion.process, kFormClass, companion.title});
    }
    return result;
}

void CompanionWindows::sendClose(WindowHandle window) {
    if ((window & kX11Window) != 0) return X11Windows().askToClose(static_cast<xcb_window_t>(window & kNumber));
    if ((window & kProcess) != 0) return askToEnd(static_cast<pid_t>(window & kNumber));
    instances_.sendClose(window);
}

} // namespace tonvale
