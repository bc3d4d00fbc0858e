// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/shared_windows.h"
#include "tests/unit/fakes/VideoTest.h"

namespace tonvale::test {
namespace {

// The base window is 7500 x 4665 twips, of which 690 are title and menu; the screen 15360 x 11520.

TEST_F(Video, AFilmOf320By240GetsTheFrameOfTheFormulas) {
    play({320, 240});
    // 3855 + 3600 + 690 + 120 high; 4800 + 2 * 120 is narrower than the base width.
    EXPECT_EQ(frame(), "3930,1627.500000 7500x8265");
    EXPECT_EQ(picture(), "1350,3855 4800x3600");
    EXPECT_TRUE(form().ActiveMovie1.Visible);
}

TEST_F(Video, APictureWithoutHeightWouldLeaveTheWindowAsItIs) {
    play({320, 240});
    EXPECT_EQ(form().Height - form().ActiveMovie1.Height, form().OriginalHeight);
}

TEST_F(Video, ThatHoldsWhateverStandsAroundTheInside) {
    start();
    form().setChrome(0, 900);
    play({320, 240});
    EXPECT_EQ(form().Height, 4665 + 3600);
    EXPECT_EQ(form().ActiveMovie1.Top, 4665 - 900 - 120);
}

TEST_F(Video, EachZoomEntryStopsSizesPlaysAndFits) {
    struct Case {
        MenuEntry Form1::*entry;
        MenuEntry Form1::*twin; // null: it has none that acts
        std::int32_t size;
        const char *picture;
    };
    for (const Case &c : {Case{&Form1::half, &Form1::VidHalfPop, 1, "2550,3855 2400x1800"},
                          Case{&Form1::DoubleSizeMenu, nullptr, 2, "120,3855 9600x7200"},
                          Case{&Form1::original, &Form1::VidOrigSize, 0, "1350,3855 4800x3600"},
                          Case{&Form1::Quarter, &Form1::VidQuarterPop, 6, "120,3855 7680x5760"}}) {
        for (MenuEntry Form1::*entry : {c.entry, c.twin}) {
            if (entry == nullptr) continue;
            play({320, 240});
            if (c.size == 2) world.screen.screenHeight = 30000;
            form().ActiveMovie1.FullScreenMode = true;
            click((form().*entry).Click);
            EXPECT_EQ(form().ActiveMovie1.DisplaySize(), c.size);
            EXPECT_FALSE(form().ActiveMovie1.FullScreenMode) << c.size;
            EXPECT_EQ(picture(), c.picture);
            EXPECT_EQ(form().Height, 4665 + form().ActiveMovie1.Height);
            EXPECT_EQ(world.log.of({"engine"}), (Texts{"engine.stop", "engine.play"}));
            EXPECT_TRUE(isRunning()) << c.size;
            EXPECT_TRUE(form().Timer3.Enabled());
        }
    }
}

TEST_F(Video, ThePicturesOwnEntryForDoubleSizeDoesNothing) {
    play({320, 240});
    click(form().VidDblPop.Click);
    EXPECT_EQ(form().ActiveMovie1.DisplaySize(), 0);
    EXPECT_TRUE(world.log.of({"engine"}).empty());
}

TEST_F(Video, AnOddWidthIsCentredToTheHalfTwip) {
    play({321, 240});
    EXPECT_EQ(form().ActiveMovie1.Left, 1342); // 1342.5 is rounded as the film opens
    click(form().original.Click);
    EXPECT_EQ(form().ActiveMovie1.Left, 1342.5);
}

TEST_F(Video, AnyZoomOfAPictureLargerThanTheScreenTurnsIntoFullScreen) {
    play({4096, 2160});
    EXPECT_TRUE(form().ActiveMovie1.FullScreenMode);
    const std::string before = frame();
    click(form().half.Click);
    EXPECT_TRUE(form().ActiveMovie1.FullScreenMode);
    EXPECT_EQ(frame(), before);
}

TEST_F(Video, DoubleSizeOnASmallScreenTurnsIntoFullScreen) {
    play({320, 240});
    EXPECT_FALSE(form().ActiveMovie1.FullScreenMode);
    click(form().DoubleSizeMenu.Click); // 4665 + 7200 twips are higher than the screen
    EXPECT_TRUE(form().ActiveMovie1.FullScreenMode);
}

TEST_F(Video, ExtremePicturesAreShown) {
    play({1, 1});
    EXPECT_EQ(form().Height, 4665 + 15);
    play({7680, 4320});
    EXPECT_TRUE(form().ActiveMovie1.FullScreenMode);
    play({1, 1}, "/v/b.avi");
    EXPECT_FALSE(form().ActiveMovie1.FullScreenMode);
}

TEST_F(Video, AVideoFileWithoutAPictureHoldsTheControlsOwnSize) {
    play({0, 0}, "/v/sound.mpg");
    EXPECT_TRUE(isRunning());
    EXPECT_EQ(form().Height, 4665 + form().ActiveMovie1.Height);
}

TEST_F(Video, APictureThatChangesInMidStreamIsFollowedByTheNextZoom) {
    play({320, 240});
    world.media.changePicture({640, 480});
    world.runUntilIdle();
    EXPECT_EQ(form().ActiveMovie1.Width, 9600);
    EXPECT_EQ(form().Height, 8265);
    click(form().half.Click);
    EXPECT_EQ(form().Height, 4665 + 3600);
}

TEST_F(Video, AZoomWithNothingLoadedFitsTheWindow) {
    start();
    form().Height = 9000;
    click(form().half.Click);
    EXPECT_EQ(form().Height, 4665 + form().ActiveMovie1.Height);
    EXPECT_TRUE(isIdle());
    EXPECT_EQ(world.media.made, 0);
}

TEST_F(Video, AStopBringsTheBaseSizeBack) {
    play({320, 240});
    click(form().StopMenu.Click);
    EXPECT_EQ(form().Width, 7500);
    EXPECT_EQ(form().Height, 4665);
}

// ---- full screen ----------------------------------------------------------------------------------

TEST_F(Video, StretchCoversTheScreen) {
    for (MenuEntry Form1::*entry : {&Form1::FullZoomMenu, &Form1::VidFullPop}) {
        play({320, 240});
        form().ActiveMovie1.FullScreenMode = false;
        click((form().*entry).Click);
        EXPECT_TRUE(form().ActiveMovie1.FullScreenMode);
        EXPECT_EQ(world.log.of({"engine"}), (Texts{"engine.stop", "engine.play"}));
        EXPECT_TRUE(isRunning());
    }
}

TEST_F(Video, TheAdvancedFullScreenMovesToItsOwnWindow) {
    for (MenuEntry Form1::*entry : {&Form1::FullScreenAdvMenu, &Form1::FullPopMenu}) {
        world.app().frmVideoPlay.Unload();
        play({320, 240});
        click((form().*entry).Click);
        EXPECT_TRUE(isIdle());
        EXPECT_EQ(form().ActiveMovie1.State(), PlayState::Stopped);
        EXPECT_EQ(form().Width, 7500);
        EXPECT_EQ(form().Height, 4665);
        EXPECT_FALSE(form().Visible);
        ASSERT_TRUE(world.app().frmVideoPlay.isLoaded());
        VideoWindow &window = *world.app().frmVideoPlay;
        EXPECT_TRUE(window.Visible);
        EXPECT_EQ(window.MediaPlayer1.FileName(), kFilm);
        EXPECT_EQ(window.MediaPlayer1.State(), PlayState::Playing);
    }
}

TEST_F(Video, TheAdvancedFullScreenComesUpForAFileThatCannotBeOpened) {
    play({320, 240});
    world.media.broken.insert(kFilm);
    click(form().FullScreenAdvMenu.Click);
    EXPECT_TRUE(world.app().frmVideoPlay->Visible);
    EXPECT_EQ(world.app().frmVideoPlay->MediaPlayer1.FileName(), "");
    EXPECT_TRUE(world.boxes.shown.empty());
}

// ---- Vivo -----------------------------------------------------------------------------------------

class VivoZoom : public Video {
protected:
    void loadVivo(const std::string &path) {
        start();
        form().Text1.Text = path;
        world.app().VivoPlayer->Caption = "unchanged";
        world.log.clear();
    }
    VivoWindow &viewer() { return *world.app().VivoPlayer; }
};

TEST_F(VivoZoom, OriginalSizeTakesTheViewerOutOfFullScreen) {
    for (const char *path : {"/v/a.viv", "/v/a.vivo"})
        for (const bool wasFull : {true, false}) {
            loadVivo(path);
            viewer().FullScreenMenu.Checked = wasFull;
            click(form().original.Click);
            EXPECT_EQ(viewer().Caption, "Right-Click for Options...");
            EXPECT_EQ(world.log.all(), (Texts{"vivo.leaves full screen"}));
            EXPECT_FALSE(viewer().FullScreenMenu.Checked);
        }
}

TEST_F(VivoZoom, StretchTakesTheViewerToFullScreen) {
    for (const bool wasFull : {true, false}) {
        loadVivo("/v/a.viv");
        viewer().FullScreenMenu.Checked = wasFull;
        click(form().FullZoomMenu.Click);
        EXPECT_EQ(viewer().Caption, "");
        EXPECT_EQ(world.log.all(), (Texts{"vivo.enters full screen"}));
        EXPECT_TRUE(viewer().FullScreenMenu.Checked);
        EXPECT_FALSE(form().ActiveMovie1.FullScreenMode);
    }
}

TEST_F(VivoZoom, AnExtensionInCapitalsIsTheEngines) {
    loadVivo("/v/a.VIV");
    click(form().original.Click);
    EXPECT_EQ(viewer().Caption, "unchanged");
    click(form().FullZoomMenu.Click);
    EXPECT_TRUE(form().ActiveMovie1.FullScreenMode);
}

// ---- what is to be had ------------------------------------------------------------------------------

class ZoomEntry : public Video {
protected:
    // Opens the File menu with this path loaded.
    void openFileMenu(const std::string &path) {
        form().Text1.Text = path;
        click(form().FileMenu.Click);
    }
};

TEST_F(ZoomEntry, IsGreyForWhatHasNoPicture) {
    start();
    for (const char *extension :
         {"cda", "rpm", "mp3", "wav", "asf", "mid", "midi", "aif", "aifc", "aiff", "au", "snd", "rmi", "MP3", "Wav"}) {
        form().zoom.Enabled = true;
        openFileMenu(std::string("/m/a.") + extension);
        EXPECT_FALSE(form().zoom.Enabled) << extension;
    }
    for (const char *extension : {"avi", "mpg", "mp2", "viv", "ra", "xyz"}) {
        form().zoom.Enabled = false;
        openFileMenu(std::string("/m/a.") + extension);
        EXPECT_TRUE(form().zoom.Enabled) << extension;
    }
}

TEST_F(ZoomEntry, IsToBeHadWithoutAFile) {
    start();
    EXPECT_FALSE(form().zoom.Enabled);
    openFileMenu("");
    EXPECT_TRUE(form().zoom.Enabled);
}

TEST_F(ZoomEntry, VivoHasTwoSizesOnly) {
    start();
    for (const auto &[path, enabled] : std::vector<std::pair<std::string, bool>>{
             {"/v/a.viv", false}, {"/v/a.avi", true}, {"/v/a.vivo", false}, {"/v/a.VIV", true}}) {
        openFileMenu(path);
        for (const MenuEntry *entry : {&form().half, &form().Quarter, &form().DoubleSizeMenu})
            EXPECT_EQ(entry->Enabled, enabled) << path;
        EXPECT_TRUE(form().original.Enabled);
    }
}

TEST_F(ZoomEntry, ClosesItselfWhileNoPictureEnlargesTheWindow) {
    start();
    form().zoom.Enabled = true;
    click(form().zoom.Click);
    EXPECT_FALSE(form().zoom.Enabled);
    play({320, 240});
    form().zoom.Enabled = false;
    click(form().zoom.Click);
    EXPECT_TRUE(form().zoom.Enabled);
}

// ---- rolling up ---------------------------------------------------------------------------------------

class RollUp : public Video {};

TEST_F(RollUp, LeavesTitleAndMenuAndComesBack) {
    start();
    click(form().rollmenu.Click);
    EXPECT_EQ(form().Height, 650);
    EXPECT_EQ(form().rollmenu.Caption, "&Roll Down");
    click(form().rollmenu.Click);
    EXPECT_EQ(form().Height, 4665);
    EXPECT_EQ(form().rollmenu.Caption, "&Roll Up");
}

TEST_F(RollUp, DuringAVideoComesBackToTheBaseHeight) {
    play({320, 240});
    EXPECT_EQ(form().Height, 8265);
    click(form().rollmenu.Click);
    click(form().rollmenu.Click);
    EXPECT_EQ(form().Height, 4665);
}

TEST_F(RollUp, AStopSetsTheHeightBackAndTheCaptionStays) {
    play({320, 240});
    click(form().rollmenu.Click);
    click(form().StopMenu.Click);
    EXPECT_EQ(form().Height, 4665);
    EXPECT_EQ(form().rollmenu.Caption, "&Roll Down");
}

TEST_F(RollUp, AudioLeavesTheRolledUpWindowAlone) {
    start();
    click(form().rollmenu.Click);
    file("/m/a.mp3");
    open("/m/a.mp3");
    EXPECT_EQ(form().Height, 650);
    EXPECT_TRUE(isRunning());
    EXPECT_FALSE(form().Timer3.Enabled());
}

TEST(ScreenSaverEntry, BlanksTheScreen) {
    World world;
    world.start().StartSSMenu.Click();
    EXPECT_EQ(world.screenSaver.activated, 1);
}

} // namespace
} // namespace tonvale::test
