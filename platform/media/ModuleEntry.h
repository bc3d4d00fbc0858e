// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Loop.h"
#include "controls/MediaPlayer.h"

#include <functional>
#include <memory>
#include <string>

namespace tonvale {

// The name on disk that a path finds.
using FileFinder = std::function<std::string(const std::string &path)>;

// The one thing the module shows: puts a new engine into `engine`, or throws.
using MakeMediaEngine = void(EventLoop &loop, MediaEngine::Callbacks &callbacks, const FileFinder &find,
                             std::unique_ptr<MediaEngine> &engine);

inline constexpr const char *kMakeMediaEngineSymbol = "tonvale_make_media_engine";

} // namespace tonvale
