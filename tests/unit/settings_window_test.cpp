// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/Settings.h"

#include "tests/unit/fakes/World.h"

#include <gtest/gtest.h>

namespace tonvale::test {
namespace {

class SettingsWindow : public testing::Test {
protected:
    World world;
    Settings &settings() { return *world.app().settings; }
};

TEST_F(SettingsWindow, AnEmptyStoreGivesTheDefaults) {
    EXPECT_EQ(settings().Check1.Value, 0);
    EXPECT_EQ(settings().Check2.Value, 0);
    EXPECT_EQ(settings().Check3.Value, 0);
    EXPECT_EQ(settings().Check4.Value, 1);
    EXPECT_EQ(settings().Check6.Value, 0);
}

TEST_F(SettingsWindow, TheTemporaryLocationIsTheSystemsInLowerCase) {
    world.files.temporary = "/Home/Me/.Cache/Tonvale/";
    EXPECT_EQ(settings().Label2.Caption, "/home/me/.cache/tonvale/");
}

TEST_F(SettingsWindow, AStoredTemporaryLocationKeepsItsCase) {
    world.setSetting("Temp  Location", "/Work/Space");
    EXPECT_EQ(settings().Label2.Caption, "/Work/Space");
}

TEST_F(SettingsWindow, AnEmptyStoredTemporaryLocationIsEmpty) {
    world.setSetting("Temp  Location", "");
    EXPECT_EQ(settings().Label2.Caption, "");
}

TEST_F(SettingsWindow, LoadsEachBoxFromItsKey) {
    world.start();
    world.setSetting("Multi-Instances", "1");
    world.setSetting("Position", "1");
    world.setSetting("Always Ontop", "1");
    world.setSetting("Confirm Delete", "0");
    world.setSetting("Loop Other", "1");
    EXPECT_EQ(settings().Check1.Value, 1);
    EXPECT_EQ(settings().Check2.Value, 1);
    EXPECT_EQ(settings().Check3.Value, 1);
    EXPECT_EQ(settings().Check4.Value, 0);
    EXPECT_EQ(settings().Check6.Value, 1);
}

TEST_F(SettingsWindow, TheFirstReferenceLoadsItHidden) {
    settings();
    EXPECT_TRUE(world.app().settings.isLoaded());
    EXPECT_FALSE(settings().Visible);
}

TEST_F(SettingsWindow, ItsUnloadWritesEverythingInOrder) {
    settings().Check2.Value = 1;
    settings().Check4.Value = 0;
    settings().Label2.Caption = "/Work";
    world.log.clear();
    world.app().settings.Unload();
    const Texts writes = world.log.of({"registry.set"});
    ASSERT_EQ(writes.size(), 6U);
    const Texts expected{"Temp  Location=/Work", "Multi-Instances=0", "Position=1",
                         "Always Ontop=0",       "Confirm Delete=0",  "Loop Other=0"};
    for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_TRUE(writes[i].ends_with(" " + expected[i])) << writes[i];
}

TEST_F(SettingsWindow, AValueChangedAtRunTimeComesBackAfterTheUnload) {
    settings().Check6.Value = 1;
    EXPECT_EQ(world.setting("Loop Other"), "(none)");
    world.app().settings.Unload();
    EXPECT_EQ(world.setting("Loop Other"), "1");
    EXPECT_EQ(settings().Check6.Value, 1);
}

TEST_F(SettingsWindow, ARegistryThatCannotBeReadEndsItsLoadInSilence) {
    world.registry.readError = ErrorNumber::PermissionDenied;
    settings();
    EXPECT_TRUE(world.boxes.shown.empty());
    EXPECT_TRUE(world.app().settings.isLoaded());
}

TEST_F(SettingsWindow, TheAlwaysOnTopBoxActsAtOnce) {
    Form1 &form = world.start();
    settings().Check3.Value = 1;
    EXPECT_TRUE(form.Topmost);
    const double left = form.Left, width = form.Width;
    settings().Check3.Value = 0;
    EXPECT_FALSE(form.Topmost);
    EXPECT_EQ(form.Left, left);
    EXPECT_EQ(form.Width, width);
}

} // namespace
} // namespace tonvale::test
