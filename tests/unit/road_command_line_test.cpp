// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/unit/fakes/PlayerTest.h"

namespace tonvale::test {
namespace {

constexpr const char *kAddQuestion =
    "RealAudio/Video files named with the .ram extension are currently not supported directly.  Would you like to "
    "rename the file with .ra and add it to the list?  (Selecting No will skip this file.)";
constexpr const char *kPlaylistQuestion =
    "Is the selected playlist file audio of vivo?\n\nIf audio, click Yes\nIf vivo, click No.";

class CommandLine : public PlayerTest {};

TEST_F(CommandLine, PlaysTheFile) {
    file("/music/a.mp3", 4711);
    start("/music/a.mp3");
    EXPECT_TRUE(isRunning());
    EXPECT_EQ(form().Text1.Text, "/music/a.mp3");
    EXPECT_EQ(form().Label3.Caption, "a.mp3");
    EXPECT_EQ(recentFiles(), Texts{"&1. /music/a.mp3 [File length: 4711]"});
    EXPECT_EQ(world.documents.added, Texts{"/music/a.mp3"});
    EXPECT_TRUE(world.media.playing);
}

TEST_F(CommandLine, AnnouncesBeforePlayAndStopsNothing) {
    file("/music/a.mp3");
    start("/music/a.mp3");
    EXPECT_EQ(world.log.of({"documents.add", "engine.open", "engine.stop", "cd.StopPlay"}),
              (Texts{"documents.add /music/a.mp3", "engine.open /music/a.mp3"}));
}

TEST_F(CommandLine, ComesToTheFrontAfterTheOpen) {
    file("/music/a.mp3");
    int raised = 0;
    Connection connection;
    const Connection loading = world.app().forms.formLoading.connect([&](Form &loaded) {
        if (loaded.Name == "Form1") connection = loaded.raised.connect([&] { ++raised; });
    });
    start("/music/a.mp3");
    EXPECT_EQ(raised, 1);
}

TEST_F(CommandLine, DoesNotTouchAutoStart) {
    file("/music/a.mp3");
    const Connection loading = world.app().forms.formLoading.connect([](Form &loaded) {
        if (loaded.Name == "Form1") static_cast<Form1 &>(loaded).ActiveMovie1.AutoStart = false;
    });
    start("/music/a.mp3");
    EXPECT_FALSE(form().ActiveMovie1.AutoStart);
    EXPECT_TRUE(world.media.playing);
}

TEST_F(CommandLine, QuotesGoAtTheEndsOneEach) {
    file("/my music/a b.mp3");
    start("  \"/my music/a b.mp3\"  ");
    EXPECT_EQ(form().Text1.Text, "/my music/a b.mp3");
    EXPECT_TRUE(isRunning());
}

TEST_F(CommandLine, InnerBlanksNeedNoQuotes) {
    file("/my music/a b.mp3");
    start("/my music/a b.mp3");
    EXPECT_TRUE(isRunning());
}

TEST_F(CommandLine, AFileThatIsNotThereIsIgnoredWithoutAWord) {
    for (const char *line : {"/music/gone.mp3", "\"", "\"\"", "   ", "\"\"/music/a.mp3\"\"", "--help"}) {
        World other;
        other.files.add("/music/a.mp3", 1);
        Form1 &window = other.start(line);
        EXPECT_EQ(window.Text1.Text, "") << line;
        EXPECT_EQ(window.MMLEDX1.LEDColor, kRed) << line;
        EXPECT_TRUE(other.boxes.shown.empty()) << line;
        EXPECT_TRUE(other.documents.added.empty()) << line;
        EXPECT_FALSE(other.app().MainLoadInProgress) << line;
    }
}

TEST_F(CommandLine, CapitalsAreFoldedForTheDecisionAndTheRecentFilesOnly) {
    file("/MUSIC/A.MP3");
    start("/MUSIC/A.MP3");
    EXPECT_EQ(form().Text1.Text, "/MUSIC/A.MP3");
    EXPECT_EQ(world.media.file, "/MUSIC/A.MP3");
    EXPECT_EQ(recentFiles(), Texts{"&1. /music/a.mp3 [File length: 1000]"});
    EXPECT_EQ(world.documents.added, Texts{"/music/a.mp3"});
}

TEST_F(CommandLine, AFileWithoutAnExtensionGoesToTheMediaEngine) {
    file("/music/noname");
    start("/music/noname");
    EXPECT_EQ(world.media.file, "/music/noname");
}

TEST_F(CommandLine, VivoFilesOfBothNamesGoToTheVivoViewer) {
    for (const char *path : {"/v/a.viv", "/v/a.vivo", "/v/A.VIV"}) {
        World other;
        other.files.add(path, 1);
        Form1 &window = other.start(path);
        EXPECT_EQ(other.log.of({"engine.open", "cd.StopPlay", "documents.add", "vivo."}),
                  (Texts{"cd.StopPlay", "documents.add " + lowerCase(path), std::string("vivo.LoadFile ") + path,
                         "vivo.Start", "vivo.shown"}));
        EXPECT_EQ(window.State, WindowState::Normal);
        EXPECT_EQ(window.MMLEDX1.LEDColor, kGreen);
    }
}

TEST_F(CommandLine, APlaylistAsksForItsKindAndFillsTheAudioList) {
    world.files.addText("/music/a.PLY", "/m/1.mp3\r\n\r\n/m/2.mp3\r  \r/m/3.mp3");
    world.boxes.answers = {BoxResult::Yes};
    start("/music/a.PLY");
    expectBox(kPlaylistQuestion, BoxIcon::Information, BoxPlace::Foreground, BoxButtons::YesNo);
    ListBox &rows = world.app().frmPlayList->List1;
    ASSERT_EQ(rows.ListCount(), 4U);
    EXPECT_EQ(rows.List(0), "/m/1.mp3");
    EXPECT_EQ(rows.List(2), "  ");
    EXPECT_EQ(rows.List(3), "/m/3.mp3");
    EXPECT_FALSE(world.app().frmVivoPlayList.isLoaded());
    EXPECT_TRUE(world.log.has("frmPlayList.shown with 0")) << "shown first and filled afterwards";
    EXPECT_TRUE(world.documents.added.empty()) << "a playlist is not announced";
    EXPECT_TRUE(recentFiles().empty());
    EXPECT_FALSE(world.app().MainLoadInProgress);
}

TEST_F(CommandLine, APlaylistMayBeOneOfVivoMovies) {
    world.files.addText("/music/a.ply", "/m/1.viv\r\n");
    world.boxes.answers = {BoxResult::No};
    start("/music/a.ply");
    EXPECT_TRUE(world.app().frmVivoPlayList->Visible);
    EXPECT_EQ(world.app().frmVivoPlayList->List1.ListCount(), 1U);
    EXPECT_FALSE(world.app().frmPlayList.isLoaded());
}

TEST_F(CommandLine, ALineThatCannotBeReadEndsTheListThere) {
    world.files.addText("/music/a.ply", "/m/1.mp3\r\n/m/2.mp3\r\n");
    world.files.readError = ErrorNumber::DeviceIOError;
    world.boxes.answers = {BoxResult::Yes};
    start("/music/a.ply");
    EXPECT_TRUE(world.app().frmPlayList->Visible);
    EXPECT_EQ(world.app().frmPlayList->List1.ListCount(), 2U);
    EXPECT_EQ(world.boxes.shown.size(), 1U);
}

TEST_F(CommandLine, ARamFileAsksWhetherToRename) {
    file("/r/a.ram");
    world.boxes.answers = {BoxResult::No};
    start("/r/a.ram");
    expectBox(kAddQuestion, BoxIcon::Question, BoxPlace::Foreground, BoxButtons::YesNo);
    EXPECT_TRUE(world.files.hasExactly("/r/a.ram"));
    EXPECT_EQ(form().Text1.Text, "/r/a.ram");
    EXPECT_TRUE(world.documents.added.empty());
    EXPECT_TRUE(world.log.of({"engine.open"}).empty());
    EXPECT_FALSE(world.app().MainLoadInProgress);
}

TEST_F(CommandLine, ARamFileIsRenamedAndPlayed) {
    file("/r/A.RAM", 12);
    world.boxes.answers = {BoxResult::Yes};
    start("/r/A.RAM");
    EXPECT_TRUE(world.files.hasExactly("/r/A.ra"));
    EXPECT_EQ(form().Text1.Text, "/r/A.ra");
    EXPECT_EQ(world.log.of({"documents.add", "engine.open"}), (Texts{"documents.add /r/a.ra", "engine.open /r/A.ra"}));
    EXPECT_EQ(recentFiles(), Texts{"&1. /r/a.ra [File length: 12]"});
}

TEST_F(CommandLine, ARamFileThatCannotBeRenamedIsNotPlayed) {
    file("/r/a.ram");
    file("/r/a.ra");
    world.boxes.answers = {BoxResult::Yes};
    start("/r/a.ram");
    expectBox("Unable to rename file:  File already exists", BoxIcon::Exclamation);
    EXPECT_EQ(form().Text1.Text, "/r/a.ra") << "the new path, although the rename failed";
    EXPECT_TRUE(world.documents.added.empty());
    EXPECT_TRUE(world.log.of({"engine.open"}).empty());
}

TEST_F(CommandLine, ACdTrackIsAnnouncedAndPlayed) {
    file("/cd/Track02.cda", 44);
    world.cd.addTrack(75 * 60);
    world.cd.addTrack(75 * 100 + 74);
    start("/cd/Track02.cda");
    EXPECT_EQ(world.log.of({"documents.add", "cd.", "engine."}),
              (Texts{"documents.add /cd/track02.cda", "cd.ReadDirectory", "cd.PlayTrack 1"}));
    EXPECT_TRUE(isRunning());
    EXPECT_EQ(form().Label3.Caption, "Audio Track #2");
    EXPECT_EQ(totalDigits(), "00:01:40");
    EXPECT_FALSE(world.app().MainLoadInProgress);
}

TEST_F(CommandLine, ACdThatIsNotReadyEndsTheLoad) {
    file("/cd/Track02.cda", 44);
    world.cd.ready = [] { return false; };
    start("/cd/Track02.cda");
    expectBox("CD not ready (15 second timeout).", BoxIcon::Exclamation);
    EXPECT_TRUE(world.app().MainLoadInProgress);
    EXPECT_TRUE(world.app().settings.isLoaded());
    EXPECT_TRUE(isIdle());
    EXPECT_EQ(form().Text1.Text, "/cd/Track02.cda");
    EXPECT_EQ(world.documents.added.size(), 1U);
}

TEST_F(CommandLine, AnEngineThatRefusesTheFileShowsNothing) {
    file("/music/a.mp3");
    world.media.broken.insert("/music/a.mp3");
    start("/music/a.mp3");
    EXPECT_TRUE(world.boxes.shown.empty());
    EXPECT_TRUE(isIdle());
    EXPECT_FALSE(world.app().MainLoadInProgress);
}

} // namespace
} // namespace tonvale::test
