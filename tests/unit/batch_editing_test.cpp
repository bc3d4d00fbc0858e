// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/unit/fakes/BatchTest.h"

#include <algorithm>

namespace tonvale::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class BatchEditing : public BatchTest {};

INSTANTIATE_TEST_SUITE_P(Both, BatchEditing, testing::Values(kEncodeTwin, kDecodeTwin), twinName);

TEST_P(BatchEditing, the_add_dialog_is_set_up_anew_each_time) {
    open();
    addByDialog("/music/a.wav");
    click(window().AddMenu.Click);
    ASSERT_EQ(world.dialogs.opened.size(), 2U);
    const OpenFileName &dialog = world.dialogs.opened.back();
    EXPECT_EQ(dialog.title, twin.addTitle);
    std::string filter = dialog.filter;
    std::ranges::replace(filter, '\0', '|');
    EXPECT_EQ(filter, twin.addFilter + "|");
    EXPECT_EQ(dialog.file, "");
    EXPECT_EQ(dialog.filterIndex, 1);
    EXPECT_EQ(dialog.flags, 2628108);
    EXPECT_EQ(dialog.capacity, 8096U);
    EXPECT_EQ(dialog.initialDirectory, "/music");
}

TEST_P(BatchEditing, the_first_add_dialog_opens_in_the_current_directory) {
    world.files.directory = "/somewhere";
    open();
    click(window().AddMenu.Click);
    EXPECT_EQ(world.dialogs.opened.back().initialDirectory, "/somewhere");
}

TEST_P(BatchEditing, an_added_file_becomes_the_last_row_and_its_folder_is_kept) {
    openWith({"/x/first"});
    addByDialog("/music/pop/a.wav");
    EXPECT_THAT(rows(), ElementsAre("/x/first", "/music/pop/a.wav"));
    EXPECT_EQ(world.setting(twin.directoryKey), "/music/pop");
}

TEST_P(BatchEditing, several_files_become_rows_in_their_order_and_the_folder_above_is_kept) {
    open();
    answerDialogWithSeveral("/music/pop", {"b.wav", "a.wav"});
    pushToolbar("Add");
    EXPECT_THAT(rows(), ElementsAre("/music/pop/b.wav", "/music/pop/a.wav"));
    EXPECT_EQ(world.setting(twin.directoryKey), "/music");
}

TEST_P(BatchEditing, a_cancelled_add_changes_nothing) {
    openWith({"/x/first"});
    click(window().AddMenu.Click);
    EXPECT_THAT(rows(), ElementsAre("/x/first"));
    EXPECT_EQ(world.setting(twin.directoryKey), "(none)");
    EXPECT_EQ(window().List1.HorizontalExtent, 0);
}

TEST_P(BatchEditing, the_same_file_and_files_of_any_type_can_be_added) {
    open();
    addByDialog("/music/a.txt");
    addByDialog("/music/a.txt");
    EXPECT_THAT(rows(), ElementsAre("/music/a.txt", "/music/a.txt"));
    expectNoBox();
}

TEST_P(BatchEditing, a_folder_that_cannot_be_kept_does_not_hinder_the_add) {
    open();
    world.registry.writeError = ErrorNumber::DiskFull;
    addByDialog("/music/a.wav");
    EXPECT_THAT(rows(), ElementsAre("/music/a.wav"));
    expectNoBox();
}

TEST_P(BatchEditing, a_long_path_widens_the_rows_and_nothing_narrows_them) {
    open().List1.textWidth = [](const std::string &text) { return static_cast<std::int32_t>(text.size()) * 150; };
    addByDialog("/0123456789"); // 11 characters of 10 pixels each
    EXPECT_EQ(window().List1.HorizontalExtent, 11 * 10 + 20);
    addByDialog("/0123456789/0123456789");
    EXPECT_EQ(window().List1.HorizontalExtent, 22 * 10 + 20);
    select({1});
    click(window().RemoveMenu.Click);
    EXPECT_EQ(window().List1.HorizontalExtent, 22 * 10 + 20);
    addByDialog("/short");
    EXPECT_EQ(window().List1.HorizontalExtent, 22 * 10 + 20);
    EXPECT_EQ(window().MaxRowExtent, 22 * 10 + 20);
}

TEST_P(BatchEditing, remove_takes_the_selected_rows_and_selects_what_follows) {
    openWith({"0", "1", "2", "3", "4", "5"});
    select({2, 3, 5});
    click(window().RemoveMenu.Click);
    EXPECT_THAT(rows(), ElementsAre("0", "1", "4"));
    EXPECT_THAT(selectedRows(), ElementsAre(2U));
}

TEST_P(BatchEditing, remove_of_the_last_rows_selects_the_new_last_one) {
    openWith({"0", "1", "2"});
    select({1, 2});
    pushToolbar("Remove");
    EXPECT_THAT(rows(), ElementsAre("0"));
    EXPECT_THAT(selectedRows(), ElementsAre(0U));
}

TEST_P(BatchEditing, remove_of_all_rows_leaves_nothing) {
    openWith({"0", "1"});
    select({0, 1});
    click(window().RemoveMenu.Click);
    EXPECT_THAT(rows(), IsEmpty());
    expectNoBox();
}

TEST_P(BatchEditing, remove_without_a_selection_selects_the_first_row) {
    openWith({"0", "1"});
    click(window().RemoveMenu.Click);
    EXPECT_THAT(rows(), ElementsAre("0", "1"));
    EXPECT_THAT(selectedRows(), ElementsAre(0U));
}

TEST_P(BatchEditing, remove_on_an_empty_list_says_so) {
    open();
    click(window().RemoveMenu.Click);
    expectBox("No files are currently in your list to remove.");
}

TEST_P(BatchEditing, the_toolbar_removes_as_long_as_the_menu_has_not_been_opened) {
    open();
    pushToolbar("Remove");
    expectBox("No files are currently in your list to remove.");
    EXPECT_EQ(world.boxes.shown.size(), 1U);
}

TEST_P(BatchEditing, the_toolbar_says_that_nothing_is_selected_where_the_menu_was_opened_like_that) {
    openWith({"0", "1"});
    click(window().EditMenu.Click);
    select({0});
    pushToolbar("Remove");
    expectBox(twin.nothingSelected);
    EXPECT_THAT(rows(), ElementsAre("0", "1"));
}

TEST_P(BatchEditing, moving_the_first_row_up_puts_it_at_the_end) {
    openWith({"1", "2", "3"});
    select({0});
    click(window().MoveUpMenu.Click);
    EXPECT_THAT(rows(), ElementsAre("2", "3", "1"));
    EXPECT_THAT(selectedRows(), ElementsAre(2U));
    click(window().MoveUpMenu.Click);
    EXPECT_THAT(rows(), ElementsAre("2", "1", "3"));
    EXPECT_THAT(selectedRows(), ElementsAre(1U));
}

TEST_P(BatchEditing, moving_the_last_row_down_puts_it_at_the_top) {
    openWith({"1", "2", "3"});
    select({2});
    click(window().MoveDownMenu.Click);
    EXPECT_THAT(rows(), ElementsAre("3", "1", "2"));
    EXPECT_THAT(selectedRows(), ElementsAre(0U));
    click(window().MoveDownMenu.Click);
    EXPECT_THAT(rows(), ElementsAre("1", "3", "2"));
    EXPECT_THAT(selectedRows(), ElementsAre(1U));
}

TEST_P(BatchEditing, without_a_current_row_nothing_moves) {
    openWith({"1", "2"});
    click(window().MoveUpMenu.Click);
    click(window().MoveDownMenu.Click);
    EXPECT_THAT(rows(), ElementsAre("1", "2"));
    expectNoBox();
}

TEST_P(BatchEditing, during_a_run_every_change_is_refused) {
    openWith({source("a"), source("b")});
    select({0});
    convertInto("/out");
    for (Event<> *command : {&window().AddMenu.Click, &window().RemoveMenu.Click, &window().MoveUpMenu.Click,
                             &window().MoveDownMenu.Click}) {
        world.boxes.shown.clear();
        click(*command);
        expectBox(kStopFirst);
    }
    pushToolbar("Add");
    pushToolbar("Remove");
    EXPECT_EQ(world.boxes.shown.size(), 3U);
    expectBox(kStopFirst);
    EXPECT_THAT(world.dialogs.opened, IsEmpty());
    EXPECT_THAT(rows(), ElementsAre(source("a"), source("b")));
    EXPECT_TRUE(isConverting());
}

TEST_P(BatchEditing, the_opening_menu_counts_the_selected_rows) {
    openWith({"0", "1", "2"});
    const auto enabled = [&] {
        click(window().EditMenu.Click);
        return Texts{window().AddMenu.Enabled ? "add" : "", window().RemoveMenu.Enabled ? "remove" : "",
                     window().MoveUpMenu.Enabled ? "up" : "", window().MoveDownMenu.Enabled ? "down" : ""};
    };
    EXPECT_THAT(enabled(), ElementsAre("add", "", "", ""));
    select({1});
    EXPECT_THAT(enabled(), ElementsAre("add", "remove", "up", "down"));
    select({2});
    EXPECT_THAT(enabled(), ElementsAre("add", "remove", "", ""));
}

TEST_P(BatchEditing, a_menu_opened_during_a_run_leaves_only_the_toolbar_to_add_by) {
    openWith({source("a")});
    select({0});
    convertInto("/out");
    click(window().EditMenu.Click);
    for (const MenuEntry *entry :
         {&window().AddMenu, &window().RemoveMenu, &window().MoveUpMenu, &window().MoveDownMenu})
        EXPECT_FALSE(entry->Enabled) << entry->Caption.get();
    pushToolbar("Remove");
    expectBox(twin.nothingSelected);
    stop();
    click(window().EditMenu.Click);
    EXPECT_FALSE(window().AddMenu.Enabled);
    EXPECT_TRUE(window().RemoveMenu.Enabled);
    answerDialog("/music/new");
    pushToolbar("Add");
    EXPECT_THAT(rows(), ElementsAre(source("a"), "/music/new"));
}

TEST_P(BatchEditing, the_tool_tip_is_the_row_under_the_pointer) {
    openWith({"/first", "/second"}).List1.itemFromPoint = [](std::int32_t x, std::int32_t y) {
        EXPECT_EQ(x, 7);
        return y < 60 ? y / 20 : -1;
    };
    const auto tipAt = [&](double y, std::int16_t button = 0) {
        window().List1.MouseMove(button, 7 * 15 + 14, y * 15);
        return window().List1.ToolTipText.get();
    };
    EXPECT_EQ(tipAt(5), "/first");
    EXPECT_EQ(tipAt(25), "/second");
    EXPECT_EQ(tipAt(5, kLeftButton), "/second");
    EXPECT_EQ(tipAt(45), ""); // behind the last row
    EXPECT_EQ(tipAt(5), "/first");
    EXPECT_EQ(tipAt(75), ""); // no row at all
}

} // namespace

} // namespace tonvale::test
