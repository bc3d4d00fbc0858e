// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/MediaPlayer.h"
#include "tests/unit/fakes/FakeDesktop.h"
#include "tests/unit/fakes/FakeMedia.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tonvale::test {

using Texts = std::vector<std::string>;

// The control on its own, and what it tells.
class MediaPlayerControl : public testing::Test {
protected:
    MediaPlayerControl() : player(std::make_unique<MediaPlayer>(services())) {
        player->OpenStateChange = [this](OpenState from, OpenState to) {
            told.push_back("open " + std::to_string(static_cast<int>(from)) + ">" +
                           std::to_string(static_cast<int>(to)));
        };
        player->PlayStateChange = [this](PlayState from, PlayState to) {
            told.push_back("play " + std::to_string(static_cast<int>(from)) + ">" +
                           std::to_string(static_cast<int>(to)));
        };
    }
    // What has been told since the last time.
    Texts news() {
        loop.runUntilIdle();
        return std::exchange(told, {});
    }
    [[nodiscard]] MediaServices services() { return {loop, media.factory(), screen, screenSaver}; }
    CallLog log;
    FakeLoop loop;
    FakeMedia media{log, loop};
    FakeScreen screen;
    FakeScreenSaver screenSaver;
    std::unique_ptr<MediaPlayer> player;
    Texts told;
};

} // namespace tonvale::test
