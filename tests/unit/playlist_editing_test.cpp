// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/unit/fakes/ListTest.h"

namespace tonvale::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using ListEditing = ListTest;

constexpr const char *kAudioDialogFilter =
    "Audio Files|*.cda;*.mp3;*.mp2;*.wav;*.asf;*.aif;*.au;*.aiff;*.mid;*.midi;*.rmi;*.snd;*.ra;*.ram;*.rpm";

std::string withZeros(std::string text) {
    for (char &c : text)
        if (c == '|') c = '\0';
    return text + '\0';
}

TEST_F(ListEditing, TheAddDialogIsSetUp) {
    open();
    world.files.directory = "/here";
    answerDialog("/music/pop/a.mp3");
    click(list().AddMenu.Click);
    ASSERT_EQ(world.dialogs.opened.size(), 1U);
    const OpenFileName &dialog = world.dialogs.opened[0];
    EXPECT_EQ(dialog.title, "Select Audio Files:");
    EXPECT_EQ(dialog.filter, withZeros(kAudioDialogFilter));
    EXPECT_EQ(dialog.filterIndex, 1);
    EXPECT_EQ(dialog.flags, 2628108);
    EXPECT_EQ(dialog.capacity, 8096U);
    EXPECT_EQ(dialog.initialDirectory, "/here");
    EXPECT_EQ(dialog.file, "");
    EXPECT_EQ(world.setting("Common Dialog Dir 3"), "/music/pop");
    EXPECT_THAT(rows(), ElementsAre("/music/pop/a.mp3"));
    EXPECT_FALSE(list().ListSaved);
    EXPECT_TRUE(list().playmenu.Enabled) << "the commands are refreshed";
}

TEST_F(ListEditing, ACancelledAddChangesNothing) {
    open();
    click(list().AddPop.Click);
    EXPECT_EQ(world.dialogs.opened.size(), 1U);
    EXPECT_TRUE(list().ListSaved);
    EXPECT_EQ(world.setting("Common Dialog Dir 3"), "(none)");
}

TEST_F(ListEditing, SeveralFilesCanBeAdded) {
    open();
    answerDialogWithSeveral("/music/pop", {"b.mp3", "a.mp3", "b.mp3"});
    click(list().AddMenu.Click);
    EXPECT_THAT(rows(), ElementsAre("/music/pop/b.mp3", "/music/pop/a.mp3", "/music/pop/b.mp3"));
    EXPECT_EQ(world.setting("Common Dialog Dir 3"), "/music") << "the parent of the folder";
    click(list().AddMenu.Click);
    EXPECT_EQ(world.dialogs.opened[1].initialDirectory, "/music");
}

TEST_F(ListEditing, AFolderThatEndsInItsSeparatorGetsNoSecondOne) {
    open();
    answerDialogWithSeveral("/", {"a.mp3"});
    click(list().AddMenu.Click);
    answerDialogWithSeveral("C:\\", {"b.mp3"});
    click(list().AddMenu.Click);
    answerDialogWithSeveral("C:\\pop", {"c.mp3"});
    click(list().AddMenu.Click);
    EXPECT_THAT(rows(), ElementsAre("/a.mp3", "C:\\b.mp3", "C:\\pop\\c.mp3"));
}

TEST_F(ListEditing, AnEmptyNameEndsTheSelection) {
    open();
    world.dialogs.answers.push_back({1, std::string("/m\0a.mp3\0\0b.mp3", 15), ""});
    click(list().AddMenu.Click);
    EXPECT_THAT(rows(), ElementsAre("/m/a.mp3"));
}

TEST_F(ListEditing, TenThousandFilesAreAddedAtOnce) {
    open();
    Texts names;
    for (int i = 0; i < 10000; ++i) names.push_back(std::to_string(i) + ".mp3");
    answerDialogWithSeveral("/m", names);
    int announcements = 0;
    const Connection inserted = list().List1.rowsInserted.connect([&](auto...) { ++announcements; });
    click(list().AddMenu.Click);
    EXPECT_EQ(rows().size(), 10000U);
    EXPECT_EQ(announcements, 1);
}

TEST_F(ListEditing, NothingLooksAtARowThatIsAdded) {
    open();
    for (const char *name : {"/m/x.ram", "/m/x.ram", "/none/noextension"}) {
        answerDialog(name);
        click(list().AddMenu.Click);
    }
    EXPECT_THAT(rows(), ElementsAre("/m/x.ram", "/m/x.ram", "/none/noextension"));
    expectNoBox();
}

TEST_F(ListEditing, WhileTheListRunsEditingIsRefused) {
    openWith({"/a.mp3", "/b.mp3"});
    select({0});
    play();
    for (Event<> *command :
         {&list().AddMenu.Click, &list().AddPop.Click, &list().RemoveMenu.Click, &list().RemovePop.Click,
          &list().MoveUpMenu.Click, &list().UpPop.Click, &list().MoveDownMenu.Click, &list().DownPop.Click,
          &list().DeselectMenu.Click, &list().DeselectPopMenu.Click}) {
        world.boxes.shown.clear();
        click(*command);
        expectBox(kGuardText, BoxIcon::Information);
    }
    EXPECT_THAT(rows(), ElementsAre("/a.mp3", "/b.mp3"));
    EXPECT_THAT(selectedRows(), ElementsAre(0U));
    EXPECT_TRUE(world.dialogs.opened.empty());
    EXPECT_TRUE(list().ListSaved);
}

TEST_F(ListEditing, TheCommandsFollowTheRowsAndTheSelection) {
    PlaylistWindow &w = openWith({});
    const auto enabled = [](std::initializer_list<MenuEntry *> entries) {
        return std::ranges::all_of(entries, [](MenuEntry *entry) { return entry->Enabled.get(); });
    };
    const auto anyEnabled = [](std::initializer_list<MenuEntry *> entries) {
        return std::ranges::any_of(entries, [](MenuEntry *entry) { return entry->Enabled.get(); });
    };
    const std::initializer_list<MenuEntry *> moves = {&w.MoveUpMenu, &w.UpPop, &w.MoveDownMenu, &w.DownPop};
    const std::initializer_list<MenuEntry *> plays = {&w.playmenu, &w.PlayPop};
    const std::initializer_list<MenuEntry *> removes = {&w.RemoveMenu, &w.RemovePop, &w.DeselectMenu};
    EXPECT_FALSE(anyEnabled(moves) || anyEnabled(plays) || anyEnabled(removes));
    EXPECT_TRUE(enabled({&w.AddMenu, &w.AddPop, &w.DeselectPopMenu}));
    w.List1.AddItem("/a.mp3");
    select({0});
    EXPECT_TRUE(enabled(plays) && enabled(removes));
    EXPECT_FALSE(anyEnabled(moves)) << "one row has nowhere to go";
    w.List1.AddItem("/b.mp3");
    w.List1.GotFocus();
    EXPECT_TRUE(enabled(moves));
    select({0, 1});
    EXPECT_FALSE(anyEnabled(moves));
    EXPECT_TRUE(enabled(removes));
    play();
    EXPECT_FALSE(anyEnabled(moves) || anyEnabled(removes) || w.AddMenu.Enabled);
    EXPECT_TRUE(enabled({&w.AddPop, &w.DeselectPopMenu, &w.playmenu}));
    play();
    EXPECT_TRUE(enabled(removes) && w.AddMenu.Enabled);
}

TEST_F(ListEditing, RemovesTheSelectedRows) {
    openWith({"0", "1", "2", "3", "4", "5"});
    select({2, 3, 5});
    click(list().RemoveMenu.Click);
    EXPECT_THAT(rows(), ElementsAre("0", "1", "4"));
    EXPECT_THAT(selectedRows(), ElementsAre(2U));
    EXPECT_FALSE(list().ListSaved);
}

TEST_F(ListEditing, RemovingTheLastRowsSelectsTheNewLastOne) {
    openWith({"0", "1", "2", "3"});
    select({2, 3});
    click(list().RemovePop.Click);
    EXPECT_THAT(rows(), ElementsAre("0", "1"));
    EXPECT_THAT(selectedRows(), ElementsAre(1U));
    select({0});
    click(list().RemoveMenu.Click);
    EXPECT_THAT(rows(), IsEmpty());
    EXPECT_FALSE(list().playmenu.Enabled);
    EXPECT_FALSE(list().RemoveMenu.Enabled);
}

TEST_F(ListEditing, RemovingWithoutASelectionSelectsTheFirstRow) {
    openWith({"0", "1"});
    click(list().RemoveMenu.Click);
    EXPECT_THAT(rows(), ElementsAre("0", "1"));
    EXPECT_THAT(selectedRows(), ElementsAre(0U));
    EXPECT_FALSE(list().ListSaved);
}

TEST_F(ListEditing, AnEmptyListHasNothingToRemove) {
    open();
    click(list().RemoveMenu.Click);
    expectBox("No files are currently in your playlist to remove.", BoxIcon::Information);
    EXPECT_TRUE(list().ListSaved);
}

TEST_F(ListEditing, TheToolbarsRemoveLooksAtTheMenu) {
    openWith({"0", "1"});
    pushToolbar("Remove");
    expectBox("No files are currently selected to remove.", BoxIcon::Information);
    select({0});
    pushToolbar("Remove");
    EXPECT_THAT(rows(), ElementsAre("1"));
    select({0});
    list().List1.setItem(0, "/a.mp3");
    play();
    world.boxes.shown.clear();
    pushToolbar("Remove");
    expectBox("No files are currently selected to remove.", BoxIcon::Information);
}

TEST_F(ListEditing, ManyScatteredRowsAreRemovedAtOnce) {
    open();
    Texts texts(100000);
    for (std::size_t i = 0; i < texts.size(); ++i) texts[i] = std::to_string(i);
    list().List1.AddItems(texts);
    for (std::size_t i = 1; i < texts.size(); i += 2) list().List1.userSelected(i, 1, true);
    int announcements = 0;
    const Connection removed = list().List1.rowsRemoved.connect([&](auto...) { ++announcements; });
    const Connection reset = list().List1.rowsReset.connect([&] { ++announcements; });
    click(list().RemoveMenu.Click);
    EXPECT_EQ(list().List1.ListCount(), 50000U);
    EXPECT_EQ(list().List1.List(49999), "99998");
    EXPECT_EQ(announcements, 1);
    EXPECT_THAT(selectedRows(), ElementsAre(1U));
}

TEST_F(ListEditing, MovesTheFocusedRowUpAndWraps) {
    openWith({"1", "2", "3"});
    select({0});
    click(list().MoveUpMenu.Click);
    EXPECT_THAT(rows(), ElementsAre("2", "3", "1"));
    EXPECT_THAT(selectedRows(), ElementsAre(2U));
    EXPECT_FALSE(list().ListSaved);
    click(list().UpPop.Click);
    EXPECT_THAT(rows(), ElementsAre("2", "1", "3")) << "the row that moved keeps the focus";
    EXPECT_THAT(selectedRows(), ElementsAre(1U));
}

TEST_F(ListEditing, MovesTheFocusedRowDownAndWraps) {
    openWith({"1", "2", "3"});
    select({2});
    click(list().MoveDownMenu.Click);
    EXPECT_THAT(rows(), ElementsAre("3", "1", "2"));
    EXPECT_THAT(selectedRows(), ElementsAre(0U));
    EXPECT_FALSE(list().ListSaved);
    click(list().DownPop.Click);
    EXPECT_THAT(rows(), ElementsAre("1", "3", "2"));
    EXPECT_TRUE(list().MoveUpMenu.Enabled);
}

TEST_F(ListEditing, TheFocusedRowMovesThoughAnotherOneIsSelected) {
    openWith({"1", "2", "3"});
    select({0});
    list().List1.ListIndex = 2;
    click(list().MoveUpMenu.Click);
    EXPECT_THAT(rows(), ElementsAre("1", "3", "2"));
    EXPECT_THAT(selectedRows(), ElementsAre(0U, 1U));
}

TEST_F(ListEditing, WithoutAFocusedRowNothingMoves) {
    openWith({"1", "2"});
    click(list().MoveUpMenu.Click);
    click(list().MoveDownMenu.Click);
    EXPECT_THAT(rows(), ElementsAre("1", "2"));
    expectNoBox();
}

TEST_F(ListEditing, DeselectsAll) {
    openWith({"1", "2", "3"});
    select({0, 2});
    click(list().DeselectMenu.Click);
    EXPECT_THAT(selectedRows(), IsEmpty());
    EXPECT_FALSE(list().RemoveMenu.Enabled);
    EXPECT_TRUE(list().ListSaved);
}

TEST_F(ListEditing, NewAsksNothingAndRefreshesNothing) {
    openWith({"/a.mp3", "/b.mp3"}).ListSaved = false;
    select({0});
    click(list().NewMenu.Click);
    expectNoBox();
    EXPECT_THAT(rows(), IsEmpty());
    EXPECT_TRUE(list().ListSaved);
    EXPECT_TRUE(list().playmenu.Enabled);
    EXPECT_TRUE(list().RemoveMenu.Enabled);
    EXPECT_TRUE(list().MoveUpMenu.Enabled);
}

TEST_F(ListEditing, NewDuringARunTakesTheRowsAndLeavesTheRun) {
    openWith({"/a.mp3", "/b.mp3"});
    play();
    click(list().NewPop.Click);
    finish();
    EXPECT_TRUE(isPlaying());
    EXPECT_EQ(now(), "Playing File: b.mp3 (2 of 2)");
}

TEST_F(ListEditing, TheRightButtonOpensTheListsOwnMenu) {
    open();
    std::vector<MenuEntry *> shown;
    const Connection popUps = list().popUpRequested.connect([&](MenuEntry &menu) { shown.push_back(&menu); });
    list().List1.MouseUp(kLeftButton, 0, 0);
    EXPECT_THAT(shown, IsEmpty());
    list().List1.MouseUp(kRightButton, 0, 0);
    EXPECT_THAT(shown, ElementsAre(&list().PopMenu));
}

Texts described(const MenuEntry &menu) {
    Texts result;
    for (const MenuEntry *entry : menu.children)
        result.push_back(entry->Caption.get() + (entry->Shortcut.empty() ? "" : " [" + entry->Shortcut + "]"));
    return result;
}

TEST_F(ListEditing, TheMenusAreComplete) {
    const ListMenus menus;
    Texts bar;
    for (const MenuEntry *menu : menus.menuBar()) bar.push_back(menu->Caption);
    EXPECT_THAT(bar, ElementsAre("&File", "&Edit", "&Options", "&Help"));
    EXPECT_THAT(described(menus.FileMenu),
                ElementsAre("&New PlayList [Ctrl+N]", "&Load PlayList [Ctrl+L]", "&Save PlayList [Ctrl+S]", "-",
                            "&Play [Ctrl+P]", "Pa&use", "-", "&Mute [Ctrl+M]", "-", "Seek Pre&vious", "S&eek Next", "-",
                            "E&xit"));
    EXPECT_THAT(described(menus.EditMenu), ElementsAre("&Add [Ctrl+A]", "&Remove [Del]", "-", "Move &Up [Ctrl+U]",
                                                       "Move &Down [Ctrl+D]", "-", "Deselec&t All [Ctrl+T]"));
    EXPECT_THAT(described(menus.OptionsMenu), ElementsAre("&Loop PlayList [F3]", "&Always Ontop [F2]"));
    EXPECT_THAT(described(menus.helpmenu), ElementsAre("&HotKey Information [F1]"));
    EXPECT_THAT(described(menus.PopMenu),
                ElementsAre("New PlayList", "Load PlayList", "Save PlayList", "-", "Play", "Pause", "-", "Mute", "-",
                            "Seek Previous", "Seek Next", "-", "Add", "Remove", "-", "Move Up", "Move Down", "-",
                            "Deselect All", "-", "Exit"));
    EXPECT_EQ(open().ExitMenu.Shortcut, "Ctrl+X");
}

TEST_F(ListEditing, TheToolbarIsComplete) {
    open();
    Texts texts;
    for (const ToolbarButton &button : list().Toolbar1.Buttons)
        texts.push_back(button.Key + "|" + button.Caption + "|" + button.ToolTipText + "|" + button.Image +
                        (button.kind == ToolbarButton::Kind::Separator ? "|gap" : ""));
    EXPECT_THAT(texts, ElementsAre("Add|Add Files|Add File(s) to PlayList|Add",
                                   "Remove|Remove|Remove File(s) from PlayList|Remove", "sep1||||gap",
                                   "Play|Play|Play Current List / Stop Play Toggle|Play",
                                   "Pause|Pause|Pause / Resume Toggle|Pause", "sep2||||gap",
                                   "Mute|Mute|Mute / Un-Mute Toggle|Mute", "sep3||||gap",
                                   "About|About|HotKey Information|About", "Exit|Exit|Exit|Exit"));
}

TEST_F(ListEditing, TheToolbarRunsTheCommands) {
    open();
    answerDialog("/a.mp3");
    pushToolbar("Add");
    EXPECT_THAT(rows(), ElementsAre("/a.mp3"));
    pushToolbar("Play");
    EXPECT_TRUE(isPlaying());
    pushToolbar("Pause");
    EXPECT_EQ(list().PauseMenu.Caption, "&Resume\tAlt + R");
    pushToolbar("Mute");
    EXPECT_EQ(list().MuteMenu.Caption, "&Un-Mute");
    pushToolbar("About");
    EXPECT_EQ(world.boxes.last().title, "Hot Key Information...");
    pushToolbar("sep1");
    list().ListSaved = true;
    world.boxes.answers = {BoxResult::Yes};
    pushToolbar("Exit");
    EXPECT_FALSE(isOpen());
}

} // namespace
} // namespace tonvale::test
