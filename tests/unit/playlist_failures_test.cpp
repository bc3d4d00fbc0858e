// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/unit/fakes/ListTest.h"

namespace tonvale::test {
namespace {

using ListFailures = ListTest;

TEST_F(ListFailures, AnUnknownExtensionStopsTheListWithoutAWord) {
    openWith({"/a.mp3", "/b.txt", "/c.mp3"});
    play();
    finish();
    EXPECT_TRUE(isIdle());
    EXPECT_EQ(now(), "PlayList Halted.");
    EXPECT_EQ(opened().size(), 1U);
    expectNoBox();
}

TEST_F(ListFailures, SoDoRowsOfNoExtensionDirectoriesAndBlanks) {
    for (const char *row : {"/m/noextension", "/m/", "   ", "/m.mp3/x", "a.", "\xFF\xFE", "\n"}) {
        openWith({row, "/a.mp3"});
        play();
        EXPECT_TRUE(isIdle()) << row;
        EXPECT_EQ(now(), "PlayList Halted.");
        list().ListSaved = true;
        list().Unload();
        world.runUntilIdle();
    }
    expectNoBox();
}

TEST_F(ListFailures, AFileThatCannotBeOpenedIsToldAndPassedOver) {
    world.media.broken = {"/b.mp3"};
    openWith({"/a.mp3", "/b.mp3", "/c.mp3"});
    play();
    finish();
    expectBox("Unable to play file: Cannot open the file", BoxIcon::Exclamation);
    EXPECT_TRUE(isPlaying());
    EXPECT_EQ(now(), "Playing File: c.mp3 (3 of 3)");
}

TEST_F(ListFailures, NextSaysTwoBlanksAlsoAfterAFailure) {
    world.media.broken = {"/b.mp3"};
    openWith({"/a.mp3", "/b.mp3", "/c.mp3"});
    play();
    click(list().NextMenu.Click);
    EXPECT_EQ(now(), "Playing File:  c.mp3 (3 of 3)");
}

TEST_F(ListFailures, TheMoveOnAfterAFailureWrapsWithoutLoop) {
    world.media.broken = {"/b.mp3"};
    openWith({"/a.mp3", "/b.mp3"});
    play();
    finish();
    EXPECT_EQ(world.boxes.shown.size(), 1U);
    EXPECT_EQ(now(), "Playing File: a.mp3 (1 of 2)");
    EXPECT_TRUE(isPlaying());
}

TEST_F(ListFailures, AThousandBadFilesAreToldOneByOneOnAFlatStack) {
    Texts bad;
    for (int i = 0; i < 1000; ++i) bad.push_back("/bad" + std::to_string(i) + ".mp3");
    world.media.broken = {bad.begin(), bad.end()};
    bad.push_back("/good.mp3");
    openWith(bad);
    char *deepest = nullptr, *shallowest = nullptr;
    world.boxes.whileUp = [&](const MessageBox &) {
        // Of the frame: a sanitizer keeps the variables elsewhere.
        char *const here = static_cast<char *>(__builtin_frame_address(0));
        if (deepest == nullptr || here < deepest) deepest = here;
        if (shallowest == nullptr || here > shallowest) shallowest = here;
    };
    play();
    EXPECT_EQ(world.boxes.shown.size(), 1000U);
    EXPECT_EQ(now(), "Playing File: good.mp3 (1001 of 1001)");
    EXPECT_TRUE(isPlaying());
    EXPECT_EQ(shallowest - deepest, 0) << "each box at the same depth";
}

TEST_F(ListFailures, AQueueOfBadFilesGoesOnUntilTheUserGetsThroughToStop) {
    world.media.broken = {"/a.mp3", "/b.mp3"};
    openWith({"/a.mp3", "/b.mp3"});
    world.boxes.whileUp = [&](const MessageBox &) {
        if (world.boxes.shown.size() == 7) world.keyboard.press(kSpace);
    };
    play();
    EXPECT_EQ(world.boxes.shown.size(), 7U);
    EXPECT_TRUE(isIdle());
    EXPECT_EQ(now(), "PlayList Halted.");
    EXPECT_FALSE(list().PlayActive);
}

TEST_F(ListFailures, TheOnlyGoodRowMayBeTheLast) {
    world.media.broken = {"/none.mp3", "/folder.mp3"};
    openWith({"/none.mp3", "/folder.mp3", "/good.mp3"});
    play();
    EXPECT_EQ(world.boxes.shown.size(), 2U);
    EXPECT_EQ(now(), "Playing File: good.mp3 (3 of 3)");
}

TEST_F(ListFailures, ABrokenLastItemOutsideARunIsToldOnce) {
    world.media.broken = {"/a.mp3"};
    openWith({"/a.mp3"});
    world.boxes.whileUp = [&](const MessageBox &) {
        if (isRunning()) list().playmenu.Click();
    };
    play();
    ASSERT_TRUE(isIdle());
    world.boxes.shown.clear();
    press(kPlus);
    EXPECT_EQ(world.boxes.shown.size(), 1U);
    EXPECT_TRUE(isIdle());
}

TEST_F(ListFailures, MuteAndSliderWorkWithoutAMixer) {
    world.mixer.failing = MixerStep::Open;
    openWith({"/a.mp3"});
    EXPECT_EQ(list().Slider1.Value(), 0);
    play();
    click(list().MuteMenu.Click);
    list().Slider1.Value(50);
    EXPECT_TRUE(isPlaying());
    expectNoBox();
}

} // namespace
} // namespace tonvale::test
