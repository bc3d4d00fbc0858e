// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/unit/MediaPlayerControl.h"
#include "tests/unit/expectations.h"

#include <utility>

namespace tonvale::test {
namespace {

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

TEST_F(MediaPlayerControl, AStopThatIsFollowedByPlayAtOnceHasNeverBeen) {
    player->FileName("/a.mp3");
    media.position = 40;
    news();
    player->Stop();
    player->Play();
    EXPECT_EQ(news(), Texts{});
    EXPECT_TRUE(media.playing);
    EXPECT_EQ(log.count("engine.stop"), 1);
    EXPECT_EQ(media.position, 0);
}

TEST_F(MediaPlayerControl, TheChangesAroundSuchAStopBecomeOne) {
    player->FileName("/a.mp3");
    player->Stop();
    player->Play();
    EXPECT_EQ(news(), (Texts{"open 0>6", "play 0>2"}));
    player->Pause();
    player->Stop();
    player->Play();
    EXPECT_EQ(news(), Texts{});
    player->Pause();
    news();
    player->Stop();
    player->Play();
    EXPECT_EQ(news(), (Texts{"play 1>2"}));
}

TEST_F(MediaPlayerControl, AStopThatHasBeenToldIsAStop) {
    player->FileName("/a.mp3");
    news();
    player->Stop();
    player->settle();
    player->Play();
    EXPECT_EQ(news(), (Texts{"play 2>0", "play 0>2"}));
}

TEST_F(MediaPlayerControl, AStopBeforeAnotherFileIsToldFirst) {
    player->FileName("/a.mp3");
    news();
    player->Stop();
    player->FileName("/b.mp3");
    player->Play();
    EXPECT_EQ(news(), (Texts{"play 2>0", "open 0>6", "play 0>2"}));
}

TEST_F(MediaPlayerControl, AnEndThatIsFollowedByPlayAtOnceIsNoStop) {
    player->FileName("/a.mp3");
    news();
    player->PlayStateChange = [this](PlayState, PlayState) { told.push_back("change"); };
    media.finish();
    loop.post([this] { player->Play(); }); // between the end and the news of it
    loop.runUntilIdle();
    EXPECT_TRUE(media.playing);
    EXPECT_EQ(player->State(), PlayState::Playing);
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
    player->settle();
    EXPECT_EQ(std::exchange(told, {}), (Texts{"open 0>6", "play 0>2", "play 2>0"}));
    player->Play();
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

TEST_F(MediaPlayerControl, WhatAStopsListenerOpensMakesWayForTheFileThatIsOpened) {
    player->FileName("/a.mp3");
    loop.runUntilIdle();
    bool opened = false;
    player->PlayStateChange = [&](PlayState, PlayState to) {
        if (to != PlayState::Stopped || std::exchange(opened, true)) return;
        player->FileName("/z.mp3");
    };
    player->FileName("/b.mp3");
    loop.runUntilIdle();
    EXPECT_TRUE(opened);
    EXPECT_EQ(player->FileName(), "/b.mp3");
    EXPECT_EQ(media.file, "/b.mp3");
    EXPECT_TRUE(media.playing);
}

TEST_F(MediaPlayerControl, NothingIsOpenedWhereAStopsListenerShutsDown) {
    player->FileName("/a.mp3");
    loop.runUntilIdle();
    player->PlayStateChange = [&](PlayState, PlayState to) {
        if (to == PlayState::Stopped) player->shutDown();
    };
    EXPECT_RUNTIME_ERROR(player->FileName("/b.mp3"), 91);
    EXPECT_EQ(media.file, "");
    EXPECT_EQ(media.made, 1);
}

} // namespace
} // namespace tonvale::test
