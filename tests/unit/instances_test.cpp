// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/Main.h"
#include "core/WindowSearch.h"
#include "tests/unit/fakes/World.h"

#include <gtest/gtest.h>

namespace tonvale::test {
namespace {

constexpr const char *kFormClass = "ThunderRT6FormDC";

class Instances : public testing::Test {
protected:
    Instances() {
        world.windows.present = {{11, kFormClass, "Orvane Tonvale"},
                                 {12, kFormClass, "About Orvane Tonvale..."},
                                 {13, "OtherClass", "Orvane Tonvale"},
                                 {14, kFormClass, "orvane tonvale"},
                                 {15, kFormClass, "Calculator"}};
    }
    World world;
};

TEST_F(Instances, TheFirstRunSettingClosesTheRunningOne) {
    world.start();
    EXPECT_EQ(world.windows.closed, (std::vector<WindowHandle>{11, 12}));
    EXPECT_EQ(world.result, StartResult::Running);
    EXPECT_TRUE(world.app().form1->Visible);
}

TEST_F(Instances, TheOldOneHasGoneBeforeTheNewWindowComes) {
    const Connection loading =
        world.app().forms.formLoading.connect([&](Form &form) { world.log.add("load " + form.Name); });
    world.start();
    const Texts order = world.log.of({"windows.close", "load Form1"});
    EXPECT_EQ(order, (Texts{"windows.close 11", "windows.close 12", "load Form1"}));
}

TEST_F(Instances, RunSideBySideWhenTheSettingAllowsIt) {
    world.setSetting("Multi-Instances", "1");
    world.start();
    EXPECT_TRUE(world.windows.closed.empty());
    EXPECT_TRUE(world.app().form1->Visible);
}

TEST_F(Instances, TheSettingIsComparedAsANumber) {
    world.setSetting("Multi-Instances", " 0.0 ");
    world.start();
    EXPECT_EQ(world.windows.closed.size(), 2U);
}

TEST_F(Instances, AnyOtherNumberLeavesTheOthersAlone) {
    world.setSetting("Multi-Instances", "0.5");
    world.start();
    EXPECT_TRUE(world.windows.closed.empty());
}

TEST_F(Instances, NobodyElseRunning) {
    world.windows.present.clear();
    world.start();
    EXPECT_TRUE(world.windows.closed.empty());
    EXPECT_EQ(world.result, StartResult::Running);
}

TEST_F(Instances, WindowsThatCannotBeListedAreNoneThere) {
    world.windows.available = false;
    world.start();
    EXPECT_TRUE(world.windows.closed.empty());
    EXPECT_EQ(world.result, StartResult::Running);
}

TEST_F(Instances, ARegistryThatCannotBeReadEndsTheStart) {
    world.registry.readError = ErrorNumber::PermissionDenied;
    EXPECT_EQ(Main(world.app()), StartResult::Failed);
    EXPECT_FALSE(world.app().form1.isLoaded());
    ASSERT_EQ(world.boxes.shown.size(), 1U);
    const MessageBox &box = world.boxes.last();
    EXPECT_EQ(box.icon, BoxIcon::Information);
    EXPECT_EQ(box.buttons, BoxButtons::Ok);
    EXPECT_EQ(box.place, BoxPlace::Foreground);
    EXPECT_EQ(box.title, "Orvane Tonvale");
    std::string text = box.text;
    std::erase(text, '\r');
    EXPECT_EQ(text, "An error occurred while accessing your system registry which prevents the load of Tonvale.  \n"
                    "Please correct the situation and reload Tonvale.");
}

TEST_F(Instances, ASettingThatIsNoNumberIsAFailureOfTheRegistry) {
    world.setSetting("Multi-Instances", "many");
    EXPECT_EQ(Main(world.app()), StartResult::Failed);
    EXPECT_EQ(world.boxes.shown.size(), 1U);
}

TEST_F(Instances, AnEarlierErrorIsForgottenAtTheStart) {
    world.app().Err.set(RuntimeError(ErrorNumber::DiskFull));
    world.start();
    EXPECT_EQ(world.result, StartResult::Running);
}

TEST_F(Instances, AFailureWhileClosingThemEndsTheStart) {
    world.windows.failure = ErrorNumber::PermissionDenied;
    EXPECT_EQ(Main(world.app()), StartResult::Failed);
}

class FindWindowLike : public Instances {
protected:
    WindowSearch search{world.windows};
};

TEST_F(FindWindowLike, CountsTheWindowsOfWhichBothPatternsMatch) {
    EXPECT_EQ(search.FindWindowLike(kDesktopWindow, "Thunder*Form*", "*Orvane Tonvale*", SearchFor::All), 2U);
    ASSERT_EQ(search.found().size(), 2U);
    EXPECT_EQ(search.found()[0].handle, 11U);
    EXPECT_EQ(search.found()[1].title, "About Orvane Tonvale...");
}

TEST_F(FindWindowLike, ANewSearchForgetsTheLast) {
    EXPECT_EQ(search.FindWindowLike(kDesktopWindow, "*", "*", SearchFor::All), 5U);
    EXPECT_EQ(search.FindWindowLike(kDesktopWindow, "*", "*WAV Batch Converter*", SearchFor::All), 0U);
    EXPECT_TRUE(search.found().empty());
}

TEST_F(FindWindowLike, TheFirstOnlyGivesItsHandle) {
    EXPECT_EQ(search.FindWindowLike(kDesktopWindow, "Thunder*Form*", "*Orvane Tonvale*", SearchFor::FirstOnly), 11U);
    EXPECT_EQ(search.FindWindowLike(kDesktopWindow, "Thunder*Form*", "*Nothing*", SearchFor::FirstOnly), 0U);
}

TEST_F(FindWindowLike, WithoutADesktopFindsNothing) {
    world.windows.available = false;
    EXPECT_EQ(search.FindWindowLike(kDesktopWindow, "*", "*", SearchFor::All), 0U);
}

TEST_F(FindWindowLike, LooksAtTheFirst512CharactersOfClassAndTitle) {
    world.windows.present = {{21, kFormClass, std::string(600, 'x') + "Orvane Tonvale"}};
    EXPECT_EQ(search.FindWindowLike(kDesktopWindow, "*", "*Orvane Tonvale*", SearchFor::All), 0U);
}

class ClosingForms : public testing::Test {
protected:
    World world;
};

TEST_F(ClosingForms, UnloadsAllTheOthersAndThenTheOneToKeep) {
    Form1 &form = world.start();
    world.app().settings.form();
    world.app().frmPlayList->Show();
    Texts gone;
    const Connection connection =
        world.app().forms.formUnloaded.connect([&](Form &unloaded) { gone.push_back(unloaded.Name); });
    CloseForms(world.app(), form);
    ASSERT_FALSE(gone.empty());
    EXPECT_EQ(gone.back(), "Form1");
    EXPECT_THAT(gone, testing::Contains("frmPlayList"));
    EXPECT_THAT(gone, testing::Contains("Settings"));
    EXPECT_TRUE(world.app().forms.loaded().empty());
    EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(ClosingForms, AnErrorEndsItWithABox) {
    Form1 &form = world.start();
    world.app().frmPlayList.form();
    const Connection connection =
        world.app().forms.formUnloaded.connect([](Form &) { throw RuntimeError(ErrorNumber::PermissionDenied); });
    CloseForms(world.app(), form);
    ASSERT_GE(world.boxes.shown.size(), 1U);
    const MessageBox &box = world.boxes.shown.front();
    EXPECT_EQ(box.text, "Error: 70. Permission denied");
    EXPECT_EQ(box.title, "CloseForms");
    EXPECT_EQ(box.icon, BoxIcon::None);
    EXPECT_EQ(box.buttons, BoxButtons::Ok);
    EXPECT_EQ(box.place, BoxPlace::Normal);
}

} // namespace
} // namespace tonvale::test
