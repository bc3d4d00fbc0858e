// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/unit/fakes/PlayerTest.h"

namespace tonvale::test {
namespace {

constexpr const char *kPlayQuestion =
    "RealAudio/Video files named with the .ram extension are currently not supported directly.  Would you like to "
    "rename the file with .ra and continue with play?  (Selecting No will result in the file not being played.)";

class OpenDialog : public PlayerTest {
protected:
    OpenDialog() {
        start();
        world.log.clear();
    }
};

TEST_F(OpenDialog, IsSetUpForMediaFiles) {
    form().playmenu.Click();
    ASSERT_EQ(world.dialogs.opened.size(), 1U);
    const OpenFileName &dialog = world.dialogs.opened.front();
    EXPECT_EQ(dialog.title, "Open Media File...");
    EXPECT_EQ(dialog.flags, 4);
    EXPECT_EQ(dialog.file, "");
    EXPECT_EQ(dialog.initialDirectory, "/home/me");
    std::string filter = dialog.filter;
    EXPECT_EQ(filter.back(), '\0');
    filter.pop_back();
    std::replace(filter.begin(), filter.end(), '\0', '|');
    EXPECT_EQ(filter,
              "All Media Formats|*.viv;*.vivo;*.rm;*.rmm;*.cda;*.ra;*.rpm;*.ram;*.avi;*.mp3;*.mpg;*.mpa;*.mpv;*.mov;"
              "*.qt;*.mpeg;*.enc;*.m1v;*.mp2;*.asf;*.wav;*.mid;*.midi;*.aif;*.aiff;*.aifc;*.au;*.snd;*.rmi;*.dat|"
              "MPEG Layer-3 Audio (MP3)|*.mp3|CD Audio|*.cda|Video CD|*.dat|Vivo (Digital Video)|*.viv;*.vivo|"
              "DirectShow Formats|*.mpg;*.mpa;*.mpv;*.mov;*.qt;*.mpeg;*.enc;*.m1v;*.mp2|"
              "Active Streaming Format|*.asf|Standard Audio Formats|*.wav;*.mid;*.midi;*.rmi;*.aif;*.aiff;*.aifc;"
              "*.au;*.snd|Video for Windows|*.avi|Real Media|*.ra;*.rpm;*.rm;*.ram;*.rmm");
}

TEST_F(OpenDialog, BeginsWhereTheLastFileWasChosen) {
    file("/Music/Pop/a.mp3");
    open("/Music/Pop/a.mp3");
    EXPECT_EQ(world.setting("Common Dialog Dir"), "/Music/Pop");
    form().playmenu.Click(); // stop
    form().playmenu.Click();
    EXPECT_EQ(world.dialogs.opened.back().initialDirectory, "/Music/Pop");
    EXPECT_EQ(world.dialogs.opened.back().file, "");
}

TEST_F(OpenDialog, CancelledChangesNothingButTimer1) {
    file("/m/a.mp3");
    open("/m/a.mp3");
    click(form().StopMenu.Click);
    form().Timer1.Enabled(true);
    world.log.clear();
    click(form().playmenu.Click);
    EXPECT_FALSE(form().Timer1.Enabled());
    EXPECT_EQ(form().Text1.Text, "/m/a.mp3");
    EXPECT_EQ(form().LastOpenName, "/m/a.mp3");
    EXPECT_EQ(world.log.all(), Texts{"dialog.open"});
}

TEST_F(OpenDialog, PlaysTheChosenFile) {
    file("/m/A.mp3", 99);
    form().ActiveMovie1.AutoStart = false;
    int raised = 0;
    const Connection connection = form().raised.connect([&] { ++raised; });
    open("/m/A.mp3");
    EXPECT_TRUE(isRunning());
    EXPECT_EQ(form().Text1.Text, "/m/A.mp3");
    EXPECT_EQ(form().LastOpenName, "/m/A.mp3");
    EXPECT_TRUE(form().ActiveMovie1.AutoStart);
    EXPECT_EQ(raised, 1);
    EXPECT_EQ(recentFiles(), Texts{"&1. /m/a.mp3 [File length: 99]"});
    EXPECT_EQ(world.log.of({"cd.StopPlay", "documents", "engine.open", "engine.play"}),
              (Texts{"cd.StopPlay", "documents.add /m/a.mp3", "engine.open /m/A.mp3", "engine.play"}));
}

TEST_F(OpenDialog, SendsTheShortVivoNameToTheViewerMinimized) {
    file("/v/A.VIV");
    open("/v/A.VIV");
    EXPECT_EQ(form().State, WindowState::Minimized);
    EXPECT_EQ(world.log.of({"vivo", "engine.open", "documents"}),
              (Texts{"documents.add /v/a.viv", "vivo.LoadFile /v/A.VIV", "vivo.Start", "vivo.shown"}));
}

TEST_F(OpenDialog, SendsTheLongVivoNameToTheMediaEngine) {
    file("/v/a.vivo");
    open("/v/a.vivo");
    EXPECT_EQ(world.media.file, "/v/a.vivo");
    EXPECT_TRUE(world.log.of({"vivo"}).empty());
    EXPECT_EQ(form().State, WindowState::Normal);
}

TEST_F(OpenDialog, SendsAPlaylistToTheMediaEngine) {
    file("/m/a.ply");
    open("/m/a.ply");
    EXPECT_EQ(world.media.file, "/m/a.ply");
    EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(OpenDialog, OpensTheCdDeviceOfTheSettings) {
    file("/cd/Track01.cda");
    world.cd.addTrack(7500);
    world.app().settings->DevCombo.ListIndex = 2;
    world.log.clear();
    open("/cd/Track01.cda");
    EXPECT_EQ(world.log.of({"documents", "cd."}),
              (Texts{"cd.StopPlay", "documents.add /cd/track01.cda", "cd.DeviceID 2", "cd.OpenDevice",
                     "cd.ReadDirectory", "cd.PlayTrack 0"}));
    EXPECT_TRUE(isRunning());
    EXPECT_TRUE(world.app().settings.isLoaded()) << "stays loaded hidden";
}

TEST_F(OpenDialog, ADeviceThatCannotBeOpenedIsTriedAllTheSame) {
    file("/cd/Track01.cda");
    world.cd.addTrack(7500);
    world.cd.openFails = true;
    open("/cd/Track01.cda");
    EXPECT_TRUE(isRunning());
}

TEST_F(OpenDialog, ARamFileIsAskedForFirst) {
    file("/r/a.ram");
    world.boxes.answers = {BoxResult::No};
    open("/r/a.ram");
    expectBox(kPlayQuestion, BoxIcon::Question, BoxPlace::Foreground, BoxButtons::YesNo);
    EXPECT_TRUE(world.documents.added.empty());
    EXPECT_TRUE(recentFiles().empty());
    EXPECT_TRUE(world.log.of({"engine.open"}).empty());
    EXPECT_EQ(form().Text1.Text, "/r/a.ram");
}

TEST_F(OpenDialog, ARamFileInCapitalsIsAnnouncedFirst) {
    file("/r/a.RAM");
    world.boxes.answers = {BoxResult::No};
    open("/r/a.RAM");
    EXPECT_EQ(world.log.of({"documents", "box"}),
              (Texts{"documents.add /r/a.ram", std::string("box ") + std::string(kPlayQuestion).substr(0, 24)}));
}

TEST_F(OpenDialog, ARamFileIsRenamedPlayedAndAnnouncedByItsNewName) {
    file("/r/a.ram", 5);
    form().ActiveMovie1.AutoStart = false;
    world.boxes.answers = {BoxResult::Yes, BoxResult::No};
    open("/r/a.ram");
    EXPECT_EQ(form().Text1.Text, "/r/a.ra");
    EXPECT_EQ(form().RaPath, "/r/a.ra");
    EXPECT_EQ(form().LastOpenName, "/r/a.ram");
    EXPECT_TRUE(form().ActiveMovie1.AutoStart);
    EXPECT_EQ(world.log.of({"documents", "files.rename", "engine.open"}),
              (Texts{"files.rename /r/a.ram -> /r/a.ra", "engine.open /r/a.ra", "documents.add /r/a.ra"}));
    EXPECT_EQ(recentFiles(), Texts{"&1. /r/a.ra [File length: 5]"});
}

TEST_F(OpenDialog, ARamFileThatCannotBeRenamedIsLeft) {
    file("/r/a.ram");
    file("/r/a.ra");
    world.boxes.answers = {BoxResult::Yes};
    open("/r/a.ram");
    expectBox("Unable to rename file:  File already exists", BoxIcon::Exclamation);
    EXPECT_EQ(form().Text1.Text, "/r/a.ram");
    EXPECT_TRUE(world.documents.added.empty());
    EXPECT_TRUE(world.log.of({"engine.open"}).empty());
}

TEST_F(OpenDialog, AFileOfUnknownLengthStillReachesTheDesktopsList) {
    open("/m/vanished.mp3");
    EXPECT_TRUE(recentFiles().empty());
    EXPECT_EQ(world.documents.added, Texts{"/m/vanished.mp3"});
    EXPECT_EQ(world.media.file, "/m/vanished.mp3");
}

TEST_F(OpenDialog, AStoreThatCannotBeWrittenChangesNothingElse) {
    file("/m/a.mp3");
    world.registry.writeError = ErrorNumber::DiskFull;
    open("/m/a.mp3");
    EXPECT_TRUE(isRunning());
    EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(OpenDialog, ADialogThatFailsIsLikeACancelledOne) {
    world.dialogs.failure = ErrorNumber::OutOfMemory;
    click(form().playmenu.Click);
    EXPECT_TRUE(isIdle());
    EXPECT_TRUE(world.boxes.shown.empty());
    EXPECT_EQ(form().Text1.Text, "");
}

} // namespace
} // namespace tonvale::test
