// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/Program.h"

#include "app/EndSignals.h"
#include "app/command_line.h"
#include "cd/register.h"
#include "controls/Errors.h"
#include "core/Main.h"
#include "core/batch_converter.h"
#include "desktop/register.h"
#include "platform/codec/codec_controls.h"
#include "platform/machine/base/Directories.h"
#include "platform/media/MediaModule.h"
#include "player/Form1.h"
#include "player/register.h"
#include "playlists/register.h"
#include "ui/emblem.h"
#include "viewers/register.h"

#include <QApplication>
#include <QLoggingCategory>

#include <cstdlib>

namespace tonvale {

namespace {

void logSkipped(const ErrObject &error) {
    static const QLoggingCategory category("tonvale.skipped", QtWarningMsg);
    qCDebug(category, "%d %s", error.Number, error.Description.c_str());
}

} // namespace

Program::Program(std::span<char *const> arguments, SystemMixer &mixer)
    : mixer_(mixer), server_(listen()), otherInstances_(server_.get()), app_(services(arguments)) {
    app_.Err.onSkipped = logSkipped;
    instanceWindows_.watch(app_.forms);
    lastFormUnloaded_ = app_.forms.lastFormUnloaded.connect([this] { loop_.quit(); });
    registerPlayerWindows(app_);
    registerDesktopWindows(app_);
    registerViewerWindows(app_);
    registerPlaylistWindows(app_);
    registerConversionWindows(app_);
    // A file is going to be played, so the decoders load beside the window.
    if (!app_.services.program.commandLine.empty()) mediaPreload_ = preloadMediaModule(programDirectory());
}

Services Program::services(std::span<char *const> arguments) {
    return {
        .loop = loop_,
        .clock = clock_,
        .registry = registry_,
        .files = files_,
        .boxes = boxes_,
        .dialogs = dialogs_,
        .shell = desktop_.shell(),
        .recentDocuments = desktop_.recentDocuments(),
        .screen = screen_,
        .screenSaver = screenSaver_,
        .systemProperties = systemProperties_,
        .keyboard = keyboard_,
        .windows = otherWindows_,
        .mixer = mixer_,
        .random = random_,
        .makeMediaEngine = makeMediaEngineFactory(loop_, programDirectory(),
                                                  [this](const std::string &path) { return files_.find(path); }),
        .makeCDReader = [] { return std::make_unique<AbsentCDReader>(); },
        .makeMp3Enc = [this] { return makeMp3Enc(loop_, [this](const auto &path) { return files_.find(path); }); },
        .makeMp3Play = [this] { return makeMp3Play(loop_, [this](const auto &path) { return files_.find(path); }); },
        .program = {.directory = programDirectory(), .commandLine = commandLine(arguments, files_)}};
}

std::unique_ptr<InstanceServer> Program::listen() {
    InstanceServer::Handlers handlers;
    handlers.windows = [this] { return instanceWindows_.list(); };
    handlers.close = [this](WindowHandle window) { instanceWindows_.close(window); };
    handlers.execute = [this](std::string command) {
        std::int16_t cancel = 0;
        if (app_.form1.isLoaded()) app_.form1->Form_LinkExecute(command, cancel);
    };
    try {
        return std::make_unique<InstanceServer>(loop_, std::move(handlers));
    } catch (const RuntimeError &error) {
        qWarning("tonvale: other instances cannot reach this one: %s", error.what());
        return nullptr;
    }
}

std::vector<CompanionWindows::Companion> Program::companions() {
    std::vector<CompanionWindows::Companion> list;
    for (const std::uint64_t process : desktop_.batchConverters()) list.push_back({process, batch_converter::kTitle});
    return list;
}

int Program::run() {
    const EndSignals signals([this] { end(); });
    const StartResult started = Main(app_);
    mixer_.endPreload();
    switch (started) {
    case StartResult::Failed: return EXIT_FAILURE;
    case StartResult::Closed: break;
    case StartResult::Running:
        loop_.run();
        end(); // a session that ends stops the loop only
        break;
    }
    return EXIT_SUCCESS;
}

// What other programs see of this one, apart from its windows.
void Program::appear() {
    QApplication::setWindowIcon(emblemIcon());
    mpris_ = std::make_unique<MprisPlayer>(remote_);
}

// The quit is for a box that is up before there is a main window.
void Program::end() {
    app_.form1.Unload();
    loop_.quit();
}

} // namespace tonvale
