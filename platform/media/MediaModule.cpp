// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/media/MediaModule.h"

#include "controls/Errors.h"
#include "platform/machine/base/Module.h"
#include "platform/media/ModuleEntry.h"

#include <utility>

namespace tonvale {

namespace {

constexpr const char *kModule = "tonvale-media.so";

MakeMediaEngine *entry(const std::string &programDirectory) {
    return reinterpret_cast<MakeMediaEngine *>(symbolOfModule(kModule, kMakeMediaEngineSymbol, programDirectory));
}

} // namespace

MediaEngineFactory makeMediaEngineFactory(EventLoop &loop, std::string programDirectory, FileFinder find) {
    return [&loop, directory = std::move(programDirectory), find = std::move(find)](MediaEngine::Callbacks callbacks) {
        auto *make = entry(directory);
        if (make == nullptr)
            throw RuntimeError(ErrorNumber::CantCreateObject,
                               std::string("The media engine cannot be loaded: ") + kModule);
        std::unique_ptr<MediaEngine> engine;
        make(loop, callbacks, find, engine);
        return engine;
    };
}

std::jthread preloadMediaModule(std::string programDirectory) {
    // A failure comes again when an engine is asked for.
    return std::jthread([directory = std::move(programDirectory)] { (void)entry(directory); });
}

} // namespace tonvale
