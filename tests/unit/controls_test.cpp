// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/ListBox.h"

#include "controls/CDReader.h"
#include "tests/unit/expectations.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tonvale::test {
namespace {

TEST(Slider, KeepsItsValueBetweenMinAndMax) {
    Slider slider{-10000, 10000, 1000};
    EXPECT_EQ(slider.Value(), 0);
    slider.Value(20000);
    EXPECT_EQ(slider.Value(), 10000);
    slider.Value(-20000);
    EXPECT_EQ(slider.Value(), -10000);
}

TEST(Slider, RaisesChangeForRealChangesOnly) {
    Slider slider{0, 100};
    std::vector<std::int32_t> seen;
    slider.Change = [&] { seen.push_back(slider.Value()); };
    slider.Value(5);
    slider.Value(5);
    slider.Value(200);
    slider.Value(300);
    EXPECT_EQ(seen, (std::vector<std::int32_t>{5, 100}));
}

TEST(Slider, DraggingTheThumbRaisesScrollInPlaceOfChange) {
    Slider slider{0, 100};
    int changes = 0, scrolls = 0;
    slider.Change = [&] { ++changes; };
    slider.Scroll = [&] { ++scrolls; };
    slider.scrollTo(30);
    slider.scrollTo(30);
    EXPECT_EQ(slider.Value(), 30);
    EXPECT_EQ(scrolls, 1);
    EXPECT_EQ(changes, 0);
}

TEST(Slider, ANarrowerRangeLimitsTheValueWithoutAnEvent) {
    Slider slider{0, 100};
    slider.Value(80);
    int changes = 0;
    slider.Change = [&] { ++changes; };
    slider.setRange(0, 60);
    EXPECT_EQ(slider.Value(), 60);
    EXPECT_EQ(changes, 0) << "nobody has moved it";
    slider.setRange(0, 0);
    slider.Value(10);
    EXPECT_EQ(slider.Value(), 0);
}

TEST(LedSpin, RunsFromZeroToAHundredInSteps) {
    LedSpin spin;
    EXPECT_EQ(spin.Step, 1);
    spin.Value(-1);
    EXPECT_EQ(spin.Value(), 0);
    spin.Value(101);
    EXPECT_EQ(spin.Value(), 100);
}

TEST(CheckBox, SettingItFromCodeRaisesClickLikeTheUser) {
    CheckBox box{"Box"};
    int clicks = 0;
    box.Click = [&] { ++clicks; };
    box.Value = 1;
    box.Value = 1;
    EXPECT_EQ(clicks, 1);
    box.Value = 0;
    EXPECT_EQ(clicks, 2);
}

TEST(TextBox, SettingTheSameTextRaisesNothing) {
    TextBox box;
    int changes = 0;
    box.Change = [&] { ++changes; };
    box.Text = "a";
    box.Text = "a";
    box.Text = "";
    EXPECT_EQ(changes, 2);
}

TEST(ComboBox, SelectingALineRaisesClick) {
    ComboBox box;
    EXPECT_EQ(box.ListIndex, -1);
    int clicks = 0;
    box.Click = [&] { ++clicks; };
    box.ListIndex = 0;
    EXPECT_EQ(clicks, 1);
}

TEST(ListBox, AddsAtTheEndOrBeforeARow) {
    ListBox list;
    list.AddItem("a");
    list.AddItem("c");
    list.AddItem("b", 1);
    list.AddItem("d", 3);
    ASSERT_EQ(list.ListCount(), 4U);
    EXPECT_EQ(list.List(0) + list.List(1) + list.List(2) + list.List(3), "abcd");
}

TEST(ListBox, RowsThatAreNotThereAreErrors) {
    ListBox list;
    list.AddItem("a");
    EXPECT_RUNTIME_ERROR(list.List(1), 380);
    EXPECT_RUNTIME_ERROR(list.Selected(1), 380);
    EXPECT_RUNTIME_ERROR(list.setItem(1, "x"), 380);
    EXPECT_RUNTIME_ERROR(list.RemoveItem(1), 5);
    EXPECT_RUNTIME_ERROR(list.AddItem("x", 2), 5);
    EXPECT_EQ(list.ListCount(), 1U);
}

TEST(ListBox, AnnouncesEachChangeBeforeAndAfterIt) {
    ListBox list;
    std::vector<std::string> seen;
    const auto note = [&](const char *name) {
        return [&seen, &list, name](std::size_t first, std::size_t count) {
            seen.push_back(std::string(name) + " " + std::to_string(first) + "+" + std::to_string(count) + " of " +
                           std::to_string(list.ListCount()));
        };
    };
    const Connection a = list.rowsAboutToBeInserted.connect(note("in?")), b = list.rowsInserted.connect(note("in"));
    const Connection c = list.rowsAboutToBeRemoved.connect(note("out?")), d = list.rowsRemoved.connect(note("out"));
    const Connection e = list.rowsChanged.connect(note("change")), f = list.selectionChanged.connect(note("select"));
    list.AddItems({"a", "b", "c"});
    list.AddItems({});
    list.RemoveItem(1);
    list.setItem(0, "x");
    list.Selected(1, true);
    list.Selected(1, true);
    list.Clear();
    list.Clear();
    EXPECT_EQ(seen, (std::vector<std::string>{"in? 0+3 of 0", "in 0+3 of 3", "out? 1+1 of 3", "out 1+1 of 2",
                                              "change 0+1 of 2", "select 1+1 of 2", "out? 0+2 of 2", "out 0+2 of 0"}));
}

TEST(ListBox, TheSelectionStaysWithItsRow) {
    ListBox list;
    list.AddItems({"a", "b"});
    list.Selected(1, true);
    list.AddItem("first", 0);
    EXPECT_FALSE(list.Selected(1));
    EXPECT_TRUE(list.Selected(2));
}

TEST(AbsentCdReader, IsNeverReadyAndHasNothingToStop) {
    AbsentCDReader reader;
    EXPECT_FALSE(reader.DiscReady());
    EXPECT_FALSE(reader.ReadDirectory());
    EXPECT_TRUE(reader.Tracks().empty());
    reader.StopPlay();
    reader.PausePlay();
    reader.CloseDevice();
    EXPECT_RUNTIME_ERROR(reader.OpenDevice(), 57);
    EXPECT_RUNTIME_ERROR(reader.PlayTrack(0), 57);
}

} // namespace
} // namespace tonvale::test
