// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/unit/MediaPlayerControl.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tonvale::test {
namespace {

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

} // namespace
} // namespace tonvale::test
