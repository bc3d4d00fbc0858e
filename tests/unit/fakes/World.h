// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Application.h"
#include "core/Main.h"
#include "core/setting_keys.h"
#include "desktop/Settings.h"
#include "desktop/register.h"
#include "player/Form1.h"
#include "player/register.h"
#include "tests/unit/fakes/CallLog.h"
#include "tests/unit/fakes/FakeCD.h"
#include "tests/unit/fakes/FakeCodecs.h"
#include "tests/unit/fakes/FakeDesktop.h"
#include "tests/unit/fakes/FakeFiles.h"
#include "tests/unit/fakes/FakeLoop.h"
#include "tests/unit/fakes/FakeMedia.h"
#include "tests/unit/fakes/FakeMixer.h"
#include "tests/unit/fakes/FakeOwnWindows.h"
#include "tests/unit/fakes/FakeRegistry.h"
#include "viewers/register.h"

#include <memory>
#include <string>
#include <vector>

namespace tonvale::test {

using Texts = std::vector<std::string>;

// A machine without hardware, and the program on it. What lies on the machine is arranged before
// app() is asked for the first time.
class World {
public:
    World() = default;
    // Windows that were unloaded last wait in the loop for their end, and need the program for it.
    ~World() { loop.runUntilIdle(); }
    World(const World &) = delete;
    World &operator=(const World &) = delete;

    CallLog log;
    FakeLoop loop;
    FakeClock clock{loop};
    FakeRegistry registry{log};
    FakeFiles files{log};
    FakeBoxes boxes{log, loop};
    FakeDialogs dialogs{log, loop};
    FakeShell shell;
    FakeRecentDocuments documents{log};
    FakeScreen screen;
    FakeScreenSaver screenSaver;
    FakeSystemProperties systemProperties;
    FakeKeyboard keyboard;
    FakeWindows windows{log};
    FakeMixer mixer{log};
    FakeRandom random;
    FakeMedia media{log, loop};
    FakeCD cd{log};
    FakeCodecs codecs{log, loop, files};
    FakeAssociations associations{log};
    ProgramInfo program{"Orvane Tonvale", "/opt/tonvale", ""};

    // The program's shared part, its windows made known.
    Application &app() {
        if (!app_) {
            app_ = std::make_unique<Application>(services());
            registerDesktopWindows(*app_);
            registerPlayerWindows(*app_);
            registerViewerWindows(*app_);
            registerOtherWindows();
        }
        return *app_;
    }
    // Starts the program; its main window is loaded and shown.
    Form1 &start(const std::string &commandLine = {}) {
        app().services.program.commandLine = commandLine;
        result = Main(app());
        loop.runUntilIdle();
        return *app_->form1;
    }
    StartResult result = StartResult::Failed;

    void setSetting(const std::string &key, const std::string &value) {
        SettingsStore(registry).SaveSetting(program.title, setting::kSection, key, value);
    }
    // "(none)" for a key that is not there.
    [[nodiscard]] std::string setting(const std::string &key) {
        return SettingsStore(registry).GetSetting(program.title, setting::kSection, key, "(none)");
    }

    void runUntilIdle() { loop.runUntilIdle(); }
    void advance(std::int64_t milliseconds) { loop.advance(milliseconds); }

private:
    [[nodiscard]] Services services() {
        return {loop,
                clock,
                registry,
                files,
                boxes,
                dialogs,
                shell,
                documents,
                screen,
                screenSaver,
                systemProperties,
                keyboard,
                windows,
                mixer,
                random,
                media.factory(),
                cd.factory(),
                codecs.encoderFactory(),
                codecs.decoderFactory(),
                &associations,
                program};
    }
    void registerOtherWindows() {
        app_->VivoPlayer.setFactory([this] { return std::make_unique<FakeVivoWindow>(app_->forms, log); });
        app_->frmPlayList.setFactory(
            [this] { return std::make_unique<FakeListWindow>(app_->forms, "frmPlayList", log); });
        app_->frmVivoPlayList.setFactory(
            [this] { return std::make_unique<FakeListWindow>(app_->forms, "frmVivoPlayList", log); });
    }

    std::unique_ptr<Application> app_; // last, so that it goes before the machine
};

} // namespace tonvale::test
