// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/media/MediaModule.h"

#include "controls/Errors.h"
#include "platform/media/ModuleEntry.h"

#include <dlfcn.h>

#include <array>
#include <utility>

namespace tonvale {

namespace {

constexpr const char *kModuleName = "/tonvale-media.so";
constexpr std::array kPlaces{"", "/../lib/tonvale"};

// The module is never closed: its libraries leave threads and exit handlers behind.
void *loadModule(const std::string &programDirectory) {
    std::string reason;
    for (const char *place : kPlaces) {
        const std::string file = programDirectory + place + kModuleName;
        if (void *module = dlopen(file.c_str(), RTLD_LAZY | RTLD_LOCAL)) return module;
        const char *error = dlerror();
        if (reason.empty() && error) reason = error;
    }
    throw RuntimeError(ErrorNumber::CantCreateObject, "The media engine cannot be loaded: " + reason);
}

MakeMediaEngine *entryOf(void *module) {
    auto *entry = reinterpret_cast<MakeMediaEngine *>(dlsym(module, kMakeMediaEngineSymbol));
    if (!entry) throw RuntimeError(ErrorNumber::CantCreateObject, "The media engine is of another version");
    return entry;
}

} // namespace

MediaEngineFactory makeMediaEngineFactory(EventLoop &loop, std::string programDirectory, FileFinder find) {
    return [&loop, directory = std::move(programDirectory), find = std::move(find)](MediaEngine::Callbacks callbacks) {
        std::unique_ptr<MediaEngine> engine;
        entryOf(loadModule(directory))(loop, callbacks, find, engine);
        return engine;
    };
}

std::jthread preloadMediaModule(std::string programDirectory) {
    return std::jthread([directory = std::move(programDirectory)] {
        try {
            loadModule(directory);
        } catch (const RuntimeError &) {
            // Reported when an engine is asked for.
        }
    });
}

} // namespace tonvale
