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
    for (const BoxResult answer : {BoxResult::Yes, BoxResult::No}) {
        start();
        world.boxes.answers = {answer};
        closeWhileABoxIsUp();
        std::string command = "/m/a.ply";
        std::int16_t cancel = 0;
        form().Form_LinkExecute(command, cancel);
        expectTheEnd();
        EXPECT_TRUE(world.app().forms.loaded().empty()) << "a list would bring the main window back";
    }
}

TEST_F(ClosedFromOutside, WhileTheOpenDialogIsUp) {
    for (const char *path : {"/m/a.mp3", "/v/a.viv", "/cd/Track01.cda", "/r/a.ram"}) {
        start();
        answerDialog(path);
        world.dialogs.whileUp = [this] {
            world.dialogs.whileUp = nullptr;
            form().Unload();
        };
        form().playmenu.Click();
        expectTheEnd();
        EXPECT_TRUE(world.app().forms.loaded().empty()) << path;
        EXPECT_TRUE(world.boxes.shown.empty()) << path;
    }
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

TEST_F(ClosedFromOutside, WhileTheQuestionBeforeADeletionIsUp) {
    executeFromDesktop("/m/a.mp3");
    world.boxes.answers = {BoxResult::Yes};
    closeWhileABoxIsUp();
    form().DeleteMenu.Click();
    expectTheEnd();
    EXPECT_FALSE(world.files.fileExists("/m/a.mp3")) << "it was answered with Yes";
}

TEST_F(ClosedFromOutside, WhileTheNoticeAboutTheTrayIsUp) {
    closeWhileABoxIsUp();
    form().visitmemenu.Click();
    expectTheEnd();
    EXPECT_TRUE(world.shell.calls.empty());
    EXPECT_TRUE(world.app().forms.loaded().empty());
}

TEST_F(ClosedFromOutside, WhileTheMissingHelpIsTold) {
    closeWhileABoxIsUp();
    form().infomenu.Click();
    expectTheEnd();
}

TEST_F(ClosedFromOutside, WhileTheQuestionBeforeTheDiscDatabaseIsUp) {
    Application &app = world.app();
    app.frmCDDBMain.setFactory([&app] { return std::make_unique<Form>(app.forms, "frmCDDBMain"); });
    world.boxes.answers = {BoxResult::Yes};
    closeWhileABoxIsUp();
    form().CDDBMenu.Click();
    expectTheEnd();
    EXPECT_FALSE(app.frmCDDBMain.isLoaded());
}

TEST_F(ClosedFromOutside, WhileTheClearedListIsTold) {
    closeWhileABoxIsUp();
    form().ClearMRUMenu.Click();
    expectTheEnd();
}

// What files, discs and the store may hold.
class Hostile : public PlayerTest {};

TEST_F(Hostile, RecentFilesThatNobodyWrote) {
    constexpr const char *kList = "SOFTWARE\\Orvane Tonvale\\MRU\\MRU Entries";
    const Texts texts{std::string(1 << 20, 'x'),
                      std::string("/m/a\0b.mp3", 10),
                      "line\r\nbreak\t&&amp & ampersand.avi",
                      "\xFF\xFE\x80.mp3",
                      "-",
                      "..",
                      "/",
                      "&1. &2. nested",
                      std::string(300, '/') + ".cda",
                      "/cd/track99999999999999999999.cda",
                      ".viv"};
    world.cd.ready = [] { return false; };
    for (const std::string &text : texts) {
        for (const char *position : {"1", "3"}) {
            world.registry.setText(RootKey::LocalMachine, kList, std::string("MRU") + position, text);
            world.registry.setText(RootKey::LocalMachine, kList, std::string("MRUTag") + position, text);
        }
        world.registry.set(RootKey::LocalMachine, kList, "MRU2", {ValueType::Binary, text});
        world.registry.set(RootKey::LocalMachine, kList, "MRU4", {ValueType::Dword, text});
        world.media.broken = {text, text.substr(0, text.find('\0'))};
        start();
        EXPECT_TRUE(form().Visible);
        ASSERT_TRUE(form().mnuFileMRU[1].Visible);
        EXPECT_TRUE(form().mnuFileMRU[2].Visible);
        EXPECT_FALSE(form().mnuFileMRU[3].Visible);
        const std::string shown = form().mnuFileMRU[1].Caption;
        EXPECT_EQ(shown, "&1. " + text.substr(0, text.find('\0')));
        clickRecent(1);
        EXPECT_EQ(form().Text1.Text, shown.substr(4));
        EXPECT_EQ(form().mnuFileMRU[1].Caption, shown);
        click(form().FileMenu.Click);
        click(form().ClearMRUMenu.Click);
        EXPECT_TRUE(recentFiles().empty());
        form().Unload();
        world.runUntilIdle();
    }
}

TEST_F(Hostile, WindowPlacesThatNobodyWrote) {
    world.setSetting("Position", "1");
    for (const std::string &text :
         {std::string("L=-2147483648;T=2147483647;W=-5;H=-2147483648;S=0;"), std::string("S=7;S=1;"),
          std::string("L=1e300;T=&HFFFFFFFF;W=;H=;S="), std::string("L=nan;T=inf;W=0x10;H=--3;S=-1;"),
          std::string(1 << 20, 'L'), std::string("L=10\0;T=20;", 12), std::string("=;=;=;"),
          std::string("S=99999999999;")}) {
        world.registry.setText(RootKey::LocalMachine, "SOFTWARE\\FMS\\Test CFormPos\\Form Positions", "Form1", text);
        start();
        EXPECT_TRUE(form().Visible) << text.substr(0, 40);
        EXPECT_EQ(form().Width, form().OriginalWidth);
        EXPECT_EQ(form().Height, form().OriginalHeight);
        EXPECT_FALSE(world.app().MainLoadInProgress);
        form().Unload();
        world.runUntilIdle();
    }
}

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
