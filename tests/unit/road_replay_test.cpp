// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/unit/fakes/PlayerTest.h"

namespace tonvale::test {
namespace {

class Replay : public PlayerTest {
protected:
    Replay() { start(); }
    // The file is loaded and stopped.
    void loaded(const std::string &path) {
        file(path);
        executeFromDesktop(path);
        click(form().StopMenu.Click);
        world.log.clear();
    }
};

TEST_F(Replay, WithoutAFileSaysSo) {
    click(form().playcurrentmenu.Click);
    expectBox("No file is currently loaded to play.\nSelect \"\"Play New File\"\" to open\nthe desired media.",
              BoxIcon::Information);
    EXPECT_TRUE(isIdle());
}

TEST_F(Replay, PlaysTheFileAgain) {
    world.media.durations["/m/a.mp3"] = 3700.4;
    loaded("/m/a.mp3");
    form().ActiveMovie1.AutoStart = false;
    form().playcurrentmenu.Click();
    EXPECT_TRUE(isRunning()) << "at once, before the engine reports";
    EXPECT_EQ(totalDigits(), "01:01:40");
    world.runUntilIdle();
    EXPECT_TRUE(isRunning());
    EXPECT_TRUE(world.media.playing);
    EXPECT_FALSE(form().ActiveMovie1.AutoStart) << "is not touched on this road";
}

TEST_F(Replay, StopsAndAnnouncesNothing) {
    loaded("/m/a.mp3");
    click(form().playcurrentmenu.Click);
    EXPECT_EQ(world.log.of({"cd.", "documents", "registry", "engine.open", "engine.play"}),
              (Texts{"engine.open /m/a.mp3", "engine.play"}));
}

TEST_F(Replay, TheTraysAndThePicturesEntriesDoTheSame) {
    loaded("/m/a.mp3");
    click(form().playcurrentpop.Click);
    EXPECT_TRUE(isRunning());
    click(form().StopMenu.Click);
    click(form().VidPlayCurrentPop.Click);
    EXPECT_TRUE(isRunning());
    EXPECT_EQ(world.log.count("engine.open /m/a.mp3"), 2);
}

TEST_F(Replay, IsEnabledInIdleOnly) {
    loaded("/m/a.mp3");
    EXPECT_TRUE(form().playcurrentmenu.Enabled);
    click(form().playcurrentmenu.Click);
    EXPECT_FALSE(form().playcurrentmenu.Enabled);
    EXPECT_FALSE(form().playcurrentpop.Enabled);
}

TEST_F(Replay, VivoFilesOfBothNamesGoToTheViewer) {
    for (const char *path : {"/v/a.viv", "/v/B.VIVO"}) {
        form().Text1.Text = path;
        world.log.clear();
        click(form().playcurrentmenu.Click);
        EXPECT_EQ(world.log.of({"vivo.", "engine.open", "cd."}).front(), std::string("vivo.LoadFile ") + path);
        EXPECT_EQ(form().State, WindowState::Normal);
    }
}

TEST_F(Replay, APlaylistGoesToTheMediaEngine) {
    form().Text1.Text = "/m/a.ply";
    click(form().playcurrentmenu.Click);
    EXPECT_TRUE(world.log.has("engine.open /m/a.ply"));
    EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(Replay, ARamFileGoesToTheMediaEngineAsItIs) {
    form().Text1.Text = "/r/a.ram";
    click(form().playcurrentmenu.Click);
    EXPECT_TRUE(world.log.has("engine.open /r/a.ram"));
}

TEST_F(Replay, ACdTrackTakesItsNumberFromTheDialogsLastName) {
    world.cd.addTrack(7500);
    world.cd.addTrack(75 * 50);
    file("/cd/Track02.cda");
    file("/cd/Track01.cda");
    open("/cd/Track02.cda");
    click(form().playmenu.Click);
    form().Text1.Text = "/cd/Track01.cda";
    form().zoom.Enabled = true;
    world.log.clear();
    form().playcurrentmenu.Click();
    EXPECT_EQ(world.log.of({"cd."}), (Texts{"cd.ReadDirectory", "cd.PlayTrack 1"}));
    EXPECT_TRUE(form().zoom.Enabled) << "left alone on this road";
    EXPECT_TRUE(isRunning());
    EXPECT_EQ(totalDigits(), "00:00:50");
}

TEST_F(Replay, ACdTrackThatCameByAnotherRoadIsTrackMinusOne) {
    world.cd.addTrack(7500);
    file("/cd/Track01.cda");
    executeFromDesktop("/cd/Track01.cda");
    click(form().StopMenu.Click);
    world.log.clear();
    form().playcurrentmenu.Click();
    EXPECT_EQ(world.log.of({"cd.PlayTrack"}), Texts{"cd.PlayTrack -1"});
    EXPECT_EQ(form().CurrentTrack, -1);
    EXPECT_EQ(form().Label3.Caption, "Audio Track #0");
    EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(Replay, ACancelledDialogForgetsTheName) {
    world.cd.addTrack(7500);
    file("/cd/Track01.cda");
    open("/cd/Track01.cda");
    click(form().playmenu.Click); // stop
    click(form().playmenu.Click); // the dialog, cancelled
    world.log.clear();
    form().playcurrentmenu.Click();
    EXPECT_EQ(world.log.of({"cd.PlayTrack"}), Texts{"cd.PlayTrack -1"});
}

TEST_F(Replay, ACdThatIsNotReadySaysSo) {
    form().Text1.Text = "/cd/Track01.cda";
    world.cd.ready = [] { return false; };
    click(form().playcurrentmenu.Click);
    expectBox("CD not ready (15 second timeout).", BoxIcon::Exclamation);
    EXPECT_TRUE(isIdle());
}

} // namespace
} // namespace tonvale::test
