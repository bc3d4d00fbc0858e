// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/ListBox.h"
#include "tests/unit/expectations.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

namespace tonvale::test {
namespace {

using testing::ElementsAre;
using Texts = std::vector<std::string>;

Texts rowsOf(const ListBox &list) {
    Texts rows;
    for (std::size_t i = 0; i < list.ListCount(); ++i) rows.push_back(list.List(i) + (list.Selected(i) ? "*" : ""));
    return rows;
}

class FocusedList : public testing::Test {
protected:
    FocusedList() {
        list.AddItems({"a", "b", "c", "d"});
        list.Selected(2, true);
    }
    ListBox list;
};

TEST_F(FocusedList, SelectingARowGivesItTheFocusAndDeselectingDoesNot) {
    EXPECT_EQ(list.ListIndex, 2);
    list.Selected(0, false);
    EXPECT_EQ(list.ListIndex, 2);
    list.Selected(1, true);
    EXPECT_EQ(list.ListIndex, 1);
    EXPECT_THAT(rowsOf(list), ElementsAre("a", "b*", "c*", "d"));
    EXPECT_EQ(list.SelCount(), 2U);
}

TEST_F(FocusedList, TheFocusGoesWithItsRow) {
    list.AddItem("x", 0);
    EXPECT_EQ(list.ListIndex, 3);
    list.AddItem("y", 4);
    EXPECT_EQ(list.ListIndex, 3);
    list.RemoveItem(0);
    EXPECT_EQ(list.ListIndex, 2);
    list.RemoveItem(3);
    EXPECT_EQ(list.ListIndex, 2);
}

TEST_F(FocusedList, TheRowThatComesUpHasTheFocusOfOneThatGoes) {
    list.RemoveItem(2);
    EXPECT_EQ(list.ListIndex, 2);
    list.RemoveItem(2);
    EXPECT_EQ(list.ListIndex, 1) << "the last row";
    list.Clear();
    EXPECT_EQ(list.ListIndex, -1);
}

TEST_F(FocusedList, ClearingTheSelectionIsOneAnnouncement) {
    list.Selected(0, true);
    std::vector<std::pair<std::size_t, std::size_t>> seen;
    const Connection changed =
        list.selectionChanged.connect([&](std::size_t first, std::size_t count) { seen.emplace_back(first, count); });
    list.ClearSelection();
    EXPECT_THAT(seen, ElementsAre(std::pair<std::size_t, std::size_t>(0, 4)));
    EXPECT_EQ(list.SelCount(), 0U);
}

TEST_F(FocusedList, WhatTheUserSelectsIsNotAnnouncedToTheView) {
    int seen = 0;
    const Connection changed = list.selectionChanged.connect([&](auto...) { ++seen; });
    list.userSelected(1, 100, true);
    EXPECT_EQ(seen, 0);
    EXPECT_THAT(rowsOf(list), ElementsAre("a", "b*", "c*", "d*"));
    list.userSelected(2, 1, false);
    EXPECT_THAT(rowsOf(list), ElementsAre("a", "b*", "c", "d*"));
}

TEST_F(FocusedList, WithoutAViewNothingHasAWidthAndNoPlaceIsARow) {
    EXPECT_EQ(list.TextWidth("abc"), 0);
    EXPECT_EQ(list.ItemFromPoint(1, 1), -1);
}

// Against removing one row at a time, for few ranges and for many.
TEST(ListBoxRemoval, OfTheSelectionEqualsRemovingRowByRow) {
    std::mt19937 random(7);
    for (int round = 0; round < 2000; ++round) {
        ListBox list, reference;
        const std::size_t count = random() % 60;
        for (std::size_t i = 0; i < count; ++i) {
            list.AddItem(std::to_string(i));
            reference.AddItem(std::to_string(i));
            if (random() % 2 == 0) continue;
            list.userSelected(i, 1, true);
            reference.userSelected(i, 1, true);
        }
        if (count > 0) list.ListIndex = reference.ListIndex = static_cast<std::int32_t>(random() % count);
        std::optional<std::size_t> lowest;
        for (std::size_t i = count; i-- > 0;)
            if (reference.Selected(i)) {
                reference.RemoveItem(i);
                lowest = i;
            }
        ASSERT_EQ(list.RemoveSelected(), lowest);
        ASSERT_EQ(rowsOf(list), rowsOf(reference));
        ASSERT_EQ(list.ListIndex, reference.ListIndex);
    }
}

TEST(ListBoxRemoval, OfNothingAnnouncesNothing) {
    ListBox list;
    list.AddItem("a");
    int seen = 0;
    const Connection a = list.rowsRemoved.connect([&](auto...) { ++seen; });
    const Connection b = list.rowsReset.connect([&] { ++seen; });
    EXPECT_EQ(list.RemoveSelected(), std::nullopt);
    EXPECT_EQ(seen, 0);
}

} // namespace
} // namespace tonvale::test
