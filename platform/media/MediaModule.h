// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Loop.h"
#include "controls/MediaPlayer.h"
#include "platform/media/ModuleEntry.h"

#include <string>
#include <thread>

namespace tonvale {

// The engines come from a shared module that is loaded with the first of them, so that a program
// that plays nothing never maps the decoders. It lies in `programDirectory` or, installed, in
// ../lib/orvane-tonvale from there. Without it, making an engine throws error 429.
//
// `find` says what a path is called on disk; without it, paths are taken as they are.
//
// The variable TONVALE_AO names other sound outputs than pulse, alsa and null, in that order.
[[nodiscard]] MediaEngineFactory makeMediaEngineFactory(EventLoop &loop, std::string programDirectory,
                                                        FileFinder find = {});

// Maps the module in the background, so that the first file need not wait for it.
[[nodiscard]] std::jthread preloadMediaModule(std::string programDirectory);

} // namespace tonvale
