// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/unit/fakes/PlayerTest.h"

namespace tonvale::test {
namespace {

constexpr const char *kLeftover = "/opt/tonvale/qlv.Exe";

class Load : public PlayerTest {
protected:
    // Notes the main window's first showing and what was true then.
    void watchShowing() {
        loading_ = world.app().forms.formLoading.connect([this](Form &loaded) {
            world.log.add("load " + loaded.Name);
            if (loaded.Name != "Form1") return;
            shown_ = loaded.Visible.onChange([this] { world.log.add("shown"); });
            refreshed_ = loaded.refreshed.connect([this] { world.log.add("refreshed"); });
            raised_ = loaded.raised.connect([this] { world.log.add("raised"); });
        });
    }

private:
    Connection loading_, shown_, refreshed_, raised_;
};

TEST_F(Load, TheFirstRunShowsAnIdlePlayer) {
    start();
    EXPECT_TRUE(form().Visible);
    EXPECT_EQ(form().playmenu.Caption, "&Load and Play File");
    EXPECT_EQ(form().Label3.Caption, "");
    EXPECT_EQ(form().Text1.Text, "");
    EXPECT_EQ(form().MMLEDX1.LEDColor, kRed);
    EXPECT_EQ(form().MMLEDX1.ToolTipText, "Media Status");
    EXPECT_EQ(form().MMLEDSpinX1.Value(), 100);
    EXPECT_FALSE(form().Topmost);
    EXPECT_EQ(form().Caption, "Orvane Tonvale");
    EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(Load, GreysWhatNeedsAMedium) {
    start();
    for (const MenuEntry *entry : {&form().playcurrentmenu, &form().PauseMenu, &form().PauseMenuPop, &form().DeleteMenu,
                                   &form().DeleteMenu2, &form().zoom, &form().playcurrentpop})
        EXPECT_FALSE(entry->Enabled) << entry->Caption.get();
    EXPECT_TRUE(form().playmenu.Enabled);
}

TEST_F(Load, KeepsTheSizesOfTheDesign) {
    start();
    EXPECT_EQ(form().OriginalWidth, form().Width);
    EXPECT_EQ(form().OriginalHeight, form().Height);
    EXPECT_EQ(form().VideoMargin, form().ActiveMovie1.Left);
    EXPECT_GT(form().OriginalWidth, 0);
}

TEST_F(Load, TheTimersAreOffAndHaveTheirIntervals) {
    start();
    for (const Timer *timer : {&form().Timer1, &form().Timer2, &form().Timer3, &form().CDR_Timer})
        EXPECT_FALSE(timer->Enabled());
    EXPECT_EQ(form().Timer1.Interval(), 500);
    EXPECT_EQ(form().Timer2.Interval(), 125);
    EXPECT_EQ(form().Timer3.Interval(), 100);
    EXPECT_EQ(form().CDR_Timer.Interval(), 1000);
}

TEST_F(Load, TakesTheVolumesFromTheStoreAndTheSystem) {
    world.setSetting("Volume", "55");
    world.mixer.maximum = 1000;
    world.mixer.level = 300;
    start();
    EXPECT_EQ(form().MMLEDSpinX1.Value(), 55);
    EXPECT_EQ(form().ActiveMovie1.Volume(), -4500);
    EXPECT_EQ(form().ActiveMovie1.Balance(), 0);
    EXPECT_EQ(form().MMLEDSpinX2.Value(), 30);
}

TEST_F(Load, AStoredVolumeOutOfRangeIsLimited) {
    world.setSetting("Volume", "400");
    start();
    EXPECT_EQ(form().MMLEDSpinX1.Value(), 100);
    EXPECT_EQ(form().ActiveMovie1.Volume(), 0);
}

TEST_F(Load, AStoredVolumeThatIsNoNumberIsSkipped) {
    world.setSetting("Volume", "loud");
    start();
    EXPECT_EQ(form().MMLEDSpinX1.Value(), 100);
    EXPECT_TRUE(form().Visible);
}

TEST_F(Load, WithoutAMixerTheMasterSpinKeepsToItsRange) {
    world.mixer.failing = MixerStep::Open;
    start();
    EXPECT_EQ(form().MMLEDSpinX2.Value(), 0);
    EXPECT_FALSE(world.app().MainLoadInProgress);
}

TEST_F(Load, AlwaysOnTopIsApplied) {
    world.setSetting("Always Ontop", "1");
    start();
    EXPECT_TRUE(form().Topmost);
}

TEST_F(Load, TheWindowIsOnScreenBeforeTheMediumIsOpened) {
    file(kLeftover);
    file("/music/a.mp3");
    watchShowing();
    start("/music/a.mp3");
    const Texts steps = world.log.of({"load Form1", "shown", "refreshed", "files.delete", "associate", "engine.open"});
    EXPECT_EQ(steps, (Texts{"load Form1", "shown", "refreshed", "files.delete /opt/tonvale/qlv.Exe",
                            "associate ply|Orvane Tonvale PlayList File|Orvane Tonvale PlayList File",
                            "engine.open /music/a.mp3"}));
}

TEST_F(Load, TheProgressFlagStandsFromTheSettingsLoadToTheEnd) {
    bool duringSettings = false, duringOpen = false;
    const Connection connection = world.app().forms.formLoading.connect([&](Form &loaded) {
        if (loaded.Name == "Settings" && !duringSettings) duringSettings = world.app().MainLoadInProgress;
    });
    world.boxes.whileUp = [&](const MessageBox &) { duringOpen = world.app().MainLoadInProgress; };
    world.files.addText("/music/a.ply", "x\r\n");
    start("/music/a.ply");
    EXPECT_TRUE(duringSettings);
    EXPECT_TRUE(duringOpen);
    EXPECT_FALSE(world.app().MainLoadInProgress);
}

TEST_F(Load, UnloadsTheSettingsAtTheEnd) {
    start();
    EXPECT_FALSE(world.app().settings.isLoaded());
    EXPECT_EQ(world.setting("Confirm Delete"), "1");
    EXPECT_EQ(world.setting("Loop Other"), "0");
    EXPECT_EQ(world.setting("Multi-Instances"), "0");
    EXPECT_EQ(world.setting("Temp  Location"), "/home/me/.cache/orvane-tonvale/");
}

TEST_F(Load, DeletesTheLeftover) {
    file(kLeftover);
    start();
    EXPECT_FALSE(world.files.fileExists(kLeftover));
}

TEST_F(Load, WithoutTheLeftoverDeletesNothing) {
    start();
    EXPECT_TRUE(world.log.of({"files.delete"}).empty());
}

TEST_F(Load, ALeftoverThatCannotBeDeletedIsIgnored) {
    file(kLeftover);
    world.files.deleteError = ErrorNumber::PermissionDenied;
    start();
    EXPECT_TRUE(world.boxes.shown.empty());
    EXPECT_FALSE(world.app().MainLoadInProgress);
}

TEST_F(Load, RegistersThePlaylistTypeAtEachStartWhateverComesOfIt) {
    world.associations.result = false;
    start();
    EXPECT_EQ(world.log.of({"associate"}).size(), 1U);
    EXPECT_FALSE(world.app().MainLoadInProgress);
    EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(Load, AStoreThatFailsLaterOnStopsNothing) {
    world.setSetting("Multi-Instances", "1");
    const Connection connection = world.app().forms.formLoading.connect([&](Form &loaded) {
        if (loaded.Name == "Form1") world.registry.readError = world.registry.writeError = ErrorNumber::DiskFull;
    });
    start();
    EXPECT_TRUE(form().Visible);
    EXPECT_EQ(form().MMLEDSpinX1.Value(), 100);
    EXPECT_FALSE(world.app().MainLoadInProgress);
    EXPECT_TRUE(world.boxes.shown.empty());
}

class Unload : public PlayerTest {};

TEST_F(Unload, StopsAndClosesTheEnginesInOrder) {
    file("/music/a.mp3");
    start("/music/a.mp3");
    world.log.clear();
    form().Unload();
    const Texts steps = world.log.of({"engine.stop", "cd.", "registry.set Software\\"});
    ASSERT_GE(steps.size(), 4U);
    EXPECT_EQ(steps[0], "engine.stop");
    EXPECT_EQ(steps[1], "cd.StopPlay");
    EXPECT_EQ(steps[2], "cd.CloseDevice");
    EXPECT_TRUE(steps[3].ends_with("Volume=100")) << steps[3];
}

TEST_F(Unload, SavesTheVolume) {
    start();
    form().MMLEDSpinX1.Value(42);
    form().Unload();
    EXPECT_EQ(world.setting("Volume"), "42");
}

TEST_F(Unload, GivesTheMutedSystemItsVolumeBack) {
    world.mixer.maximum = 100;
    world.mixer.level = 80;
    start();
    click(form().MuteMenu.Click);
    EXPECT_EQ(world.mixer.level, 0);
    form().Unload();
    EXPECT_EQ(world.mixer.level, 80);
}

TEST_F(Unload, LeavesTheSystemsVolumeAloneOtherwise) {
    start();
    world.log.clear();
    form().Unload();
    EXPECT_TRUE(world.log.of({"mixer."}).empty());
}

TEST_F(Unload, ClosesTheBatchConverter) {
    world.windows.present = {{31, "ThunderRT6FormDC", "WAV Batch Converter 1.0"},
                             {32, "ThunderRT6FormDC", "My WAV Batch Converter"},
                             {33, "OtherClass", "WAV Batch Converter"}};
    start();
    form().Unload();
    EXPECT_EQ(world.windows.closed, (std::vector<WindowHandle>{31, 32}));
}

TEST_F(Unload, UnloadsAllWindowsItselfLast) {
    start();
    world.app().frmVivoPlayList->Show();
    Texts gone;
    const Connection connection =
        world.app().forms.formUnloaded.connect([&](Form &unloaded) { gone.push_back(unloaded.Name); });
    form().Unload();
    ASSERT_FALSE(gone.empty());
    EXPECT_EQ(gone.back(), "Form1");
    EXPECT_THAT(gone, testing::Contains("frmVivoPlayList"));
    EXPECT_THAT(gone, testing::Contains("Settings"));
    EXPECT_TRUE(world.app().forms.loaded().empty());
}

TEST_F(Unload, SavesTheSettingsOnceMore) {
    start();
    world.app().settings->Check4.Value = 0;
    form().Unload();
    EXPECT_EQ(world.setting("Confirm Delete"), "0");
}

TEST_F(Unload, EndsTheProgramByTheExitEntry) {
    start();
    bool ended = false;
    const Connection connection = world.app().forms.lastFormUnloaded.connect([&] { ended = true; });
    click(form().ExitMenu.Click);
    EXPECT_TRUE(ended);
    EXPECT_TRUE(world.boxes.shown.empty()) << "there is no confirmation";
}

TEST_F(Unload, WhilePlayingLeavesNothingBehind) {
    file("/music/a.mp3");
    start("/music/a.mp3");
    world.advance(350);
    form().Unload();
    world.media.finish();
    world.advance(2000);
    EXPECT_FALSE(world.app().form1.isLoaded());
    EXPECT_EQ(world.loop.timerCount(), 0U);
}

TEST_F(Unload, GoesOnWhenAStepFails) {
    start();
    world.registry.writeError = ErrorNumber::PermissionDenied;
    world.windows.failure = ErrorNumber::PermissionDenied;
    form().Unload();
    world.runUntilIdle();
    EXPECT_TRUE(world.app().forms.loaded().empty());
}

} // namespace
} // namespace tonvale::test
