// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/CFormPos.h"
#include "tests/unit/fakes/PlayerTest.h"

#include <gtest/gtest.h>

namespace tonvale::test {
namespace {

constexpr const char *kKey = "SOFTWARE\\FMS\\Test CFormPos\\Form Positions";

class FormPosition : public PlayerTest {
protected:
    FormPosition() : position(world.app()) {
        position.RegistryPath = "SOFTWARE\\FMS\\Test CFormPos";
        position.SubKey = "Form Positions";
        position.Form(&world.start());
        form().Move(100, 200, 3000, 2000);
        world.screen.screenWidth = 15000;
        world.screen.screenHeight = 12000;
    }
    void stored(const std::string &text) { world.registry.setText(RootKey::LocalMachine, kKey, "Form1", text); }
    std::string saved() { return world.registry.text(RootKey::LocalMachine, kKey, "Form1").value_or("(none)"); }
    std::string place() {
        const Form1 &window = form();
        return std::to_string(static_cast<int>(window.Left)) + "," + std::to_string(static_cast<int>(window.Top)) +
               " " + std::to_string(static_cast<int>(window.Width)) + "x" +
               std::to_string(static_cast<int>(window.Height));
    }
    CFormPos position;
};

TEST_F(FormPosition, ItsDefaultsAreThoseOfItsCreation) {
    const CFormPos fresh{world.app()};
    EXPECT_EQ(fresh.RootKey, RootKey::LocalMachine);
    EXPECT_EQ(fresh.RegistryPath, "SOFTWARE\\Orvane Tonvale");
    EXPECT_EQ(fresh.SubKey, "");
    EXPECT_EQ(fresh.Form(), nullptr);
}

TEST_F(FormPosition, IsSavedAsOneText) {
    position.SaveForm();
    EXPECT_EQ(saved(), "L=100;T=200;W=3000;H=2000;S=0;");
}

TEST_F(FormPosition, FractionsNegativePlacesAndTheStateAreSaved) {
    form().Move(-1234.5, 0.25, 3000, 2000);
    form().State = WindowState::Maximized;
    position.SaveForm();
    EXPECT_EQ(saved(), "L=-1234.5;T=0.25;W=3000;H=2000;S=2;");
}

TEST_F(FormPosition, ComesBackWithPlaceAndSize) {
    stored("L=300;T=400;W=5000;H=1000;S=0;");
    EXPECT_TRUE(position.RestoreForm(KeepOnScreen::No));
    EXPECT_EQ(place(), "300,400 5000x1000");
    EXPECT_EQ(form().State, WindowState::Normal);
}

TEST_F(FormPosition, WithoutASavedOneNothingMoves) {
    EXPECT_FALSE(position.RestoreForm(KeepOnScreen::No));
    stored("");
    EXPECT_FALSE(position.RestoreForm(KeepOnScreen::No));
    EXPECT_EQ(place(), "100,200 3000x2000");
    EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(FormPosition, AMaximizedWindowComesBackMaximizedAndIsNotMoved) {
    stored("L=300;T=400;W=5000;H=1000;S=2;");
    EXPECT_TRUE(position.RestoreForm(KeepOnScreen::No));
    EXPECT_EQ(form().State, WindowState::Maximized);
    EXPECT_EQ(place(), "100,200 3000x2000");
}

TEST_F(FormPosition, AMinimizedWindowComesBackMinimizedAndIsNotMoved) {
    stored("L=300;T=400;W=5000;H=1000;S=1;");
    EXPECT_TRUE(position.RestoreForm(KeepOnScreen::No));
    EXPECT_EQ(form().State, WindowState::Minimized);
    EXPECT_EQ(place(), "100,200 3000x2000");
}

TEST_F(FormPosition, AMissingNumberIsZero) {
    stored("L=300;T=400;H=1000;S=0;");
    EXPECT_TRUE(position.RestoreForm(KeepOnScreen::No));
    EXPECT_EQ(place(), "300,400 0x1000");
    stored("something else");
    EXPECT_TRUE(position.RestoreForm(KeepOnScreen::No));
    EXPECT_EQ(place(), "0,0 0x0");
}

TEST_F(FormPosition, NumbersAreRoundedToWholeTwips) {
    stored("L=300.5;T=401.5;W=5000;H=1000;S=0;");
    EXPECT_TRUE(position.RestoreForm(KeepOnScreen::No));
    EXPECT_EQ(place(), "300,402 5000x1000");
}

TEST_F(FormPosition, KeptOnScreenAWindowOutsideComesToTheEdge) {
    stored("L=15000;T=12000;W=3000;H=2000;S=0;");
    EXPECT_TRUE(position.RestoreForm(KeepOnScreen::Yes));
    EXPECT_EQ(place(), "12000,10000 3000x2000");
    stored("L=-50;T=-60;W=3000;H=2000;S=0;");
    EXPECT_TRUE(position.RestoreForm(KeepOnScreen::Yes));
    EXPECT_EQ(place(), "0,0 3000x2000");
    stored("L=14999;T=11999;W=3000;H=2000;S=0;");
    EXPECT_TRUE(position.RestoreForm(KeepOnScreen::Yes));
    EXPECT_EQ(place(), "14999,11999 3000x2000");
}

TEST_F(FormPosition, WithoutThatAWindowStaysOutside) {
    stored("L=20000;T=-500;W=3000;H=2000;S=0;");
    EXPECT_TRUE(position.RestoreForm(KeepOnScreen::No));
    EXPECT_EQ(place(), "20000,-500 3000x2000");
}

TEST_F(FormPosition, CenteringKeepsTheSize) {
    position.CenterForm();
    EXPECT_EQ(place(), "6000,5000 3000x2000");
}

TEST_F(FormPosition, ANumberThatDoesNotFitIsReported) {
    stored("L=99999999999;T=0;W=1;H=1;S=0;");
    EXPECT_FALSE(position.RestoreForm(KeepOnScreen::No));
    EXPECT_EQ(place(), "100,200 3000x2000");
    expectBox("Error: 6. Overflow", BoxIcon::None, BoxPlace::Normal, BoxButtons::Ok, "RestoreForm");
}

TEST_F(FormPosition, ARegistryThatCannotBeWrittenIsReported) {
    world.registry.writeError = ErrorNumber::PermissionDenied;
    position.SaveForm();
    EXPECT_EQ(world.boxes.shown.size(), 1U);
    expectBox("Error: 70. Permission denied", BoxIcon::None, BoxPlace::Normal, BoxButtons::Ok, "RegistrySetKeyValue");
}

TEST_F(FormPosition, ARegistryThatCannotBeReadIsReported) {
    stored("L=300;T=400;W=5000;H=1000;S=0;");
    world.registry.readError = ErrorNumber::PathFileAccessError;
    EXPECT_FALSE(position.RestoreForm(KeepOnScreen::No));
    EXPECT_EQ(world.boxes.shown.size(), 1U);
    expectBox("Error: 75. Path/File access error", BoxIcon::None, BoxPlace::Normal, BoxButtons::Ok,
              "RegistryGetKeyValue");
}

TEST_F(FormPosition, WithoutAWindowEachMemberReportsIt) {
    position.Form(nullptr);
    const std::string text = "Error: 91. Object variable or With block variable not set";
    position.SaveForm();
    expectBox(text, BoxIcon::None, BoxPlace::Normal, BoxButtons::Ok, "SaveForm");
    position.CenterForm();
    expectBox(text, BoxIcon::None, BoxPlace::Normal, BoxButtons::Ok, "CenterForm");
    EXPECT_FALSE(position.RestoreForm(KeepOnScreen::No));
    expectBox(text, BoxIcon::None, BoxPlace::Normal, BoxButtons::Ok, "RestoreForm");
}

class MainWindowPosition : public PlayerTest {
protected:
    void stored(const std::string &text) { world.registry.setText(RootKey::LocalMachine, kKey, "Form1", text); }
    std::optional<std::string> saved() { return world.registry.text(RootKey::LocalMachine, kKey, "Form1"); }
};

TEST_F(MainWindowPosition, IsRestoredButNeverResized) {
    world.setSetting("Position", "1");
    stored("L=1500;T=750;W=99;H=98;S=0;");
    start();
    EXPECT_EQ(form().Left, 1500);
    EXPECT_EQ(form().Top, 750);
    EXPECT_EQ(form().Width, form().OriginalWidth);
    EXPECT_EQ(form().Height, form().OriginalHeight);
    EXPECT_GT(form().OriginalWidth, 99);
}

TEST_F(MainWindowPosition, IsNotKeptOnScreen) {
    world.setSetting("Position", "1");
    stored("L=-3000;T=-3000;W=99;H=98;S=0;");
    start();
    EXPECT_EQ(form().Left, -3000);
    EXPECT_EQ(form().Top, -3000);
}

TEST_F(MainWindowPosition, WithoutASavedOneIsTheCentre) {
    world.setSetting("Position", "1");
    start();
    EXPECT_EQ(form().Left, (world.screen.screenWidth - form().Width) / 2);
    EXPECT_EQ(form().Top, (world.screen.screenHeight - form().Height) / 2);
}

TEST_F(MainWindowPosition, IsSavedAtTheEnd) {
    world.setSetting("Position", "1");
    start();
    form().Move(150, 300);
    form().Unload();
    ASSERT_TRUE(saved());
    EXPECT_TRUE(saved()->starts_with("L=150;T=300;W=")) << *saved();
}

TEST_F(MainWindowPosition, WithTheSettingOffIsNeitherRestoredNorSaved) {
    stored("L=1500;T=750;W=99;H=98;S=0;");
    start();
    EXPECT_NE(form().Left, 1500);
    form().Unload();
    EXPECT_EQ(saved(), "L=1500;T=750;W=99;H=98;S=0;");
}

TEST_F(MainWindowPosition, SwitchedOnWhileRunningIsSavedFromTheNextStartOn) {
    start();
    world.app().settings->Check2.Value = 1;
    form().Unload();
    EXPECT_FALSE(saved());
    EXPECT_TRUE(world.boxes.shown.empty());
    EXPECT_EQ(world.setting("Position"), "1");
}

TEST_F(MainWindowPosition, SwitchedOffAndOnAgainIsTheOldPlace) {
    world.setSetting("Position", "1");
    stored("L=1500;T=750;W=99;H=98;S=0;");
    start();
    world.app().settings->Check2.Value = 0;
    form().Move(3, 4);
    form().Unload();
    world.runUntilIdle();
    EXPECT_EQ(saved(), "L=1500;T=750;W=99;H=98;S=0;");
    world.setSetting("Position", "1");
    start();
    EXPECT_EQ(form().Left, 1500);
}

} // namespace
} // namespace tonvale::test
