// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/unit/fakes/VideoTest.h"
#include "viewers/frmVideoPlay.h"

namespace tonvale::test {
namespace {

class VideoPlayer : public Video {
protected:
    void showWith(PictureSize size) {
        play(size);
        click(form().FullScreenAdvMenu.Click);
        world.log.clear();
        popUps_ = window().popUpRequested.connect([this](MenuEntry &menu) { shown.push_back(&menu); });
    }
    frmVideoPlay &window() { return static_cast<frmVideoPlay &>(*world.app().frmVideoPlay); }
    MediaPlayer &player() { return window().MediaPlayer1; }
    [[nodiscard]] std::string place() { return text(player().Left) + "," + text(player().Top); }
    void rightClick() { player().MouseUp(kRightButton, 0, 10, 10); }

    std::vector<MenuEntry *> shown;

private:
    Connection popUps_;
};

TEST_F(VideoPlayer, HasItsMenu) {
    showWith({320, 240});
    const auto captions = [](const MenuEntry &menu) {
        Texts result;
        for (const MenuEntry *entry : menu.children) result.push_back(entry->Caption);
        return result;
    };
    EXPECT_EQ(captions(window().MainMenu), (Texts{"Restart", "Stop", "Pause", "-", "Zoom", "-", "Full Screen Mode", "-",
                                                  "Options", "Video Statistics", "-", "Close"}));
    EXPECT_EQ(captions(window().ZoomMenu), (Texts{"Normal Size", "Double Size", "Half Size", "-", "One-Fourth Screen",
                                                  "One-Half Screen", "One-Sixteenth Screen"}));
    EXPECT_EQ(window().Caption, "Right-Click for Options...");
    EXPECT_EQ(window().BorderStyle, BorderStyle::Sizable);
}

TEST_F(VideoPlayer, EachZoomEntrySetsItsSizeAndCentresThePicture) {
    showWith({320, 240});
    window().userResized(15360, 11520);
    for (const auto &[entry, size] :
         std::vector<std::pair<MenuEntry frmVideoPlay::*, std::int32_t>>{{&frmVideoPlay::NormalSizeMenu, 0},
                                                                         {&frmVideoPlay::DoubleSizeMenu, 2},
                                                                         {&frmVideoPlay::HalfSizeMenu, 1},
                                                                         {&frmVideoPlay::OneFourthMenu, 6},
                                                                         {&frmVideoPlay::HalfScreenMenu, 7},
                                                                         {&frmVideoPlay::OneSixteenthMenu, 5}}) {
        player().Move(0, 0);
        click((window().*entry).Click);
        EXPECT_EQ(player().DisplaySize(), size);
        EXPECT_EQ(player().Left, static_cast<int>(window().ScaleWidth() - player().Width) / 2) << size;
        EXPECT_EQ(player().Top, static_cast<int>(window().ScaleHeight() - player().Height) / 2) << size;
    }
}

TEST_F(VideoPlayer, HalvesAreRoundedTowardsZero) {
    showWith({320, 240});
    window().userResized(4801, 3601);
    click(window().NormalSizeMenu.Click);
    EXPECT_EQ(place(), "0,0");
    window().userResized(4803, 3597);
    click(window().NormalSizeMenu.Click);
    EXPECT_EQ(place(), "1,-1");
}

TEST_F(VideoPlayer, ThePictureIsCentredAsTheFileIsOpen) {
    showWith({320, 240});
    window().Move(0, 0, 9000, 6000);
    world.media.pictures["/v/b.avi"] = {160, 120};
    player().FileName("/v/b.avi");
    world.runUntilIdle();
    EXPECT_EQ(place(), "3300,2100");
}

TEST_F(VideoPlayer, TheRightButtonShowsWhatCanBeDone) {
    showWith({320, 240});
    const auto state = [this] {
        return Texts{window().ZoomMenu.Enabled ? "zoom" : "-", window().PauseMenu.Enabled ? "pause" : "-",
                     window().StopMenu.Enabled ? "stop" : "-", window().PauseMenu.Caption};
    };
    rightClick();
    EXPECT_EQ(state(), (Texts{"zoom", "pause", "stop", "Pause"}));
    player().Pause();
    rightClick();
    EXPECT_EQ(state(), (Texts{"zoom", "pause", "stop", "Resume"}));
    player().Stop();
    rightClick();
    EXPECT_EQ(state(), (Texts{"-", "-", "-", "Resume"}));
    player().Play();
    window().userReleasedButton(kRightButton, 0, 5, 5); // beside the picture
    EXPECT_EQ(state(), (Texts{"zoom", "pause", "stop", "Pause"}));
    EXPECT_EQ(shown, std::vector<MenuEntry *>(4, &window().MainMenu));
}

TEST_F(VideoPlayer, OtherButtonsShowNothing) {
    showWith({320, 240});
    player().MouseUp(kLeftButton, 0, 1, 1);
    player().MouseUp(kMiddleButton, 0, 1, 1);
    window().userReleasedButton(kLeftButton, 0, 1, 1);
    EXPECT_TRUE(shown.empty());
}

TEST_F(VideoPlayer, WithNothingOpenTheMenuHasCloseOptionsAndStatistics) {
    start();
    world.app().frmVideoPlay->Show();
    const Connection connection = window().popUpRequested.connect([this](MenuEntry &menu) { shown.push_back(&menu); });
    rightClick();
    EXPECT_EQ(shown, std::vector<MenuEntry *>{&window().MainMenu});
    for (const MenuEntry *entry : {&window().ZoomMenu, &window().PauseMenu, &window().StopMenu})
        EXPECT_FALSE(entry->Enabled);
    for (const MenuEntry *entry : {&window().ExitMenu, &window().OptionsMenu, &window().VideoStatsMenu})
        EXPECT_TRUE(entry->Enabled);
}

TEST_F(VideoPlayer, AfterTheEndTheZoomIsGrey) {
    showWith({320, 240});
    world.media.finish();
    world.runUntilIdle();
    rightClick();
    EXPECT_FALSE(window().ZoomMenu.Enabled);
}

TEST_F(VideoPlayer, PausesAndGoesOn) {
    showWith({320, 240});
    click(window().PauseMenu.Click);
    EXPECT_EQ(player().State(), PlayState::Paused);
    EXPECT_EQ(window().PauseMenu.Caption, "Resume");
    click(window().PauseMenu.Click);
    EXPECT_EQ(player().State(), PlayState::Playing);
    EXPECT_EQ(window().PauseMenu.Caption, "Pause");
}

TEST_F(VideoPlayer, StopGreysWhatNeedsARunningFilm) {
    showWith({320, 240});
    click(window().StopMenu.Click);
    EXPECT_EQ(player().State(), PlayState::Stopped);
    EXPECT_FALSE(window().StopMenu.Enabled);
    EXPECT_FALSE(window().PauseMenu.Enabled);
}

TEST_F(VideoPlayer, RestartBeginsAgain) {
    showWith({320, 240});
    world.media.position = 50;
    click(window().RestartMenu.Click);
    EXPECT_EQ(world.log.of({"engine"}), (Texts{"engine.seek 0"}));
    click(window().StopMenu.Click);
    click(window().RestartMenu.Click);
    EXPECT_EQ(player().State(), PlayState::Playing);
    EXPECT_TRUE(window().StopMenu.Enabled);
    EXPECT_TRUE(window().PauseMenu.Enabled);
}

TEST_F(VideoPlayer, RestartWithNothingOpenTakesTheMainWindowsFile) {
    start();
    world.app().frmVideoPlay->Show();
    form().Text1.Text = kFilm;
    click(window().RestartMenu.Click);
    EXPECT_EQ(player().FileName(), kFilm);
    EXPECT_EQ(player().State(), PlayState::Playing);
}

TEST_F(VideoPlayer, RestartWithoutAnyFileDoesNoHarm) {
    start();
    world.app().frmVideoPlay->Show();
    click(window().RestartMenu.Click);
    EXPECT_EQ(player().State(), PlayState::Stopped);
    EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(VideoPlayer, FullScreenModeClearsTheCaption) {
    showWith({320, 240});
    click(window().FullScreenMenu.Click);
    EXPECT_TRUE(window().FullScreenMenu.Checked);
    EXPECT_EQ(window().Caption, "");
    EXPECT_EQ(player().DisplaySize(), 3);
    EXPECT_EQ(player().Width, 15360);
    click(window().FullScreenMenu.Click);
    EXPECT_FALSE(window().FullScreenMenu.Checked);
    EXPECT_EQ(window().Caption, "Right-Click for Options...");
    EXPECT_EQ(player().DisplaySize(), 0);
    EXPECT_EQ(player().Width, 4800);
}

TEST_F(VideoPlayer, TheFullScreenMarkIsNotStored) {
    showWith({320, 240});
    click(window().FullScreenMenu.Click);
    window().Unload();
    world.runUntilIdle();
    EXPECT_FALSE(window().FullScreenMenu.Checked);
}

TEST_F(VideoPlayer, IsMaximizedAtEachResize) {
    showWith({320, 240});
    window().userResized(5000, 4000);
    EXPECT_EQ(window().State, WindowState::Maximized);
    window().State = WindowState::Normal;
    window().userResized(3000, 2000);
    EXPECT_EQ(window().State, WindowState::Maximized);
}

TEST_F(VideoPlayer, TheMainWindowIsHiddenAsLongAsItIsLoaded) {
    start();
    EXPECT_TRUE(form().Visible);
    static_cast<void>(window()); // the reference alone loads it
    EXPECT_FALSE(form().Visible);
    click(window().ExitMenu.Click);
    EXPECT_FALSE(world.app().frmVideoPlay.isLoaded());
    EXPECT_TRUE(form().Visible);
}

TEST_F(VideoPlayer, EscClosesIt) {
    showWith({320, 240});
    window().userPressedKey('x');
    EXPECT_TRUE(world.app().frmVideoPlay.isLoaded());
    window().userPressedKey(kKeyEscape);
    EXPECT_FALSE(world.app().frmVideoPlay.isLoaded());
    EXPECT_TRUE(form().Visible);
}

TEST_F(VideoPlayer, NothingSoundsAfterItsEnd) {
    showWith({320, 240});
    window().Unload();
    world.runUntilIdle();
    EXPECT_FALSE(world.media.playing);
    EXPECT_EQ(world.screenSaver.holds, 0);
}

TEST_F(VideoPlayer, TheEndOfTheProgramDoesNotShowTheMainWindowAgain) {
    showWith({320, 240});
    int shownAgain = 0;
    const Connection connection = form().Visible.onChange([&] { ++shownAgain; });
    form().Unload();
    world.runUntilIdle();
    EXPECT_EQ(shownAgain, 0);
    EXPECT_TRUE(world.app().forms.loaded().empty());
}

} // namespace
} // namespace tonvale::test
