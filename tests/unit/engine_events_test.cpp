// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/unit/fakes/PlayerTest.h"

#include <cmath>

namespace tonvale::test {
namespace {

constexpr const char *kRealQuestion =
    "Is the selected file RealVideo or RealAudio?  If RealVideo, click \"Yes\", otherwise click \"No\".";
constexpr double kChromeWidth = 120, kChromeHeight = 690;

class EngineEvents : public PlayerTest {
protected:
    EngineEvents() {
        start();
        form().setChrome(kChromeWidth, kChromeHeight);
    }
    void picture(double width, double height) {
        form().ActiveMovie1.Width = width;
        form().ActiveMovie1.Height = height;
    }
    void play(const std::string &path) {
        file(path);
        executeFromDesktop(path);
    }
    void loop(bool on) { world.app().settings->Check6.Value = on ? 1 : 0; }
};

TEST_F(EngineEvents, EachVideoExtensionShowsThePictureAndEnablesTheZoom) {
    for (const char *extension : {"avi", "mov", "mpg", "mpeg", "dat", "m1v", "enc", "qt", "mpv", "mpa", "AVI", "Mpg"}) {
        form().ActiveMovie1.Visible = false;
        form().zoom.Enabled = false;
        play(std::string("/v/a.") + extension);
        EXPECT_TRUE(form().ActiveMovie1.Visible) << extension;
        EXPECT_TRUE(form().zoom.Enabled) << extension;
        EXPECT_TRUE(form().Timer3.Enabled()) << extension;
        EXPECT_TRUE(world.boxes.shown.empty()) << extension;
    }
}

TEST_F(EngineEvents, AudioHidesThePictureAndTheZoom) {
    for (const char *extension : {"mp3", "wav", "mid", "mp2", "asf", "aiff", "au", "snd", "rmi", "xyz", "viv"}) {
        World other;
        Form1 &window = other.start();
        window.ActiveMovie1.Visible = true;
        window.zoom.Enabled = true;
        window.ActiveMovie1.FileName(std::string("/a/a.") + extension);
        other.runUntilIdle();
        EXPECT_FALSE(window.ActiveMovie1.Visible) << extension;
        EXPECT_FALSE(window.zoom.Enabled) << extension;
        EXPECT_TRUE(window.Timer3.Enabled()) << extension;
    }
}

TEST_F(EngineEvents, TheWindowFitsThePictureAndStandsInTheMiddle) {
    picture(9000, 4500);
    const double top = form().ActiveMovie1.Top;
    play("/v/a.avi");
    const int margin = form().VideoMargin;
    EXPECT_EQ(form().Width, 9000 + 2 * margin + kChromeWidth);
    EXPECT_EQ(form().Height, top + 4500 + kChromeHeight + margin);
    EXPECT_EQ(form().Left, (world.screen.screenWidth - form().Width) / 2);
    EXPECT_EQ(form().Top, (world.screen.screenHeight - form().Height) / 2);
    EXPECT_FALSE(form().ActiveMovie1.FullScreenMode);
    // The inside is two margins wider than the picture, so the picture is centred at the margin.
    EXPECT_EQ(form().ActiveMovie1.Left, margin);
}

TEST_F(EngineEvents, ANarrowPictureIsCentredInAWindowOfItsLeastWidth) {
    picture(3000, 2000);
    play("/v/a.avi");
    EXPECT_EQ(form().Width, form().OriginalWidth);
    EXPECT_EQ(form().ActiveMovie1.Left, std::round((form().ScaleWidth() - 3000) / 2));
}

TEST_F(EngineEvents, APictureLargerThanTheScreenGoesFullScreen) {
    picture(world.screen.screenWidth, 2000);
    const double width = form().Width;
    play("/v/a.avi");
    EXPECT_TRUE(form().ActiveMovie1.FullScreenMode);
    EXPECT_EQ(form().Width, width);
    EXPECT_TRUE(form().Timer3.Enabled());
}

TEST_F(EngineEvents, APictureHigherThanTheScreenGoesFullScreen) {
    picture(3000, world.screen.screenHeight);
    play("/v/a.avi");
    EXPECT_TRUE(form().ActiveMovie1.FullScreenMode);
}

TEST_F(EngineEvents, AVideoThatFitsLeavesFullScreen) {
    form().ActiveMovie1.FullScreenMode = true;
    picture(3000, 2000);
    play("/v/a.avi");
    EXPECT_FALSE(form().ActiveMovie1.FullScreenMode);
}

TEST_F(EngineEvents, AnExtensionInCapitalsKeepsTheWindowsSize) {
    picture(9000, 4500);
    const double left = form().Left;
    play("/v/a.AVI");
    EXPECT_TRUE(form().ActiveMovie1.Visible);
    EXPECT_EQ(form().Width, form().OriginalWidth);
    EXPECT_EQ(form().Height, form().OriginalHeight);
    EXPECT_EQ(form().Left, left);
}

TEST_F(EngineEvents, AudioBringsTheBaseSizeBack) {
    picture(9000, 4500);
    play("/v/a.avi");
    form().Width = 12345;
    play("/a/a.mp3");
    EXPECT_EQ(form().Width, form().OriginalWidth);
    EXPECT_EQ(form().Height, form().OriginalHeight);
}

TEST_F(EngineEvents, AudioLeavesARolledUpWindowAloneAndTheDisplayStandsStill) {
    play("/a/a.mp3");
    click(form().StopMenu.Click);
    form().rollmenu.Caption = "&Roll Down";
    form().Height = 650;
    form().ActiveMovie1.FileName("/a/b.mp3");
    world.runUntilIdle();
    EXPECT_EQ(form().Height, 650);
    EXPECT_FALSE(form().Timer3.Enabled());
    EXPECT_TRUE(isRunning());
}

TEST_F(EngineEvents, ARealFileAsksWhetherItHoldsPictures) {
    for (const char *extension : {"ram", "ra", "rm", "rpm", "rmm", "RM"}) {
        World other;
        Form1 &window = other.start();
        window.zoom.Enabled = true;
        window.ActiveMovie1.FileName(std::string("/r/a.") + extension);
        other.runUntilIdle();
        ASSERT_EQ(other.boxes.shown.size(), 1U) << extension;
        EXPECT_EQ(other.boxes.last().text, kRealQuestion);
        EXPECT_EQ(other.boxes.last().icon, BoxIcon::Information);
        EXPECT_EQ(other.boxes.last().buttons, BoxButtons::YesNo);
        EXPECT_EQ(other.boxes.last().place, BoxPlace::Foreground);
        EXPECT_FALSE(window.zoom.Enabled) << extension;
    }
}

TEST_F(EngineEvents, RealVideoIsShownAndTheWindowKeepsItsSize) {
    picture(9000, 4500);
    world.boxes.answers = {BoxResult::Yes};
    play("/r/a.rm");
    EXPECT_TRUE(form().ActiveMovie1.Visible);
    EXPECT_EQ(form().Width, form().OriginalWidth);
    EXPECT_TRUE(form().Timer3.Enabled());
}

TEST_F(EngineEvents, RealAudioIsHidden) {
    form().ActiveMovie1.Visible = true;
    world.boxes.answers = {BoxResult::No};
    play("/r/a.rm");
    EXPECT_FALSE(form().ActiveMovie1.Visible);
    EXPECT_TRUE(form().Timer3.Enabled());
}

TEST_F(EngineEvents, TheRealAnswerIsAskedForAtEachOpen) {
    play("/r/a.rm");
    play("/r/a.rm");
    EXPECT_EQ(world.boxes.shown.size(), 2U);
}

TEST_F(EngineEvents, TheEndOfTheMediaIsIdle) {
    play("/a/a.mp3");
    world.media.finish();
    world.runUntilIdle();
    EXPECT_TRUE(isIdle());
    EXPECT_EQ(form().MMLEDX1.LEDColor, kRed);
    EXPECT_EQ(form().Text1.Text, "/a/a.mp3");
}

TEST_F(EngineEvents, WithTheLoopTheMediaPlayAgain) {
    world.media.durations["/a/a.mp3"] = 3700;
    loop(true);
    play("/a/a.mp3");
    for (int round = 0; round < 3; ++round) {
        world.advance(1000);
        world.media.finish();
        world.runUntilIdle();
        EXPECT_TRUE(isRunning());
        EXPECT_TRUE(world.media.playing);
        EXPECT_EQ(totalDigits(), "01:01:40");
    }
    EXPECT_EQ(world.log.count("engine.open /a/a.mp3"), 1);
}

TEST_F(EngineEvents, ALoopSwitchedOffWhilePlayingEndsWithTheMedia) {
    loop(true);
    play("/a/a.mp3");
    loop(false);
    world.media.finish();
    world.runUntilIdle();
    EXPECT_TRUE(isIdle());
    EXPECT_FALSE(world.media.playing);
}

TEST_F(EngineEvents, ANewFileWhilePlayingIsRunningInTheEnd) {
    play("/a/a.mp3");
    world.media.durations["/a/b.mp3"] = 20;
    play("/a/b.mp3");
    EXPECT_TRUE(isRunning());
    EXPECT_TRUE(form().Timer1.Enabled());
    EXPECT_TRUE(form().Timer3.Enabled());
    EXPECT_EQ(totalDigits(), "00:00:20");
    EXPECT_EQ(form().Label3.Caption, "b.mp3");
}

TEST_F(EngineEvents, Timer1RunsWithTheEngine) {
    play("/a/a.mp3");
    EXPECT_TRUE(form().Timer1.Enabled());
    form().ActiveMovie1.Pause();
    world.runUntilIdle();
    EXPECT_FALSE(form().Timer1.Enabled());
    form().ActiveMovie1.Play();
    world.runUntilIdle();
    EXPECT_TRUE(form().Timer1.Enabled());
    form().ActiveMovie1.Stop();
    world.runUntilIdle();
    EXPECT_FALSE(form().Timer1.Enabled());
}

TEST_F(EngineEvents, AFileThatCannotBeOpenedLeavesTheWindowInItsFormerLook) {
    world.media.broken.insert("/a/bad.ply");
    play("/a/bad.mp3");
    click(form().StopMenu.Click);
    const std::string label = form().Label3.Caption;
    form().ActiveMovie1.AutoStart = true;
    EXPECT_THROW(form().ActiveMovie1.FileName("/a/bad.ply"), RuntimeError);
    world.runUntilIdle();
    EXPECT_TRUE(isIdle());
    EXPECT_EQ(form().Label3.Caption, label);
    EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(EngineEvents, ThePicturesHintTellsTheWayOutOfFullScreen) {
    form().ActiveMovie1.MouseMove(0, 0, 1, 1);
    EXPECT_EQ(form().ActiveMovie1.ToolTipText, "Right-Click for Options...");
    form().ActiveMovie1.FullScreenMode = true;
    form().ActiveMovie1.MouseMove(0, 0, 1, 1);
    EXPECT_EQ(form().ActiveMovie1.ToolTipText, "Press escape to resturn to Tonvale.  Left-Click to replay.");
}

TEST_F(EngineEvents, TheRightButtonPopsUpThePicturesMenuBroughtUpToDate) {
    std::vector<MenuEntry *> shown;
    const Connection connection = form().popUpRequested.connect([&](MenuEntry &menu) { shown.push_back(&menu); });
    play("/v/a.avi");
    click(form().PauseMenu.Click);
    click(form().MuteMenu.Click);
    form().ActiveMovie1.MouseUp(2, 0, 1, 1);
    EXPECT_EQ(shown, std::vector<MenuEntry *>{&form().VidPopMenu});
    EXPECT_EQ(form().VidPlayPop.Caption, "&Stop");
    EXPECT_EQ(form().VidPlayCurrentPop.Caption, "&Play");
    EXPECT_FALSE(form().VidPlayCurrentPop.Enabled);
    EXPECT_EQ(form().VidPausePop.Caption, "&Resume");
    EXPECT_TRUE(form().VidPausePop.Enabled);
    EXPECT_TRUE(form().VidDeletePop.Enabled);
    EXPECT_EQ(form().VidMutePop.Caption, "&Un-Mute");
    EXPECT_TRUE(form().VidZoomPop.Enabled);

    click(form().playmenu.Click);
    form().DeleteMenu.Enabled = false;
    form().zoom.Enabled = false;
    form().ActiveMovie1.MouseUp(2, 0, 1, 1);
    EXPECT_EQ(form().VidPlayPop.Caption, "&Load and Play File");
    EXPECT_TRUE(form().VidPlayCurrentPop.Enabled);
    EXPECT_FALSE(form().VidPausePop.Enabled);
    EXPECT_FALSE(form().VidDeletePop.Enabled);
    EXPECT_FALSE(form().VidZoomPop.Enabled);
}

TEST_F(EngineEvents, OtherButtonsDoNothing) {
    int shown = 0;
    const Connection connection = form().popUpRequested.connect([&](MenuEntry &) { ++shown; });
    const std::string caption = form().VidPlayPop.Caption;
    form().ActiveMovie1.MouseUp(1, 0, 1, 1);
    form().ActiveMovie1.MouseUp(4, 0, 1, 1);
    EXPECT_EQ(shown, 0);
    EXPECT_EQ(form().VidPlayPop.Caption, caption);
}

} // namespace
} // namespace tonvale::test
