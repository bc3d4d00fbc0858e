// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/CMRU.h"
#include "tests/unit/fakes/World.h"

#include <gtest/gtest.h>

#include <array>

namespace tonvale::test {
namespace {

constexpr const char *kKey = "SOFTWARE\\Orvane Tonvale\\MRU\\MRU Entries";

class RecentFiles : public testing::Test {
protected:
    RecentFiles() : list(world.app()) {
        list.RegistryPath = "SOFTWARE\\Orvane Tonvale\\MRU";
        list.SubKey = "MRU Entries";
        list.TagPrefix = "MRUTag";
        for (std::size_t i = 0; i < entries.size(); ++i) list.MenuItem(static_cast<std::int16_t>(i), &entries[i]);
    }
    void stored(int position, const std::string &item, const std::string &tag) {
        world.registry.setText(RootKey::LocalMachine, kKey, "MRU" + std::to_string(position), item);
        world.registry.setText(RootKey::LocalMachine, kKey, "MRUTag" + std::to_string(position), tag);
    }
    std::string value(const std::string &name) {
        return world.registry.text(RootKey::LocalMachine, kKey, name).value_or("(none)");
    }
    Texts shown() {
        Texts result;
        for (std::size_t i = 0; i < entries.size(); ++i)
            if (entries[i].Visible) result.push_back(entries[i].Caption.get() + "|" + entries[i].Tag);
        return result;
    }
    World world;
    std::array<MenuEntry, 5> entries;
    CMRU list;
};

TEST_F(RecentFiles, ItsDefaultsAreThoseOfItsCreation) {
    const CMRU fresh{world.app()};
    EXPECT_EQ(fresh.RootKey, RootKey::LocalMachine);
    EXPECT_EQ(fresh.RegistryPath, "SOFTWARE\\Orvane Tonvale");
    EXPECT_EQ(fresh.SubKey, "");
    EXPECT_EQ(fresh.Prefix, "MRU");
    EXPECT_EQ(fresh.TagPrefix, "MRUTAG");
    EXPECT_EQ(fresh.MaxMRUItems(), 4);
    EXPECT_EQ(fresh.MenuItem(0), nullptr);
}

TEST_F(RecentFiles, KeepsTheLastFourNewestFirst) {
    for (const char *name : {"a", "b", "c", "d", "e"}) list.SetMRUList(name, std::string("tag ") + name);
    EXPECT_EQ(shown(), (Texts{"|", "&1. e|tag e", "&2. d|tag d", "&3. c|tag c", "&4. b|tag b"}));
    EXPECT_EQ(value("MRU1"), "e");
    EXPECT_EQ(value("MRUTag1"), "tag e");
    EXPECT_EQ(value("MRU4"), "b");
    EXPECT_EQ(value("MRU5"), "(none)");
}

TEST_F(RecentFiles, AFileThatIsThereInOtherCaseMovesToTheTopWithItsNewCaseAndTag) {
    for (const char *name : {"c", "/Music/É.mp3", "b", "a"}) list.SetMRUList(name, "old");
    list.SetMRUList("/music/é.MP3", "new");
    EXPECT_EQ(shown(), (Texts{"|", "&1. /music/é.MP3|new", "&2. a|old", "&3. b|old", "&4. c|old"}));
}

TEST_F(RecentFiles, TheTopOneAgainStaysOne) {
    list.SetMRUList("a", "1");
    list.SetMRUList("a", "2");
    EXPECT_EQ(shown(), (Texts{"|", "&1. a|2"}));
}

TEST_F(RecentFiles, AnEmptyStoreHidesTheSeparatorAndAllEntries) {
    list.GetMRUList();
    EXPECT_EQ(shown(), Texts{});
}

TEST_F(RecentFiles, GapsCloseUpAndTheTagComesFromThePosition) {
    stored(1, "", "tag of 1");
    stored(2, "b", "tag of 2");
    stored(4, "d", "tag of 4");
    list.GetMRUList();
    EXPECT_EQ(shown(), (Texts{"|", "&1. b|tag of 2", "&2. d|tag of 4"}));
}

TEST_F(RecentFiles, ClearingWritesEmptyTexts) {
    list.SetMRUList("a", "1");
    list.SetMRUList("", "");
    EXPECT_EQ(shown(), Texts{});
    for (const char *name : {"MRU1", "MRU4", "MRUTag1", "MRUTag4"}) EXPECT_EQ(value(name), "") << name;
}

TEST_F(RecentFiles, OnlyTextValuesCount) {
    world.registry.set(RootKey::LocalMachine, kKey, "MRU1", {ValueType::Binary, "abc"});
    world.registry.set(RootKey::LocalMachine, kKey, "MRU2", {ValueType::String, std::string("b\0junk", 6)});
    list.GetMRUList();
    EXPECT_EQ(shown(), (Texts{"|", "&1. b|"}));
}

TEST_F(RecentFiles, WithoutWriteRightsTheListNeverChangesAndNobodyIsTold) {
    stored(1, "a", "1");
    world.registry.writeError = ErrorNumber::PermissionDenied;
    list.SetMRUList("b", "2");
    EXPECT_EQ(shown(), (Texts{"|", "&1. a|1"}));
    EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(RecentFiles, ARegistryThatCannotBeReadShowsNothingAndNobodyIsTold) {
    stored(1, "a", "1");
    world.registry.readError = ErrorNumber::PathFileAccessError;
    list.GetMRUList();
    EXPECT_EQ(shown(), Texts{});
    EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(RecentFiles, IgnoresMenuItemsOutOfRange) {
    MenuEntry other;
    list.MenuItem(-1, &other);
    list.MenuItem(5, &other);
    EXPECT_EQ(list.MenuItem(-1), nullptr);
    EXPECT_EQ(list.MenuItem(5), nullptr);
    EXPECT_EQ(list.MenuItem(4), &entries[4]);
}

TEST_F(RecentFiles, AnotherMaximumKeepsTheEntriesThatFit) {
    for (MenuEntry &entry : entries) entry.Visible = false;
    list.MaxMRUItems(2);
    EXPECT_EQ(list.MenuItem(2), &entries[2]);
    for (const char *name : {"a", "b", "c"}) list.SetMRUList(name, "");
    EXPECT_EQ(shown(), (Texts{"|", "&1. c|", "&2. b|"}));
    list.MaxMRUItems(4);
    EXPECT_EQ(list.MenuItem(1), &entries[1]);
    EXPECT_EQ(list.MenuItem(4), nullptr);
}

TEST_F(RecentFiles, WithoutASubKeyTheValuesLieInThePathItself) {
    list.SubKey = "";
    list.SetMRUList("a", "1");
    EXPECT_EQ(world.registry.text(RootKey::LocalMachine, "SOFTWARE\\Orvane Tonvale\\MRU", "MRU1"), "a");
}

TEST_F(RecentFiles, AreReadAtTheStartAndShownByTheMainWindow) {
    stored(1, "/music/a.mp3", "File length: 5");
    Form1 &form = world.start();
    EXPECT_TRUE(form.mnuFileMRU[0].Visible);
    EXPECT_EQ(form.mnuFileMRU[1].Caption, "&1. /music/a.mp3");
    EXPECT_EQ(form.mnuFileMRU[1].Tag, "File length: 5");
    EXPECT_FALSE(form.mnuFileMRU[2].Visible);
}

} // namespace
} // namespace tonvale::test
