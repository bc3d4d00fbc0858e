// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/InstanceWindows.h"
#include "app/WhenOnScreen.h"
#include "core/Application.h"
#include "platform/machine/desktop/LazyDesktop.h"
#include "platform/machine/files/PosixFileService.h"
#include "platform/machine/instances/InstanceClient.h"
#include "platform/machine/instances/InstanceServer.h"
#include "platform/machine/mixer/SystemMixer.h"
#include "platform/machine/registry/SqliteRegistry.h"
#include "platform/machine/time/SystemClock.h"
#include "platform/machine/time/SystemRandom.h"
#include "platform/qt/CompanionWindows.h"
#include "platform/qt/DesktopServices.h"
#include "platform/qt/MprisPlayer.h"
#include "platform/qt/QtEventLoop.h"
#include "platform/qt/QtFileDialogs.h"
#include "platform/qt/QtMessageBoxes.h"
#include "platform/qt/QtScreen.h"
#include "player/Form1Remote.h"
#include "ui/Views.h"

#include <memory>
#include <span>
#include <string>
#include <thread>
#include <vector>

namespace tonvale {

// Everything there is, put together: the machine, the logic upon it, and the windows.
class Program {
public:
    Program(std::span<char *const> arguments, SystemMixer &mixer);
    // Returns the process's exit code.
    int run();

private:
    [[nodiscard]] Services services(std::span<char *const> arguments);
    [[nodiscard]] std::unique_ptr<InstanceServer> listen();
    [[nodiscard]] std::vector<CompanionWindows::Companion> companions();
    void appear();
    void end();

    QtEventLoop loop_; // first: whatever has threads posts to it
    SystemClock clock_;
    SystemRandom random_;
    SqliteRegistry registry_;
    PosixFileService files_;
    QtMessageBoxes boxes_;
    QtFileDialogs dialogs_;
    QtScreen screen_;
    DesktopScreenSaver screenSaver_;
    DesktopKeyboard keyboard_;
    LazyDesktop desktop_{files_};
    DesktopProperties systemProperties_{desktop_.shell()};
    SystemMixer &mixer_;
    InstanceWindows instanceWindows_;
    std::unique_ptr<InstanceServer> server_; // null where this user has no place for a socket
    InstanceClient otherInstances_;
    CompanionWindows otherWindows_{otherInstances_, [this] { return companions(); }};
    std::jthread mediaPreload_;
    Application app_;
    Views views_{app_.forms};
    Form1Remote remote_{app_};
    std::unique_ptr<MprisPlayer> mpris_;
    WhenOnScreen onScreen_{[this] { appear(); }};
    Connection lastFormUnloaded_;
};

} // namespace tonvale
