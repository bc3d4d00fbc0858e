// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/unit/fakes/PlayerTest.h"

namespace tonvale::test {
namespace {

constexpr const char *kPlayQuestion =
    "RealAudio/Video files named with the .ram extension are currently not supported directly.  Would you like to "
    "rename the file with .ra and continue with play?  (Selecting No will result in the file not being played.)";

class FromTheDesktop : public PlayerTest {
protected:
    FromTheDesktop() { start(); }
};

TEST_F(FromTheDesktop, APathIsPlayedWithoutItsQuotes) {
    file("/my music/a.mp3", 77);
    std::string command = "\"/my music/a.mp3\"";
    std::int16_t cancel = 5;
    form().Form_LinkExecute(command, cancel);
    EXPECT_EQ(form().Label3.Caption, "a.mp3") << "before the engine reports";
    world.runUntilIdle();
    EXPECT_EQ(command, "/my music/a.mp3") << "changed in place";
    EXPECT_EQ(cancel, 0);
    EXPECT_TRUE(isRunning());
    EXPECT_EQ(form().Text1.Text, "/my music/a.mp3");
    EXPECT_EQ(recentFiles(), Texts{"&1. /my music/a.mp3 [File length: 77]"});
}

TEST_F(FromTheDesktop, AnnouncesBeforeAndAfterPlay) {
    file("/m/A.mp3");
    world.log.clear();
    executeFromDesktop("/m/A.mp3");
    EXPECT_EQ(world.log.of({"documents.add", "cd.StopPlay", "engine.open", "engine.play"}),
              (Texts{"documents.add /m/a.mp3", "cd.StopPlay", "engine.open /m/A.mp3", "engine.play",
                     "documents.add /m/a.mp3"}));
}

TEST_F(FromTheDesktop, SetsAutoStart) {
    file("/m/a.mp3");
    form().ActiveMovie1.AutoStart = false;
    executeFromDesktop("/m/a.mp3");
    EXPECT_TRUE(form().ActiveMovie1.AutoStart);
}

TEST_F(FromTheDesktop, TheBaseHeightBecomes4665) {
    form().Width = 8000;
    form().Height = 9000;
    form().ActiveMovie1.Left = 333;
    executeFromDesktop("");
    EXPECT_EQ(form().Height, 4665);
    EXPECT_EQ(form().OriginalHeight, 4665);
    EXPECT_EQ(form().OriginalWidth, 8000);
    EXPECT_EQ(form().VideoMargin, 333);
}

TEST_F(FromTheDesktop, AMinimizedWindowComesBackToTheFront) {
    form().State = WindowState::Minimized;
    int raised = 0;
    const Connection connection = form().raised.connect([&] { ++raised; });
    executeFromDesktop("");
    EXPECT_EQ(form().State, WindowState::Normal);
    EXPECT_EQ(raised, 1);
}

TEST_F(FromTheDesktop, AMaximizedWindowStaysSo) {
    form().State = WindowState::Maximized;
    executeFromDesktop("");
    EXPECT_EQ(form().State, WindowState::Maximized);
}

TEST_F(FromTheDesktop, AnEmptyCommandDoesNothingMore) {
    world.log.clear();
    executeFromDesktop("");
    EXPECT_TRUE(world.log.of({"engine", "cd.", "documents", "vivo", "box"}).empty());
}

TEST_F(FromTheDesktop, AFileThatHasVanishedStillPlaysItsNameWhileTheOldPathStays) {
    file("/m/old.mp3");
    executeFromDesktop("/m/old.mp3");
    world.log.clear();
    executeFromDesktop("/m/gone.mp3");
    EXPECT_EQ(form().Text1.Text, "/m/old.mp3");
    EXPECT_EQ(world.log.of({"engine.open", "cd.StopPlay", "documents"}),
              (Texts{"engine.open /m/gone.mp3", "documents.add /m/old.mp3"}));
}

TEST_F(FromTheDesktop, AVivoFileIsAnnouncedTwiceAndStopsTwice) {
    file("/v/a.vivo");
    world.log.clear();
    executeFromDesktop("/v/a.vivo");
    EXPECT_EQ(world.log.of({"documents", "cd.StopPlay", "vivo", "engine.open"}),
              (Texts{"documents.add /v/a.vivo", "cd.StopPlay", "documents.add /v/a.vivo", "cd.StopPlay",
                     "vivo.LoadFile /v/a.vivo", "vivo.Start", "vivo.shown"}));
    EXPECT_EQ(form().State, WindowState::Normal) << "this road does not minimize";
}

TEST_F(FromTheDesktop, ACdTrackIsAnnouncedBeforeAndAfter) {
    file("/cd/Track01.cda");
    world.cd.addTrack(7500);
    world.log.clear();
    executeFromDesktop("/cd/Track01.cda");
    EXPECT_EQ(world.log.of({"documents", "cd.", "engine"}),
              (Texts{"documents.add /cd/track01.cda", "cd.StopPlay", "cd.ReadDirectory", "cd.PlayTrack 0",
                     "documents.add /cd/track01.cda"}));
    EXPECT_TRUE(isRunning());
    EXPECT_FALSE(form().zoom.Enabled);
}

TEST_F(FromTheDesktop, ACdThatIsNotReadyIsAnnouncedOnce) {
    file("/cd/Track01.cda");
    world.cd.ready = [] { return false; };
    executeFromDesktop("/cd/Track01.cda");
    expectBox("CD not ready (15 second timeout).", BoxIcon::Exclamation);
    EXPECT_EQ(world.documents.added.size(), 1U);
    EXPECT_TRUE(isIdle());
    EXPECT_EQ(form().Text1.Text, "/cd/Track01.cda");
}

TEST_F(FromTheDesktop, ARamFileIsRenamedAndPlayed) {
    file("/r/a.RAM");
    form().ActiveMovie1.AutoStart = false;
    world.boxes.answers = {BoxResult::Yes, BoxResult::No};
    world.log.clear();
    executeFromDesktop("/r/a.RAM");
    EXPECT_EQ(world.boxes.shown.front().text, kPlayQuestion);
    EXPECT_EQ(world.boxes.shown.front().icon, BoxIcon::Question);
    EXPECT_EQ(world.boxes.shown.front().buttons, BoxButtons::YesNo);
    EXPECT_EQ(world.boxes.shown.front().place, BoxPlace::Foreground);
    EXPECT_EQ(form().Text1.Text, "/r/a.ra");
    EXPECT_EQ(world.log.of({"documents", "engine.open", "files.rename"}),
              (Texts{"documents.add /r/a.ram", "files.rename /r/a.RAM -> /r/a.ra", "engine.open /r/a.ra",
                     "documents.add /r/a.ra"}));
    EXPECT_TRUE(form().ActiveMovie1.AutoStart);
}

TEST_F(FromTheDesktop, ARamFileIsAnnouncedAgainAlsoAfterNo) {
    file("/r/a.ram");
    world.boxes.answers = {BoxResult::No};
    executeFromDesktop("/r/a.ram");
    EXPECT_EQ(world.documents.added, (Texts{"/r/a.ram", "/r/a.ram"}));
    EXPECT_TRUE(world.log.of({"engine.open"}).empty());
}

TEST_F(FromTheDesktop, ARamFileIsAnnouncedAgainAlsoAfterAFailedRename) {
    file("/r/a.ram");
    file("/r/a.ra");
    world.boxes.answers = {BoxResult::Yes};
    executeFromDesktop("/r/a.ram");
    expectBox("Unable to rename file:  File already exists", BoxIcon::Exclamation);
    EXPECT_EQ(world.documents.added, (Texts{"/r/a.ram", "/r/a.ram"}));
    EXPECT_EQ(form().Text1.Text, "/r/a.ram");
    EXPECT_TRUE(world.log.of({"engine.open"}).empty());
}

TEST_F(FromTheDesktop, TheDescriptionOfAFailedRenameIsTheErrors) {
    file("/r/a.ram");
    world.files.renameError = ErrorNumber::PermissionDenied;
    world.boxes.answers = {BoxResult::Yes};
    executeFromDesktop("/r/a.ram");
    expectBox("Unable to rename file:  Permission denied", BoxIcon::Exclamation);
}

TEST_F(FromTheDesktop, APlaylistOpensAList) {
    world.files.addText("/m/a.ply", "/m/1.mp3\r\n");
    world.boxes.answers = {BoxResult::Yes};
    executeFromDesktop("/m/a.ply");
    EXPECT_EQ(world.app().frmPlayList->List1.ListCount(), 1U);
    EXPECT_TRUE(world.log.of({"engine.open"}).empty());
}

TEST_F(FromTheDesktop, NothingGuardsAgainstASecondOneInsideABox) {
    file("/r/a.ram");
    file("/m/b.mp3");
    world.boxes.whileUp = [this](const MessageBox &) {
        world.boxes.whileUp = nullptr;
        executeFromDesktop("/m/b.mp3");
    };
    world.boxes.answers = {BoxResult::No};
    executeFromDesktop("/r/a.ram");
    EXPECT_EQ(form().Text1.Text, "/m/b.mp3");
    EXPECT_EQ(world.media.file, "/m/b.mp3");
}

} // namespace
} // namespace tonvale::test
