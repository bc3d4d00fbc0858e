// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/media/ModuleEntry.h"

#include "platform/media/engine/MpvEngine.h"

#include <cstdlib>
#include <utility>

extern "C" __attribute__((visibility("default"))) void
tonvale_make_media_engine(tonvale::EventLoop &loop, tonvale::MediaEngine::Callbacks &callbacks,
                          const tonvale::FileFinder &find, std::unique_ptr<tonvale::MediaEngine> &engine) {
    tonvale::MpvEngine::Options options;
    if (find) options.openSource = [find](const std::string &path) { return tonvale::openMediaSource(find(path)); };
    if (const char *outputs = std::getenv("TONVALE_AO")) options.outputs = outputs;
    engine = std::make_unique<tonvale::MpvEngine>(loop, std::move(callbacks), std::move(options));
}
