// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/unit/fakes/PlayerTest.h"

#include <limits>

namespace tonvale::test {
namespace {

// A box serves messages while it is up, so that another instance may close the main window from
// below the handler that shows it.
class ClosedFromOutside : public PlayerTest {
protected:
    ClosedFromOutside() {
        start();
        file("/m/a.mp3");
    }
    void closeWhileABoxIsUp() {
        world.boxes.whileUp = [this](const MessageBox &) {
            world.boxes.whileUp = nullptr;
            form().Unload();
        };
    }
    void expectTheEnd() {
        world.advance(3000);
        EXPECT_FALSE(world.app().form1.isLoaded());
        EXPECT_EQ(world.loop.timerCount(), 0U);
    }
};

TEST_F(ClosedFromOutside, WhileAButtonsBoxIsUp) {
    closeWhileABoxIsUp();
    form().btnStop.Click();
    expectTheEnd();
}

TEST_F(ClosedFromOutside, WhileTheLoopNoticeIsUp) {
    world.app().settings->Check6.Value = 1;
    executeFromDesktop("/m/a.mp3");
    closeWhileABoxIsUp();
    form().playmenu.Click();
    expectTheEnd();
}

TEST_F(ClosedFromOutside, WhileTheQuestionForRealVideoIsUp) {
    closeWhileABoxIsUp();
    form().ActiveMovie1.FileName("/r/a.rm");
    world.runUntilIdle();
    expectTheEnd();
}

TEST_F(ClosedFromOutside, WhileTheQuestionForARenameIsUp) {
    file("/r/a.ram");
    world.boxes.answers = {BoxResult::Yes};
    closeWhileABoxIsUp();
    std::string command = "/r/a.ram";
    std::int16_t cancel = 0;
    form().Form_LinkExecute(command, cancel);
    expectTheEnd();
}

TEST_F(ClosedFromOutside, WhileTheQuestionForAPlaylistIsUp) {
    world.files.addText("/m/a.ply", "/m/1.mp3\r\n");
    closeWhileABoxIsUp();
    std::string command = "/m/a.ply";
    std::int16_t cancel = 0;
    form().Form_LinkExecute(command, cancel);
    world.app().frmVivoPlayList.Unload();
    world.app().frmPlayList.Unload();
    expectTheEnd();
}

TEST_F(ClosedFromOutside, WhileTheOpenDialogIsUp) {
    answerDialog("/m/a.mp3");
    world.dialogs.whileUp = [this] {
        world.dialogs.whileUp = nullptr;
        form().Unload();
    };
    form().playmenu.Click();
    expectTheEnd();
}

TEST_F(ClosedFromOutside, WhileTheBoxOfADiscThatIsNotReadyIsUp) {
    file("/cd/Track01.cda");
    world.cd.ready = [] { return false; };
    closeWhileABoxIsUp();
    std::string command = "/cd/Track01.cda";
    std::int16_t cancel = 0;
    form().Form_LinkExecute(command, cancel);
    expectTheEnd();
}

// What files, discs and the store may hold.
class Hostile : public PlayerTest {};

TEST_F(Hostile, LengthsAndPositionsThatAreNoSeconds) {
    start();
    for (const double strange : {1e300, -1e300, -5.0, std::numeric_limits<double>::infinity(),
                                 std::numeric_limits<double>::quiet_NaN(), 2147483647.0, 4e9}) {
        world.media.defaultDuration = strange;
        file("/m/a.mp3");
        executeFromDesktop("/m/a.mp3");
        world.media.position = strange;
        world.advance(2000);
        world.media.finish();
        world.runUntilIdle();
        EXPECT_TRUE(isIdle()) << strange;
    }
    EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(Hostile, TrackNumbersThatDoNotFit) {
    start();
    world.cd.addTrack(7500);
    for (const char *name : {"Track99999999999", "Track2147483647", "Track2147483648", "Track-2147483648", "Track1e999",
                             "Track&HFFFFFFFF", "Track", "",
                             "T\xC3\xA4"
                             "ck\xFF\xFF"}) {
        const std::string path = std::string("/cd/") + name + ".cda";
        file(path);
        executeFromDesktop(path);
        world.advance(1500);
        form().slidTracker.Value(1);
        click(form().PauseMenu.Click);
        click(form().PauseMenu.Click);
        click(form().StopMenu.Click);
    }
    EXPECT_TRUE(world.boxes.shown.empty());
    EXPECT_TRUE(isIdle());
}

TEST_F(Hostile, DiscsWithoutTracksAndWithStrangeTimes) {
    start();
    file("/cd/Track01.cda");
    executeFromDesktop("/cd/Track01.cda");
    world.advance(3000);
    world.cd.addTrack(-7500);
    executeFromDesktop("/cd/Track01.cda");
    world.cd.position = FakeCD::fromFrames(std::numeric_limits<std::int32_t>::min() + 2000000);
    world.advance(3000);
    world.cd.tracks.clear(); // the disc has been taken out
    world.advance(3000);
    EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(Hostile, SettingsThatNobodyWrote) {
    for (const char *text : {"", "x", "-1", "3", "99999", "1e999", "\xFF", "0.5"}) {
        World other;
        other.setSetting("Multi-Instances", "1");
        for (const char *key : {"Position", "Always Ontop", "Confirm Delete", "Loop Other", "Volume", "ShowMsg2"})
            other.setSetting(key, text);
        Form1 &window = other.start();
        EXPECT_TRUE(window.Visible) << text;
        EXPECT_FALSE(other.app().MainLoadInProgress) << text;
        EXPECT_GE(window.MMLEDSpinX1.Value(), 0) << text;
        EXPECT_LE(window.MMLEDSpinX1.Value(), 100) << text;
    }
}

TEST_F(Hostile, NamesOfAnyBytes) {
    start();
    for (const std::string &path :
         {std::string("/m/\xFF\xFE.mp3"), std::string("/m/") + std::string(5000, 'x') + ".mp3",
          std::string("/m/a\nb.mp3"), std::string("/m/%s%n.mp3"), std::string("/."), std::string("/"),
          std::string("\"")}) {
        file(path);
        executeFromDesktop(path);
        clickRecent(1);
        click(form().playcurrentmenu.Click);
        click(form().StopMenu.Click);
    }
    EXPECT_TRUE(isIdle());
}

TEST_F(Hostile, ARecentFileOfAFewCharacters) {
    world.registry.setText(RootKey::LocalMachine, "SOFTWARE\\Orvane Tonvale\\MRU\\MRU Entries", "MRU1", "a");
    start();
    clickRecent(1);
    EXPECT_EQ(form().Text1.Text, "a");
    clickRecent(3);
    EXPECT_EQ(form().Text1.Text, "");
}

} // namespace
} // namespace tonvale::test
