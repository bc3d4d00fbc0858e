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

// A film of 320 x 240 on a screen of 1024 x 768.
class Film : public MediaPlayerControl {
protected:
    Film() { media.pictures["/a.avi"] = {320, 240}; }
    void expectPixels(double width, double height) {
        EXPECT_EQ(player->Width, width * kTwipsPerPixel);
        EXPECT_EQ(player->Height, height * kTwipsPerPixel);
    }
};

TEST_F(Film, GivesTheControlItsSizeBeforeItIsTold) {
    player->FileName("/a.avi");
    EXPECT_EQ(player->pictureSize(), (PictureSize{320, 240}));
    expectPixels(320, 240);
    player->OpenStateChange = [&](OpenState, OpenState) { expectPixels(320, 240); };
    news();
}

TEST_F(Film, EachDisplaySizeMeasuresTheControl) {
    player->FileName("/a.avi");
    const struct {
        std::int32_t size;
        double width, height;
    } kSizes[] = {{display_size::kHalf, 160, 120},
                  {display_size::kDouble, 640, 480},
                  {display_size::kFullScreen, 1024, 768},
                  {display_size::kOneSixteenthScreen, 256, 192},
                  {display_size::kOneFourthScreen, 512, 384},
                  {display_size::kDefault, 320, 240}};
    for (const auto &expected : kSizes) {
        player->DisplaySize(expected.size);
        EXPECT_EQ(player->DisplaySize(), expected.size);
        expectPixels(expected.width, expected.height);
    }
    player->DisplaySize(display_size::kOneHalfScreen);
    EXPECT_NEAR(player->Width * player->Height, screen.screenWidth * screen.screenHeight / 2, 1e5);
    EXPECT_NEAR(player->Width / player->Height, 4.0 / 3, 1e-3);
}

TEST_F(Film, AShareOfTheScreenKeepsThePicturesShape) {
    media.pictures["/wide.avi"] = {640, 240};
    player->FileName("/wide.avi");
    player->DisplaySize(display_size::kFullScreen);
    expectPixels(1024, 384);
    player->DisplaySize(display_size::kOneFourthScreen);
    expectPixels(512, 192);
    media.pictures["/high.avi"] = {240, 640};
    player->FileName("/high.avi"); // the chosen size stays
    expectPixels(144, 384);
}

TEST_F(Film, UnknownDisplaySizesAreThePicturesOwn) {
    player->FileName("/a.avi");
    for (const std::int32_t size : {4, -1, 99}) {
        player->DisplaySize(display_size::kDouble);
        player->DisplaySize(size);
        expectPixels(320, 240);
    }
}

TEST_F(Film, WithoutAPictureTheControlKeepsItsSize) {
    player->Width = 1500;
    player->Height = 750;
    player->FileName("/a.mp3");
    player->DisplaySize(display_size::kDouble);
    EXPECT_EQ(player->Width, 1500);
    EXPECT_EQ(player->Height, 750);
    EXPECT_TRUE(player->pictureSize().isEmpty());
    player->FileName("/a.avi");
    expectPixels(640, 480);
    player->FileName("");
    EXPECT_TRUE(player->pictureSize().isEmpty());
    expectPixels(640, 480);
}

TEST_F(Film, AnotherSizeInMidStreamChangesTheControl) {
    player->FileName("/a.avi");
    player->DisplaySize(display_size::kDouble);
    media.changePicture({200, 100});
    news();
    expectPixels(400, 200);
}

TEST_F(Film, TheScreenDoesNotBlankWhileItPlays) {
    player->FileName("/a.avi");
    EXPECT_EQ(screenSaver.holds, 1);
    player->Pause();
    EXPECT_EQ(screenSaver.holds, 0);
    player->Play();
    EXPECT_EQ(screenSaver.holds, 1);
    player->Stop();
    EXPECT_EQ(screenSaver.holds, 0);
    player->Play();
    media.finish();
    news();
    EXPECT_EQ(screenSaver.holds, 0);
    player->Play();
    EXPECT_EQ(screenSaver.holds, 1);
    player->FileName("");
    EXPECT_EQ(screenSaver.holds, 0);
}

TEST_F(Film, TheScreenMayBlankWithItsWindowGoneOrAnotherFile) {
    player->FileName("/a.avi");
    player->FileName("/a.mp3");
    EXPECT_EQ(player->State(), PlayState::Playing);
    EXPECT_EQ(screenSaver.holds, 0);
    player->FileName("/a.avi");
    EXPECT_EQ(screenSaver.holds, 1);
    player->shutDown();
    EXPECT_EQ(screenSaver.holds, 0);
}

TEST_F(Film, APictureThatComesLateHoldsTheScreen) {
    player->FileName("/late.avi");
    EXPECT_EQ(screenSaver.holds, 0);
    media.changePicture({160, 120});
    news();
    EXPECT_EQ(screenSaver.holds, 1);
}

TEST_F(Film, IsReadyOnceItIsOpen) {
    std::vector<std::int32_t> states;
    player->ReadyStateChange = [&](std::int32_t state) { states.push_back(state); };
    player->FileName("/a.avi");
    EXPECT_TRUE(states.empty());
    news();
    EXPECT_EQ(states, std::vector<std::int32_t>{4});
    player->FileName("/b.avi");
    player->FileName("/a.avi"); // the one between is not told any more
    news();
    EXPECT_EQ(states, (std::vector<std::int32_t>{4, 4}));
}

TEST_F(Film, ItsDialogsAreAskedFor) {
    std::vector<MediaDialog> dialogs;
    const Connection asked = player->dialogRequested.connect([&](MediaDialog dialog) { dialogs.push_back(dialog); });
    player->ShowDialog(MediaDialog::Statistics);
    player->ShowDialog(MediaDialog::Options);
    EXPECT_EQ(dialogs, (std::vector<MediaDialog>{MediaDialog::Statistics, MediaDialog::Options}));
}

TEST_F(Film, EscapeLeavesTheFullScreen) {
    player->FileName("/a.avi");
    player->FullScreenMode = true;
    player->userPressedEscape();
    EXPECT_FALSE(player->FullScreenMode);
    EXPECT_EQ(player->State(), PlayState::Playing);
}

TEST_F(Film, AClickOnTheFullScreenPlaysItAgain) {
    player->FileName("/a.avi");
    player->FullScreenMode = true;
    media.position = 50;
    player->userClickedFullScreen();
    EXPECT_EQ(media.position, 0);
    EXPECT_TRUE(player->FullScreenMode);
    media.finish();
    news();
    player->userClickedFullScreen();
    EXPECT_EQ(player->State(), PlayState::Playing);
    EXPECT_EQ(news(), (Texts{"play 0>2"}));
}

TEST_F(Film, WithoutAFileAClickOnTheFullScreenDoesNothing) {
    player->userClickedFullScreen();
    player->userPressedEscape();
    EXPECT_EQ(media.made, 0);
}

TEST_F(Film, TellsTheViewOfEachFileAndOfItsEnd) {
    int files = 0, ends = 0;
    const Connection changed = player->fileChanged.connect([&] { ++files; });
    const Connection gone = player->goingAway.connect([&] { ++ends; });
    player->FileName("/a.avi");
    EXPECT_EQ(files, 1);
    player->FileName("/b.avi");
    EXPECT_EQ(files, 3); // closed, opened
    EXPECT_NE(player->openEngine(), nullptr);
    player->FileName("");
    EXPECT_EQ(player->openEngine(), nullptr);
    player->shutDown();
    EXPECT_EQ(ends, 1);
    player.reset();
    EXPECT_EQ(ends, 1);
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
