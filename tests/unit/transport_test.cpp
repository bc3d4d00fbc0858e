// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/unit/fakes/PlayerTest.h"

namespace tonvale::test {
namespace {

constexpr const char *kLoopNotice =
    "The loop option has now been disabled, in order to stop play.  To use the loop feature in the future, after "
    "stopping, simply re-enable the setting in \"Preferences\" from the Options menu.";

class Transport : public PlayerTest {
protected:
    Transport() {
        start();
        file("/m/a.mp3");
        file("/m/b.mp3");
    }
    void play(const std::string &path = "/m/a.mp3") {
        executeFromDesktop(path);
        world.log.clear();
    }
    void loop(bool on) { world.app().settings->Check6.Value = on ? 1 : 0; }
};

class MediaStarted : public Transport {};

TEST_F(MediaStarted, BringsTheWindowToRunning) {
    world.media.durations["/m/a.mp3"] = 3700;
    play();
    EXPECT_EQ(form().playmenu.Caption, "&Stop");
    EXPECT_EQ(form().playnewpop.Caption, "&Stop");
    EXPECT_EQ(form().MMLEDX1.LEDColor, kGreen);
    EXPECT_EQ(form().slidTracker.Min, 0);
    EXPECT_EQ(form().slidTracker.Max, 3700);
    EXPECT_EQ(totalDigits(), "01:01:40");
    EXPECT_EQ(form().Label3.Caption, "a.mp3");
    EXPECT_FALSE(form().playcurrentmenu.Enabled);
    EXPECT_FALSE(form().playcurrentpop.Enabled);
    for (const MenuEntry *entry : {&form().PauseMenu, &form().PauseMenuPop, &form().DeleteMenu, &form().DeleteMenu2})
        EXPECT_TRUE(entry->Enabled) << entry->Caption.get();
}

TEST_F(MediaStarted, RoundsTheLengthToTheNearestSecondTiesToEven) {
    for (const auto &[length, seconds] :
         std::vector<std::pair<double, int>>{{99.4, 99}, {99.6, 100}, {2.5, 2}, {3.5, 4}}) {
        world.media.durations["/m/a.mp3"] = length;
        play();
        EXPECT_EQ(form().slidTracker.Max, seconds) << length;
    }
}

TEST_F(MediaStarted, ALengthOfZeroLeavesTheSliderNoRoom) {
    world.media.durations["/m/a.mp3"] = 0;
    play();
    EXPECT_EQ(form().slidTracker.Max, 0);
    form().slidTracker.Value(5);
    EXPECT_EQ(form().slidTracker.Value(), 0);
    EXPECT_TRUE(isRunning());
}

TEST_F(MediaStarted, TheExtensionOfACdTrackCountsAsItStands) {
    world.cd.addTrack(7500);
    file("/cd/Track01.CDA");
    executeFromDesktop("/cd/Track01.CDA");
    EXPECT_TRUE(form().DeleteMenu.Enabled);
    EXPECT_FALSE(form().Timer2.Enabled());
}

class PlayStopped : public Transport {};

TEST_F(PlayStopped, BringsTheWindowToIdle) {
    play();
    world.advance(500);
    form().Timer2.Enabled(true);
    form().CDR_Timer.Enabled(true);
    form().Width = 12345;
    form().Height = 6789;
    form().PlayStopped();
    EXPECT_EQ(form().MMLEDGaugeX1.Position, 0);
    EXPECT_EQ(form().slidTracker.Value(), 0);
    EXPECT_EQ(form().MMLEDX1.LEDColor, kRed);
    EXPECT_EQ(form().playmenu.Caption, "&Load and Play File");
    EXPECT_EQ(form().playnewpop.Caption, "&Play New File");
    EXPECT_TRUE(form().playcurrentmenu.Enabled);
    EXPECT_FALSE(form().PauseMenu.Enabled);
    EXPECT_FALSE(form().PauseMenuPop.Enabled);
    for (const Timer *timer : {&form().Timer1, &form().Timer2, &form().Timer3, &form().CDR_Timer})
        EXPECT_FALSE(timer->Enabled());
    EXPECT_EQ(form().Width, form().OriginalWidth);
    EXPECT_EQ(form().Height, form().OriginalHeight);
}

TEST_F(PlayStopped, LeavesTheRestAlone) {
    world.media.durations["/m/a.mp3"] = 3700;
    play();
    click(form().PauseMenu.Click);
    form().PlayStopped();
    EXPECT_EQ(totalDigits(), "01:01:40");
    EXPECT_EQ(form().PauseMenu.Caption, "&Resume");
    EXPECT_FALSE(form().playcurrentpop.Enabled);
    EXPECT_TRUE(form().DeleteMenu.Enabled);
    EXPECT_TRUE(form().DeleteMenu2.Enabled);
    EXPECT_EQ(form().Text1.Text, "/m/a.mp3");
    EXPECT_EQ(form().Label3.Caption, "a.mp3");
}

class Stop : public Transport {};

TEST_F(Stop, StopsTheMediaEngine) {
    play();
    click(form().playmenu.Click);
    EXPECT_EQ(world.log.of({"engine.stop", "cd.", "vivo", "dialog"}), Texts{"engine.stop"});
    EXPECT_TRUE(isIdle());
    EXPECT_EQ(form().Text1.Text, "/m/a.mp3");
    EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(Stop, TheTraysAndThePicturesEntriesDoTheSame) {
    play();
    click(form().playnewpop.Click);
    EXPECT_TRUE(isIdle());
    play();
    click(form().VidPlayPop.Click);
    EXPECT_TRUE(isIdle());
    EXPECT_EQ(world.log.count("dialog.open"), 0);
}

TEST_F(Stop, AnyOtherCaptionThanTheIdleOneStops) {
    play();
    form().playmenu.Caption = "Something else";
    click(form().playmenu.Click);
    EXPECT_TRUE(isIdle());
}

TEST_F(Stop, SwitchesTimer1OffAtOnce) {
    play();
    EXPECT_TRUE(form().Timer1.Enabled());
    form().playmenu.Click();
    EXPECT_FALSE(form().Timer1.Enabled());
}

TEST_F(Stop, SuspendsReleasesAndUnloadsAVivoMovie) {
    for (const char *path : {"/v/a.viv", "/v/a.vivo"}) {
        form().Text1.Text = path;
        form().playmenu.Caption = "&Stop";
        world.app().VivoPlayer->Show();
        world.log.clear();
        click(form().playmenu.Click);
        EXPECT_EQ(world.log.of({"vivo", "engine", "cd."}), (Texts{"vivo.Suspend", "vivo.LoadFile ", "vivo.unloaded"}));
        EXPECT_FALSE(world.app().VivoPlayer.isLoaded());
        EXPECT_TRUE(isIdle());
    }
}

TEST_F(Stop, AVivoMovieThatIsNoLongerShownIsNoFailure) {
    form().Text1.Text = "/v/a.viv";
    form().playmenu.Caption = "&Stop";
    world.app().VivoPlayer.setFactory(nullptr);
    click(form().playmenu.Click);
    EXPECT_TRUE(isIdle());
    EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(Stop, TheVivoNameInCapitalsGoesToTheMediaEngine) {
    play();
    form().Text1.Text = "/v/A.VIV";
    click(form().playmenu.Click);
    EXPECT_EQ(world.log.of({"vivo", "engine.stop"}), Texts{"engine.stop"});
}

TEST_F(Stop, SwitchesTheLoopOffAndSaysSoOnce) {
    loop(true);
    play();
    click(form().playmenu.Click);
    EXPECT_TRUE(isIdle());
    EXPECT_FALSE(world.media.playing);
    expectBox(kLoopNotice, BoxIcon::Information, BoxPlace::Foreground, BoxButtons::Ok, "Important Notice:");
    EXPECT_EQ(world.app().settings->Check6.Value, 0);
    EXPECT_EQ(world.setting("ShowMsg2"), "False");
    EXPECT_EQ(world.setting("Loop Other"), "0") << "the store changes when the settings are unloaded";

    loop(true);
    play();
    click(form().playmenu.Click);
    EXPECT_EQ(world.boxes.shown.size(), 1U);
    EXPECT_TRUE(isIdle());
}

TEST_F(Stop, TheStoredLoopStaysUntilTheSettingsAreUnloaded) {
    world.setSetting("Loop Other", "1");
    play();
    click(form().playmenu.Click);
    EXPECT_EQ(world.setting("Loop Other"), "1");
    world.app().settings.Unload();
    EXPECT_EQ(world.setting("Loop Other"), "0");
}

TEST_F(Stop, TheNoticeIsWithheldWhereTheStoreSaysFalse) {
    world.setSetting("ShowMsg2", "False");
    loop(true);
    play();
    click(form().playmenu.Click);
    EXPECT_TRUE(world.boxes.shown.empty());
    EXPECT_EQ(world.app().settings->Check6.Value, 0);
}

TEST_F(Stop, WithTheLoopOnStopsTheMediaEngineAgain) {
    loop(true);
    world.cd.addTrack(7500);
    file("/cd/Track01.cda");
    play("/cd/Track01.cda");
    click(form().playmenu.Click);
    EXPECT_TRUE(world.log.has("cd.StopPlay"));
    EXPECT_EQ(world.app().settings->Check6.Value, 0);
    EXPECT_TRUE(isIdle());
}

TEST_F(Stop, InPausedStateTheEntryStillReadsResume) {
    play();
    click(form().PauseMenu.Click);
    click(form().playmenu.Click);
    EXPECT_TRUE(isIdle());
    EXPECT_EQ(form().PauseMenu.Caption, "&Resume");
    EXPECT_FALSE(form().PauseMenu.Enabled);
}

class StopMenu : public Transport {};

TEST_F(StopMenu, StopsBothEngines) {
    play();
    click(form().StopMenu.Click);
    EXPECT_EQ(world.log.of({"cd.", "engine.stop", "vivo"}), (Texts{"cd.StopPlay", "engine.stop"}));
    EXPECT_TRUE(isIdle());
}

TEST_F(StopMenu, DoesNotTouchVivo) {
    form().Text1.Text = "/v/a.viv";
    form().playmenu.Caption = "&Stop";
    world.app().VivoPlayer->Show();
    world.log.clear();
    click(form().StopMenu.Click);
    EXPECT_TRUE(world.log.of({"vivo"}).empty());
    EXPECT_TRUE(world.app().VivoPlayer.isLoaded());
    EXPECT_TRUE(isIdle());
}

TEST_F(StopMenu, WithTheLoopOnTheMediaStartAgain) {
    loop(true);
    play();
    form().StopMenu.Click();
    EXPECT_TRUE(isIdle());
    world.runUntilIdle();
    EXPECT_TRUE(isRunning());
    EXPECT_TRUE(world.media.playing);
    EXPECT_EQ(world.app().settings->Check6.Value, 1);
    EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(StopMenu, IsEnabledAsThePlaybackMenuOpensWhileSomethingRuns) {
    click(form().ControlsMenu.Click);
    EXPECT_FALSE(form().StopMenu.Enabled);
    play();
    click(form().ControlsMenu.Click);
    EXPECT_TRUE(form().StopMenu.Enabled);
    click(form().PauseMenu.Click);
    click(form().ControlsMenu.Click);
    EXPECT_TRUE(form().StopMenu.Enabled);
    click(form().StopMenu.Click);
    click(form().ControlsMenu.Click);
    EXPECT_FALSE(form().StopMenu.Enabled);
}

class Buttons : public Transport {};

TEST_F(Buttons, PlayStopsFirstAndThenAsksForAFile) {
    play();
    click(form().btnPlay.Click);
    EXPECT_EQ(world.log.of({"engine.stop", "dialog"}), (Texts{"engine.stop", "dialog.open"}));
    EXPECT_TRUE(isIdle()) << "the dialog was cancelled";
    EXPECT_EQ(form().Text1.Text, "/m/a.mp3");
}

TEST_F(Buttons, PlayInIdleAsksForAFile) {
    world.log.clear();
    click(form().btnPlay.Click);
    EXPECT_EQ(world.log.all(), Texts{"dialog.open"});
}

TEST_F(Buttons, PlayDuringPlayOpensTheChosenFile) {
    play();
    answerDialog("/m/b.mp3");
    click(form().btnPlay.Click);
    EXPECT_TRUE(isRunning());
    EXPECT_EQ(form().Label3.Caption, "b.mp3");
}

TEST_F(Buttons, StopStops) {
    play();
    click(form().btnStop.Click);
    EXPECT_TRUE(isIdle());
    EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(Buttons, StopInIdleSaysSo) {
    click(form().btnStop.Click);
    expectBox("Media play is not currently in progress.", BoxIcon::Information);
}

TEST_F(Buttons, PlayCurrentWithoutAFileSaysSo) {
    click(form().btnPlayCurrent.Click);
    expectBox("No file is currently loaded to play.\n\nTo play a new file, select \"Play New File\"\n"
              "from the toolbar or File menu.",
              BoxIcon::Information);
}

TEST_F(Buttons, PlayCurrentRestartsTheFileAlsoWhileItRuns) {
    play();
    EXPECT_FALSE(form().playcurrentmenu.Enabled);
    click(form().btnPlayCurrent.Click);
    EXPECT_TRUE(world.log.has("engine.open /m/a.mp3"));
    EXPECT_TRUE(isRunning());
}

TEST_F(Buttons, PlayCurrentsHintTellsWhetherThereIsAFile) {
    form().btnPlayCurrent.MouseMove();
    EXPECT_EQ(form().btnPlayCurrent.ToolTipText, "There is no file currently loaded to play.");
    play();
    form().btnPlayCurrent.MouseMove();
    EXPECT_EQ(form().btnPlayCurrent.ToolTipText, "Play Currently Loaded File");
}

TEST_F(Buttons, PauseInIdleSaysSo) {
    click(form().btnPause.Click);
    expectBox("Media play is not currently in progress.", BoxIcon::Information);
}

TEST_F(Buttons, PausePausesAndResumes) {
    play();
    click(form().btnPause.Click);
    EXPECT_EQ(form().PauseMenu.Caption, "&Resume");
    click(form().btnPause.Click);
    EXPECT_EQ(form().PauseMenu.Caption, "Pa&use");
}

TEST_F(Buttons, MuteMutesAndItsHintFollowsTheMenu) {
    form().btnMute.MouseMove();
    EXPECT_EQ(form().btnMute.ToolTipText, "Mute");
    click(form().btnMute.Click);
    EXPECT_EQ(form().MuteMenu.Caption, "&Un-Mute");
    form().btnMute.MouseMove();
    EXPECT_EQ(form().btnMute.ToolTipText, "Un-Mute");
}

TEST_F(Buttons, HaveTheirHints) {
    EXPECT_EQ(form().btnPlay.ToolTipText, "Play New File");
    EXPECT_EQ(form().btnPause.ToolTipText, "Pause");
    EXPECT_EQ(form().btnStop.ToolTipText, "Stop");
    EXPECT_EQ(form().btnMute.ToolTipText, "Mute");
    EXPECT_EQ(form().btnDelete.ToolTipText, "Delete");
    EXPECT_EQ(form().btnHelp.ToolTipText, "Help");
}

class Pause : public Transport {};

TEST_F(Pause, WithoutAFileSaysSo) {
    click(form().PauseMenu.Click);
    expectBox("No file is currently playing to pause.", BoxIcon::Information);
    EXPECT_EQ(form().PauseMenu.Caption, "Pa&use");
}

TEST_F(Pause, FreezesThePlayer) {
    play();
    form().PauseMenu.Click();
    EXPECT_EQ(form().MMLEDX1.LEDColor, kYellow);
    EXPECT_EQ(form().PauseMenu.Caption, "&Resume");
    EXPECT_EQ(form().btnMute.ToolTipText, "Resume") << "the mute button gets the hint";
    EXPECT_EQ(form().btnPause.ToolTipText, "Pause");
    EXPECT_FALSE(form().Timer3.Enabled());
    EXPECT_EQ(world.log.of({"engine.", "cd.", "vivo"}), Texts{"engine.pause"});
    world.runUntilIdle();
    EXPECT_FALSE(form().Timer1.Enabled());
    EXPECT_EQ(form().playmenu.Caption, "&Stop");
}

TEST_F(Pause, ResumePlaysOn) {
    play();
    click(form().PauseMenu.Click);
    world.log.clear();
    form().PauseMenu.Click();
    EXPECT_EQ(form().MMLEDX1.LEDColor, kGreen);
    EXPECT_EQ(form().PauseMenu.Caption, "Pa&use");
    EXPECT_EQ(form().btnMute.ToolTipText, "Pause");
    EXPECT_TRUE(form().Timer3.Enabled());
    EXPECT_EQ(world.log.of({"engine.", "cd.", "vivo"}), Texts{"engine.play"});
    world.runUntilIdle();
    EXPECT_TRUE(form().Timer1.Enabled());
    EXPECT_TRUE(isRunning());
}

TEST_F(Pause, OfAVivoMovieInEitherCase) {
    for (const char *path : {"/v/a.viv", "/v/a.vivo", "/v/A.VIVO"}) {
        form().Text1.Text = path;
        world.log.clear();
        click(form().PauseMenu.Click);
        click(form().PauseMenu.Click);
        EXPECT_EQ(world.log.of({"vivo", "engine", "cd."}), (Texts{"vivo.Suspend", "vivo.Resume"})) << path;
    }
}

TEST_F(Pause, TheTraysAndThePicturesEntriesDoTheSame) {
    play();
    click(form().PauseMenuPop.Click);
    EXPECT_EQ(form().PauseMenu.Caption, "&Resume");
    click(form().VidPausePop.Click);
    EXPECT_EQ(form().PauseMenu.Caption, "Pa&use");
}

TEST_F(Pause, AnotherWindowsCaptionCounts) {
    play();
    form().PauseMenu.Caption = "&Resume";
    click(form().PauseMenu.Click);
    EXPECT_EQ(form().PauseMenu.Caption, "Pa&use");
    EXPECT_TRUE(world.log.of({"engine.pause"}).empty());
}

class Mute : public Transport {};

TEST_F(Mute, SilencesTheSystemAndBringsItsVolumeBack) {
    world.mixer.maximum = 100;
    form().MMLEDSpinX2.Value(70);
    click(form().MuteMenu.Click);
    EXPECT_EQ(world.mixer.level, 0);
    EXPECT_EQ(form().MuteMenu.Caption, "&Un-Mute");
    EXPECT_EQ(form().btnMute.ToolTipText, "&Un-Mute");
    EXPECT_EQ(form().MMLEDSpinX2.Value(), 70) << "the spin does not change";
    click(form().MuteMenu.Click);
    EXPECT_EQ(world.mixer.level, 70);
    EXPECT_EQ(form().MuteMenu.Caption, "&Mute");
    EXPECT_EQ(form().btnMute.ToolTipText, "&Mute");
}

TEST_F(Mute, LeavesThePlayersVolumeAlone) {
    play();
    click(form().MuteMenu.Click);
    EXPECT_EQ(form().ActiveMovie1.Volume(), 0);
    EXPECT_TRUE(world.log.of({"engine.volume"}).empty());
}

TEST_F(Mute, TurningTheSpinWhileMutedActsAtOnceAndTheCaptionStays) {
    world.mixer.maximum = 100;
    click(form().MuteMenu.Click);
    form().MMLEDSpinX2.Value(30);
    EXPECT_EQ(world.mixer.level, 30);
    EXPECT_EQ(form().MuteMenu.Caption, "&Un-Mute");
}

TEST_F(Mute, WithoutAMixerOnlyTheCaptionChanges) {
    world.mixer.failing = MixerStep::Open;
    click(form().MuteMenu.Click);
    EXPECT_EQ(form().MuteMenu.Caption, "&Un-Mute");
    EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(Mute, ThePicturesEntryDoesTheSame) {
    click(form().VidMutePop.Click);
    EXPECT_EQ(form().MuteMenu.Caption, "&Un-Mute");
}

} // namespace
} // namespace tonvale::test
