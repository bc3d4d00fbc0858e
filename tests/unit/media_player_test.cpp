// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/MediaPlayer.h"

#include "tests/unit/expectations.h"
#include "tests/unit/fakes/FakeDesktop.h"
#include "tests/unit/fakes/FakeMedia.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace tonvale::test {
namespace {

using Texts = std::vector<std::string>;

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

TEST_F(MediaPlayerControl, TellsOfTheOpenFileAndThenThatItPlays) {
    player->FileName("/a.mp3");
    EXPECT_EQ(player->State(), PlayState::Playing);
    EXPECT_TRUE(media.playing);
    EXPECT_EQ(news(), (Texts{"open 0>6", "play 0>2"}));
    EXPECT_EQ(news(), Texts{});
}

TEST_F(MediaPlayerControl, TellsNothingBeforeTheCallHasReturned) {
    player->FileName("/a.mp3");
    player->Pause();
    player->Stop();
    EXPECT_EQ(told, Texts{});
}

TEST_F(MediaPlayerControl, WithoutAutoStartItOnlyOpens) {
    player->AutoStart = false;
    player->FileName("/a.mp3");
    EXPECT_EQ(player->State(), PlayState::Stopped);
    EXPECT_FALSE(media.playing);
    EXPECT_EQ(news(), (Texts{"open 0>6"}));
}

TEST_F(MediaPlayerControl, PlayingWhatPlaysAlreadyIsToldOnce) {
    player->FileName("/a.mp3");
    player->Play();
    player->Play();
    EXPECT_EQ(news(), (Texts{"open 0>6", "play 0>2"}));
    EXPECT_EQ(log.count("engine.play"), 1);
}

TEST_F(MediaPlayerControl, TellsOfPauseAndResume) {
    player->FileName("/a.mp3");
    news();
    player->Pause();
    EXPECT_EQ(player->State(), PlayState::Paused);
    player->Play();
    EXPECT_EQ(news(), (Texts{"play 2>1", "play 1>2"}));
}

TEST_F(MediaPlayerControl, OnlyWhatPlaysCanBePaused) {
    player->AutoStart = false;
    player->FileName("/a.mp3");
    news();
    player->Pause();
    EXPECT_EQ(player->State(), PlayState::Stopped);
    EXPECT_EQ(news(), Texts{});
}

TEST_F(MediaPlayerControl, AStopByTheProgramIsToldOnce) {
    player->FileName("/a.mp3");
    media.position = 40;
    news();
    player->Stop();
    player->Stop();
    EXPECT_EQ(news(), (Texts{"play 2>0"}));
    EXPECT_EQ(player->CurrentPosition(), 0);
    EXPECT_EQ(player->FileName(), "/a.mp3");
}

TEST_F(MediaPlayerControl, TheEndOfTheMediaIsToldOnce) {
    player->FileName("/a.mp3");
    news();
    media.finish();
    EXPECT_EQ(news(), (Texts{"play 2>0"}));
    EXPECT_EQ(player->State(), PlayState::Stopped);
}

TEST_F(MediaPlayerControl, AnEndThatComesBehindAStopIsNotToldAgain) {
    player->FileName("/a.mp3");
    news();
    player->Stop();
    media.finish();
    EXPECT_EQ(news(), (Texts{"play 2>0"}));
}

TEST_F(MediaPlayerControl, TheEndWhilePausedIsAStop) {
    player->FileName("/a.mp3");
    player->Pause();
    news();
    media.finish();
    EXPECT_EQ(news(), (Texts{"play 1>0"}));
}

TEST_F(MediaPlayerControl, PlaysAgainAfterTheEnd) {
    player->FileName("/a.mp3");
    media.finish();
    news();
    player->Play();
    EXPECT_TRUE(media.playing);
    EXPECT_EQ(news(), (Texts{"play 0>2"}));
}

TEST_F(MediaPlayerControl, AStopThatIsFollowedByPlayIsToldAsBoth) {
    player->FileName("/a.mp3");
    news();
    player->Stop();
    player->Play();
    EXPECT_EQ(news(), (Texts{"play 2>0", "play 0>2"}));
    EXPECT_TRUE(media.playing);
}

TEST_F(MediaPlayerControl, OpeningWhilePlayingStopsTheOldFileFirst) {
    player->FileName("/a.mp3");
    news();
    player->FileName("/b.mp3");
    EXPECT_EQ(news(), (Texts{"play 2>0", "open 0>6", "play 0>2"}));
    EXPECT_EQ(media.file, "/b.mp3");
}

TEST_F(MediaPlayerControl, OpeningTheSameFileOpensItAnew) {
    player->FileName("/a.mp3");
    news();
    player->FileName("/a.mp3");
    EXPECT_EQ(news(), (Texts{"play 2>0", "open 0>6", "play 0>2"}));
    EXPECT_EQ(log.count("engine.open /a.mp3"), 2);
}

TEST_F(MediaPlayerControl, AFileThatCannotBeOpenedThrowsAndLeavesNothingOpen) {
    media.broken.insert("/bad.mp3");
    player->FileName("/a.mp3");
    news();
    EXPECT_NE(errorOf([&] { player->FileName("/bad.mp3"); }), 0);
    EXPECT_EQ(player->FileName(), "");
    EXPECT_EQ(player->State(), PlayState::Stopped);
    EXPECT_EQ(news(), (Texts{"play 2>0"}));
    player->Play();
    EXPECT_EQ(player->State(), PlayState::Stopped);
    EXPECT_EQ(news(), Texts{});
}

TEST_F(MediaPlayerControl, TheEmptyNameCloses) {
    player->FileName("/a.mp3");
    news();
    player->FileName("");
    EXPECT_EQ(player->FileName(), "");
    EXPECT_EQ(media.file, "");
    EXPECT_RUNTIME_ERROR(player->Duration(), 5);
    EXPECT_RUNTIME_ERROR(player->CurrentPosition(), 5);
    EXPECT_EQ(news(), (Texts{"play 2>0"}));
    player->FileName("");
    EXPECT_EQ(news(), Texts{});
}

TEST_F(MediaPlayerControl, WithoutAFileItsOperationsDoNothing) {
    player->Play();
    player->Pause();
    player->Stop();
    player->CurrentPosition(10);
    EXPECT_EQ(news(), Texts{});
    EXPECT_EQ(media.made, 0); // the engine is made at the first file
}

TEST_F(MediaPlayerControl, ADestroyedControlTellsNothingMore) {
    player->FileName("/a.mp3");
    media.finish();
    player.reset();
    EXPECT_EQ(news(), Texts{});
}

TEST_F(MediaPlayerControl, MayBeDestroyedByItsOwnNotification) {
    player->FileName("/a.mp3");
    player->OpenStateChange = [this](OpenState, OpenState) { player.reset(); };
    EXPECT_EQ(news(), Texts{});
    EXPECT_EQ(player, nullptr);
}

TEST_F(MediaPlayerControl, ANotificationMayPlayAgain) {
    player->FileName("/a.mp3");
    news();
    player->PlayStateChange = [this](PlayState, PlayState to) {
        told.push_back(std::to_string(static_cast<int>(to)));
        if (to == PlayState::Stopped) player->Play();
    };
    media.finish();
    EXPECT_EQ(news(), (Texts{"0", "2"}));
    EXPECT_TRUE(media.playing);
}

TEST_F(MediaPlayerControl, VolumeAndBalanceHoldForTheEngineThatIsMadeLater) {
    player->Volume(-4500);
    player->Balance(300);
    EXPECT_EQ(media.made, 0);
    player->FileName("/a.mp3");
    EXPECT_EQ(media.volume, -4500);
    EXPECT_EQ(media.balance, 300);
    player->Volume(0);
    player->Balance(-10000);
    EXPECT_EQ(media.volume, 0);
    EXPECT_EQ(media.balance, -10000);
}

TEST_F(MediaPlayerControl, RefusesVolumesAndBalancesOutOfRange) {
    EXPECT_RUNTIME_ERROR(player->Volume(1), 380);
    EXPECT_RUNTIME_ERROR(player->Volume(-10001), 380);
    EXPECT_RUNTIME_ERROR(player->Balance(10001), 380);
    EXPECT_RUNTIME_ERROR(player->Balance(-10001), 380);
    EXPECT_EQ(player->Volume(), 0);
    EXPECT_EQ(player->Balance(), 0);
}

TEST_F(MediaPlayerControl, SettlingDeliversWhatWaitsUpToTheLastStop) {
    player->FileName("/a.mp3");
    player->Stop();
    player->Play();
    player->settle();
    EXPECT_EQ(std::exchange(told, {}), (Texts{"open 0>6", "play 0>2", "play 2>0"}));
    EXPECT_EQ(news(), (Texts{"play 0>2"}));
}

TEST_F(MediaPlayerControl, SettlingWithoutAStopDeliversNothing) {
    player->FileName("/a.mp3");
    player->settle();
    EXPECT_EQ(told, Texts{});
    EXPECT_EQ(news(), (Texts{"open 0>6", "play 0>2"}));
}

TEST_F(MediaPlayerControl, ShutDownItNeitherOpensNorTells) {
    player->FileName("/a.mp3");
    player->shutDown();
    EXPECT_EQ(media.file, "");
    EXPECT_NE(errorOf([&] { player->FileName("/b.mp3"); }), 0);
    player->Play();
    EXPECT_EQ(news(), Texts{});
    EXPECT_EQ(media.file, "");
}

TEST_F(MediaPlayerControl, PositionIsTheEngines) {
    player->FileName("/a.mp3");
    player->CurrentPosition(33);
    EXPECT_EQ(media.position, 33);
    media.position = 50.25;
    EXPECT_EQ(player->CurrentPosition(), 50.25);
    EXPECT_EQ(player->SelectionStart(), 0);
    EXPECT_EQ(player->Duration(), 100);
}

TEST_F(MediaPlayerControl, WithoutAnEngineCannotCreateTheObject) {
    MediaPlayer bare{{loop, nullptr, screen, screenSaver}};
    EXPECT_RUNTIME_ERROR(bare.FileName("/a.mp3"), 429);
}

} // namespace
} // namespace tonvale::test
