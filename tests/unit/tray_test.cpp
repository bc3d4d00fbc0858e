// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/frmAbout.h"
#include "tests/unit/fakes/PlayerTest.h"

namespace tonvale::test {
namespace {

class Tray : public PlayerTest {
protected:
    void goToTray() { click(form().traymenu.Click); }
};

TEST_F(Tray, TakesTheWindowOffTheScreenAndOffTheTaskList) {
    start();
    EXPECT_FALSE(form().TrayX1.Visible);
    goToTray();
    EXPECT_TRUE(form().TrayX1.Visible);
    EXPECT_FALSE(form().Visible);
    EXPECT_FALSE(form().ShowInTaskbar);
    EXPECT_TRUE(world.app().form1.isLoaded());
}

TEST_F(Tray, ItsHintIsTheProgramsName) {
    start();
    goToTray();
    EXPECT_EQ(form().TrayX1.ToolTip, "Orvane Tonvale");
}

TEST_F(Tray, ItsHintTellsTheFileThatTheEngineHolds) {
    file("/m/a b.mp3");
    start("/m/a b.mp3");
    goToTray();
    EXPECT_EQ(form().TrayX1.ToolTip, "Orvane Tonvale  -  a b.mp3");
}

TEST_F(Tray, HidesTheAssociationsThePreferencesAndTheAboutWindow) {
    Application &app = world.app();
    app.frmAssociate.setFactory([&app] { return std::make_unique<Form>(app.forms, "frmAssociate"); });
    start();
    app.frmAssociate.form().Show();
    app.settings->Show();
    app.frmAbout->Show();
    goToTray();
    EXPECT_FALSE(app.frmAssociate.form().Visible);
    EXPECT_FALSE(app.settings->Visible);
    EXPECT_FALSE(app.frmAbout->Visible);
}

TEST_F(Tray, NamingThoseWindowsLoadsThemHidden) {
    start();
    EXPECT_FALSE(world.app().settings.isLoaded());
    EXPECT_FALSE(world.app().frmAbout.isLoaded());
    goToTray();
    ASSERT_TRUE(world.app().settings.isLoaded());
    ASSERT_TRUE(world.app().frmAbout.isLoaded());
    EXPECT_FALSE(world.app().settings->Visible);
    EXPECT_FALSE(world.app().frmAbout->Visible);
}

TEST_F(Tray, OtherWindowsStay) {
    Application &app = world.app();
    app.frmCD2WAV.setFactory([&app] { return std::make_unique<Form>(app.forms, "frmCD2WAV"); });
    start();
    click(form().cd2wavmenu.Click);
    goToTray();
    EXPECT_TRUE(app.frmCD2WAV.form().Visible);
}

TEST_F(Tray, TheDoubleClickAndTheMenuBringTheWindowBack) {
    start();
    for (const Event<> *way : {&form().TrayX1.DoubleClick, &form().showpop.Click}) {
        goToTray();
        (*way)();
        EXPECT_TRUE(form().Visible);
        EXPECT_FALSE(form().TrayX1.Visible);
        EXPECT_TRUE(form().ShowInTaskbar);
    }
}

TEST_F(Tray, TheRightClickPopsUpItsMenu) {
    start();
    goToTray();
    std::vector<MenuEntry *> shown;
    const Connection connection = form().popUpRequested.connect([&](MenuEntry &menu) { shown.push_back(&menu); });
    form().TrayX1.RightClick();
    EXPECT_EQ(shown, std::vector<MenuEntry *>{&form().PopUpMenu2});
}

TEST_F(Tray, TheSoundGoesOnAndSoDoesTheDisplay) {
    file("/v/a.avi");
    world.media.pictures["/v/a.avi"] = {320, 240};
    start("/v/a.avi");
    goToTray();
    world.media.position = 7;
    world.advance(200);
    EXPECT_TRUE(world.media.playing);
    EXPECT_TRUE(isRunning());
    EXPECT_EQ(positionDigits(), "00:00:07");
    EXPECT_FALSE(form().Visible);
}

TEST_F(Tray, ExitFromItsMenuEndsTheProgramAndTakesTheIconAway) {
    start();
    goToTray();
    bool icon = true;
    TrayX &tray = form().TrayX1;
    const Connection gone = tray.Visible.onChange([&] { icon = tray.Visible; });
    form().exitpop.Click();
    EXPECT_FALSE(icon);
    world.runUntilIdle();
    EXPECT_TRUE(world.app().forms.loaded().empty());
}

TEST_F(Tray, TheIconGoesFirst) {
    world.setSetting("Position", "1");
    file("/m/a.mp3");
    start("/m/a.mp3");
    goToTray();
    world.log.clear();
    const Connection gone = form().TrayX1.Visible.onChange([this] { world.log.add("icon gone"); });
    form().Unload();
    EXPECT_EQ(world.log.all().front(), "icon gone");
}

} // namespace
} // namespace tonvale::test
