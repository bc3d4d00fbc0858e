// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/unit/fakes/ListTest.h"

namespace tonvale::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char *kEmptyList = "Your playlist is currently empty.  \r\n\r\n"
                                   "Select the files you wish to be included\r\n"
                                   "in your PlayList first in order to proceed.\r\n\r\n"
                                   " (To accomplish this, select \"Add File(s)\r\n"
                                   "to PlayList\" from the toolbar,  \"Add\" from\r\n"
                                   "the Edit menu, or simply press Ctrl + A)";

class ListRun : public ListTest {
protected:
    // Microphone in hand: milliseconds that the list waited since the last call.
    std::int64_t waited() { return world.clock.blocked - std::exchange(seen_, world.clock.blocked); }
    Texts calls() { return world.log.of({"engine.", "cd."}); }

private:
    std::int64_t seen_ = 0;
};

TEST_F(ListRun, AnEmptyListTellsHowToFillIt) {
    open();
    play();
    expectBox(kEmptyList, BoxIcon::Information);
    EXPECT_TRUE(isIdle());
    EXPECT_FALSE(world.log.has("cd.StopPlay"));
}

TEST_F(ListRun, PlaysAllRowsToTheEndByItself) {
    openWith({"/m/a.mp3", "/m/b.wav", "/m/c.MID"});
    play();
    EXPECT_TRUE(isPlaying());
    EXPECT_EQ(now(), "Playing File: a.mp3 (1 of 3)");
    finish();
    EXPECT_EQ(now(), "Playing File: b.wav (2 of 3)");
    finish();
    EXPECT_EQ(now(), "Playing File: c.MID (3 of 3)");
    finish();
    EXPECT_TRUE(isIdle());
    EXPECT_EQ(now(), "PlayList Halted.");
    EXPECT_EQ(list().Label1.Caption, "Play Halted.");
    EXPECT_THAT(opened(), ElementsAre("engine.open /m/a.mp3", "engine.open /m/b.wav", "engine.open /m/c.MID"));
    EXPECT_THAT(list().PlayQueue, IsEmpty());
    expectNoBox();
}

TEST_F(ListRun, AStartStopsTheMainPlayer) {
    world.files.add("/m/x.mp3", 1);
    world.start("/m/x.mp3");
    registerPlaylistWindows(world.app());
    world.app().frmPlayList->Show();
    list().List1.AddItem("/m/a.mp3");
    EXPECT_EQ(world.app().form1->playmenu.Caption, "&Stop");
    world.log.clear();
    play();
    EXPECT_EQ(world.app().form1->playmenu.Caption, "&Load and Play File");
    EXPECT_EQ(world.app().form1->ActiveMovie1.State(), PlayState::Stopped);
    EXPECT_EQ(world.log.of({"engine.stop", "cd.StopPlay", "engine.open"}).front(), "engine.stop");
    EXPECT_EQ(world.log.count("cd.StopPlay"), 1);
}

TEST_F(ListRun, TheStateIsInTheCaptionsAndTheCommands) {
    openWith({"/a.mp3", "/b.mp3"});
    const auto seekEnabled = [&] {
        return list().PrevMenu.Enabled && list().PrevPop.Enabled && list().NextMenu.Enabled && list().NextPop.Enabled;
    };
    const auto anySeekEnabled = [&] {
        return list().PrevMenu.Enabled || list().PrevPop.Enabled || list().NextMenu.Enabled || list().NextPop.Enabled;
    };
    EXPECT_TRUE(isIdle());
    EXPECT_FALSE(anySeekEnabled());
    EXPECT_EQ(now(), "");
    play();
    EXPECT_TRUE(isPlaying());
    EXPECT_TRUE(seekEnabled());
    play();
    EXPECT_TRUE(isIdle());
    EXPECT_FALSE(list().PlayActive);
    EXPECT_FALSE(anySeekEnabled());
    EXPECT_EQ(now(), "PlayList Halted.");
    select({1});
    play();
    EXPECT_FALSE(anySeekEnabled()) << "one entry leads nowhere";
    EXPECT_EQ(now(), "Playing File: b.mp3 (1 of 1)");
}

TEST_F(ListRun, StopSilencesBothEngines) {
    openWith({"/a.mp3"});
    play();
    world.log.clear();
    click(list().PlayPop.Click);
    EXPECT_THAT(calls(), ElementsAre("engine.stop", "cd.StopPlay"));
    EXPECT_TRUE(isIdle());
}

TEST_F(ListRun, SelectedRowsArePlayedInListOrder) {
    openWith({"/0.mp3", "/1.mp3", "/2.mp3", "/3.mp3", "/4.mp3"});
    select({3, 1});
    play();
    EXPECT_THAT(list().PlayQueue, ElementsAre("/1.mp3", "/3.mp3"));
    click(list().NextMenu.Click);
    EXPECT_EQ(now(), "Playing File:  3.mp3 (2 of 2)") << "two blanks";
    click(list().NextPop.Click);
    EXPECT_EQ(now(), "Playing File:  1.mp3 (1 of 2)") << "it wraps within the two";
    click(list().PrevMenu.Click);
    EXPECT_EQ(now(), "Playing File: 3.mp3 (2 of 2)") << "one blank";
    click(list().PrevPop.Click);
    EXPECT_EQ(now(), "Playing File: 1.mp3 (1 of 2)");
}

TEST_F(ListRun, WaitsTwoSecondsBeforeEachItemWithTheWindowDisabled) {
    openWith({"/a.mp3", "/b.mp3"});
    for (const double fraction : {0.0, 0.25, 0.49, 0.5, 0.51, 0.75, 0.99}) {
        world.clock.setSecondsSinceMidnight(1000 + fraction);
        std::vector<bool> enabled;
        bool activeMeanwhile = true;
        duringThePause([&] {
            enabled.push_back(list().Enabled);
            activeMeanwhile = list().PlayActive;
            EXPECT_EQ(list().playmenu.Caption, "&Stop");
        });
        waited();
        play();
        EXPECT_THAT(enabled, ElementsAre(false));
        EXPECT_FALSE(activeMeanwhile);
        EXPECT_TRUE(list().Enabled);
        const std::int64_t pause = waited();
        EXPECT_GE(pause, 1490) << fraction;
        EXPECT_LE(pause, 2520) << fraction;
        play();
    }
}

TEST_F(ListRun, ThePauseEndsAtMidnight) {
    openWith({"/a.mp3"});
    world.clock.setSecondsSinceMidnight(86399.9);
    waited();
    play();
    EXPECT_LE(waited(), 2600);
    EXPECT_TRUE(isPlaying());
}

TEST_F(ListRun, WhatPlayedGoesOnPlayingDuringThePause) {
    openWith({"/a.mp3", "/b.mp3"});
    play();
    std::string heard;
    duringThePause([&] { heard = world.media.playing ? world.media.file : "silence"; });
    world.log.clear();
    list().NextMenu.Click();
    EXPECT_EQ(heard, "/a.mp3");
    EXPECT_THAT(world.log.of({"cd."}), ElementsAre("cd.CloseDevice"));
}

TEST_F(ListRun, AnEndDuringThePauseIsDropped) {
    openWith({"/a.mp3", "/b.mp3", "/c.mp3"});
    play();
    duringThePause([&] { world.media.finish(); });
    click(list().NextMenu.Click);
    EXPECT_EQ(now(), "Playing File:  b.mp3 (2 of 3)");
    EXPECT_TRUE(isPlaying());
    finish();
    EXPECT_EQ(now(), "Playing File: c.mp3 (3 of 3)");
}

TEST_F(ListRun, LoopBeginsAnewAtTheEnd) {
    openWith({"/a.mp3"});
    click(list().LoopMenu.Click);
    play();
    for (int round = 0; round < 3; ++round) {
        waited();
        finish();
        EXPECT_TRUE(isPlaying());
        EXPECT_EQ(now(), "Playing File: a.mp3 (1 of 1)");
        EXPECT_GE(waited(), 1490);
    }
    EXPECT_EQ(opened().size(), 4U);
}

TEST_F(ListRun, NextOnTheLastItemGoesToTheFirstAndTheEndOfItStops) {
    openWith({"/a.mp3", "/b.mp3"});
    play();
    click(list().NextMenu.Click);
    click(list().NextMenu.Click);
    EXPECT_EQ(now(), "Playing File:  a.mp3 (1 of 2)");
    finish();
    finish();
    EXPECT_TRUE(isIdle());
}

TEST_F(ListRun, PausesAndResumes) {
    openWith({"/a.mp3"});
    play();
    click(list().PauseMenu.Click);
    EXPECT_FALSE(world.media.playing);
    EXPECT_EQ(list().PauseMenu.Caption, "&Resume\tAlt + R");
    EXPECT_EQ(list().PausePop.Caption, "Pause");
    click(list().PausePop.Click);
    EXPECT_TRUE(world.media.playing);
    EXPECT_EQ(list().PauseMenu.Caption, "Pa&use\tAlt + P");
    EXPECT_EQ(list().CurrentFile, "/a.mp3");
    EXPECT_TRUE(isPlaying()) << "pause is no state of the run";
}

TEST_F(ListRun, PauseWithoutARunTellsSo) {
    openWith({"/a.mp3"});
    click(list().PauseMenu.Click);
    expectBox("The playlist is not currently playing.", BoxIcon::Information);
    EXPECT_EQ(list().PauseMenu.Caption, "Pa&use\tAlt + P");
    world.boxes.shown.clear();
    duringThePause([&] { list().PauseMenu.Click(); });
    play();
    expectBox("The playlist is not currently playing.", BoxIcon::Information);
}

TEST_F(ListRun, PauseThenNextLeavesResumeInTheMenu) {
    openWith({"/a.mp3", "/b.mp3"});
    play();
    click(list().PauseMenu.Click);
    click(list().NextMenu.Click);
    EXPECT_TRUE(world.media.playing);
    EXPECT_EQ(world.media.file, "/b.mp3");
    EXPECT_EQ(list().PauseMenu.Caption, "&Resume\tAlt + R");
    click(list().PauseMenu.Click);
    EXPECT_TRUE(world.media.playing);
    EXPECT_EQ(list().PauseMenu.Caption, "Pa&use\tAlt + P");
    click(list().PauseMenu.Click);
    play();
    EXPECT_EQ(list().PauseMenu.Caption, "&Resume\tAlt + R") << "a stop does not put it back either";
}

TEST_F(ListRun, MuteTurnsTheMixerDownAndUp) {
    openWith({"/a.mp3", "/b.mp3"});
    list().Slider1.Value(40);
    click(list().MuteMenu.Click);
    EXPECT_EQ(world.mixer.level, 0);
    EXPECT_EQ(list().MuteMenu.Caption, "&Un-Mute");
    EXPECT_EQ(list().MutePop.Caption, "Mute");
    EXPECT_EQ(list().Slider1.Value(), 40);
    click(list().MutePop.Click);
    EXPECT_EQ(world.mixer.level, 26214);
    EXPECT_EQ(list().MuteMenu.Caption, "&Mute");
}

TEST_F(ListRun, AMutedListIsAudibleFromTheNextItemOn) {
    openWith({"/a.mp3", "/b.mp3"});
    play();
    click(list().MuteMenu.Click);
    finish();
    EXPECT_EQ(world.mixer.level, 65535);
    EXPECT_EQ(list().MuteMenu.Caption, "&Un-Mute");
}

TEST_F(ListRun, TheSliderSetsTheVolumeAndUnmutes) {
    openWith({"/a.mp3"});
    click(list().MuteMenu.Click);
    list().Slider1.scrollTo(30);
    EXPECT_EQ(list().Label1.Caption, "30");
    EXPECT_EQ(world.mixer.level, 19660);
    EXPECT_EQ(list().MuteMenu.Caption, "&Mute");
    click(list().MuteMenu.Click);
    list().Slider1.Value(31);
    EXPECT_EQ(list().Label1.Caption, "31");
    EXPECT_EQ(list().MuteMenu.Caption, "&Mute");
    play();
    play();
    EXPECT_EQ(list().Label1.Caption, "Play Halted.");
    list().Slider1.Value(32);
    EXPECT_EQ(list().Label1.Caption, "32");
}

TEST_F(ListRun, EveryExtensionOfTheTableGoesToItsEngine) {
    for (const char *extension : {".mp3", ".mp2", ".wav", ".asf", ".aif", ".au", ".aiff", ".aifc", ".mid", ".midi",
                                  ".rmi", ".snd", ".ra", ".ram", ".rmm", ".rm", ".rpm", ".MP3"}) {
        const std::string row = std::string("/m/x") + extension;
        openWith({row});
        play();
        EXPECT_THAT(opened(), ElementsAre("engine.open " + row));
        EXPECT_TRUE(isPlaying());
        play();
        list().Unload();
        world.runUntilIdle();
    }
    for (const char *extension : {".avi", ".mpg", ".viv", ".ply", ".ogg", ".mp33", ".mp"}) {
        openWith({std::string("/m/x") + extension});
        play();
        EXPECT_THAT(opened(), IsEmpty()) << extension;
        EXPECT_TRUE(isIdle());
        list().Unload();
        world.runUntilIdle();
    }
}

TEST_F(ListRun, OnlyTheChangeFromPlayingToStoppedIsAnEnd) {
    openWith({"/a.mp3", "/b.mp3"});
    play();
    click(list().PauseMenu.Click);
    engine().ActiveMovie1.Stop(); // from paused
    world.runUntilIdle();
    EXPECT_EQ(now(), "Playing File: a.mp3 (1 of 2)");
    EXPECT_TRUE(list().PlayActive);
}

TEST_F(ListRun, ASeekKeyOutsideARunStartsTheList) {
    openWith({"/a.mp3", "/b.mp3"});
    press(kPlus);
    EXPECT_TRUE(isPlaying());
    EXPECT_EQ(now(), "Playing File:  a.mp3 (1 of 2)");
    EXPECT_EQ(opened().size(), 1U);
}

TEST_F(ListRun, ASeekKeyAfterARunPlaysTheLastItemAgain) {
    openWith({"/a.mp3", "/b.mp3"});
    play();
    finish();
    finish();
    ASSERT_TRUE(isIdle());
    press(kMinus);
    EXPECT_EQ(world.media.file, "/b.mp3");
    EXPECT_TRUE(world.media.playing);
    EXPECT_EQ(list().playmenu.Caption, "&Play");
    EXPECT_TRUE(list().PlayActive);
    EXPECT_EQ(now(), "PlayList Halted.");
}

TEST_F(ListRun, ASeekKeyOnAnEmptyListTellsThatItIsEmpty) {
    open();
    press(kPlus);
    expectBox(kEmptyList, BoxIcon::Information);
    EXPECT_TRUE(isIdle());
}

TEST_F(ListRun, AHotKeyDuringThePauseChoosesAnotherItem) {
    openWith({"/a.mp3", "/b.mp3", "/c.mp3"});
    play();
    duringThePause([&] { world.keyboard.press(kPlus); });
    click(list().NextMenu.Click);
    EXPECT_EQ(now(), "Playing File:  c.mp3 (3 of 3)");
    EXPECT_EQ(world.media.file, "/c.mp3");
    EXPECT_TRUE(world.media.playing);
    EXPECT_TRUE(isPlaying());
    finish();
    EXPECT_TRUE(isIdle()) << "its end is the queue's";
}

TEST_F(ListRun, AKeyHeldDownDuringThePauseDoesNotDrownTheWindow) {
    openWith({"/a.mp3", "/b.mp3", "/c.mp3"});
    int presses = 0, deepest = 0, depth = 0;
    std::function<void()> again = [&] {
        if (++presses > 5000) return;
        world.loop.post(again);
        deepest = std::max(deepest, ++depth);
        world.keyboard.press(kPlus);
        --depth;
    };
    duringThePause(again);
    play();
    EXPECT_LT(deepest, 50);
    EXPECT_TRUE(isPlaying());
    EXPECT_TRUE(list().Enabled);
}

} // namespace
} // namespace tonvale::test
