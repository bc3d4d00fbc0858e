// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/unit/fakes/ListTest.h"

namespace tonvale::test {
namespace {

using testing::ElementsAre;

class ListFile : public ListTest {
protected:
    void load(const std::string &path) {
        answerDialog(path);
        click(list().LoadMenu.Click);
    }
    void save(const std::string &path) {
        answerDialog(path);
        click(list().SaveMenu.Click);
    }
};

TEST_F(ListFile, SavesARowToALine) {
    openWith({"C:\\Music\\a.mp3", "D:\\Track01.cda"});
    save("/m/list.ply");
    EXPECT_EQ(world.files.text("/m/list.ply"), "C:\\Music\\a.mp3\r\nD:\\Track01.cda\r\n");
    EXPECT_EQ(world.files.fileLength("/m/list.ply"), 32);
}

TEST_F(ListFile, TheSaveDialogIsSetUp) {
    openWith({"/a.mp3"}).ListSaved = false;
    save("/m/list.ply");
    ASSERT_EQ(world.dialogs.saved.size(), 1U);
    const OpenFileName &dialog = world.dialogs.saved[0];
    EXPECT_EQ(dialog.title, "Save Current PlayList...");
    EXPECT_EQ(dialog.filter, std::string("Orvane Tonvale PlayList\0*.ply\0", 30));
    EXPECT_EQ(dialog.defaultExtension, ".ply");
    EXPECT_EQ(dialog.flags, 4);
    EXPECT_EQ(dialog.file, "");
    EXPECT_EQ(dialog.initialDirectory, "");
    EXPECT_TRUE(list().ListSaved);
}

TEST_F(ListFile, TheSaveDialogOpensWhereTheWindowsDialogWasLast) {
    openWith({"/a.mp3"});
    world.files.addText("/lists/b.ply", "");
    world.setSetting("Common Dialog Dir 2", "/lists");
    load("/lists/b.ply");
    save("/m/list.ply");
    EXPECT_EQ(world.dialogs.saved[0].initialDirectory, "/lists");
    EXPECT_EQ(world.setting("Common Dialog Dir 2"), "/lists") << "saving remembers no folder";
}

TEST_F(ListFile, ACancelledSaveLeavesTheMarkAsItWas) {
    openWith({"/a.mp3"}).ListSaved = false;
    click(list().SavePop.Click);
    EXPECT_FALSE(list().ListSaved);
    EXPECT_FALSE(world.log.has("files.replace "));
}

TEST_F(ListFile, AFailedSaveSaysNothingAndCountsAsSaved) {
    openWith({"/a.mp3"}).ListSaved = false;
    world.files.writeError = ErrorNumber::DiskFull;
    save("/m/list.ply");
    expectNoBox();
    EXPECT_TRUE(list().ListSaved);
    EXPECT_THAT(rows(), ElementsAre("/a.mp3"));
}

TEST_F(ListFile, AnEmptyListIsAnEmptyFileAndLoadingThatEnablesPlay) {
    open();
    save("/m/list.ply");
    EXPECT_EQ(world.files.text("/m/list.ply"), "");
    EXPECT_FALSE(list().playmenu.Enabled);
    load("/m/list.ply");
    EXPECT_TRUE(rows().empty());
    EXPECT_TRUE(list().playmenu.Enabled);
    EXPECT_TRUE(list().PlayPop.Enabled);
}

TEST_F(ListFile, TheLoadDialogIsSetUp) {
    open();
    world.files.directory = "/here";
    world.files.addText("/lists/a.ply", "/1.mp3\r\n");
    answerDialog("/lists/a.ply");
    click(list().LoadPop.Click);
    ASSERT_EQ(world.dialogs.opened.size(), 1U);
    const OpenFileName &dialog = world.dialogs.opened[0];
    EXPECT_EQ(dialog.title, "Load a PlayList File...");
    EXPECT_EQ(dialog.filter, std::string("Orvane Tonvale PlayList\0*.ply\0All Files\0*.*\0", 44));
    EXPECT_EQ(dialog.flags, 4);
    EXPECT_EQ(dialog.file, "");
    EXPECT_EQ(dialog.initialDirectory, "/here");
    EXPECT_EQ(world.setting("Common Dialog Dir 2"), "/lists");
    EXPECT_THAT(rows(), ElementsAre("/1.mp3"));
}

TEST_F(ListFile, LoadsWithoutGapsAndKeepsLinesOfBlanks) {
    open();
    world.files.addText("/a.ply", "/1.mp3\r\n\r\n\r/2.mp3\r   \r\n/3\n.mp3\r\n\xFF/4.mp3");
    load("/a.ply");
    EXPECT_THAT(rows(), ElementsAre("/1.mp3", "/2.mp3", "   ", "/3\n.mp3", "\xFF/4.mp3"));
    save("/b.ply");
    EXPECT_EQ(world.files.text("/b.ply"), "/1.mp3\r\n/2.mp3\r\n   \r\n/3\n.mp3\r\n\xFF/4.mp3\r\n");
}

TEST_F(ListFile, TwoLoadsDoubleTheList) {
    open();
    world.files.addText("/a.ply", "a\r\nb\r\nc\r\n");
    load("/a.ply");
    load("/a.ply");
    EXPECT_THAT(rows(), ElementsAre("a", "b", "c", "a", "b", "c"));
    expectNoBox();
    EXPECT_TRUE(list().ListSaved) << "a load is no change";
}

TEST_F(ListFile, ALoadLeavesTheOtherCommandsAsTheyWere) {
    open();
    world.files.addText("/a.ply", "a\r\nb\r\n");
    load("/a.ply");
    list().List1.userSelected(0, 1, true);
    EXPECT_FALSE(list().RemoveMenu.Enabled);
    list().List1.Click();
    EXPECT_TRUE(list().RemoveMenu.Enabled);
}

TEST_F(ListFile, LoadingOverUnsavedRowsAsks) {
    openWith({"/a.mp3"}).ListSaved = false;
    world.files.addText("/b.ply", "/b.mp3\r\n");
    world.boxes.answers = {BoxResult::No};
    load("/b.ply");
    expectBox(kContinueQuestion, BoxIcon::Question, BoxPlace::Foreground, BoxButtons::YesNo);
    EXPECT_TRUE(world.dialogs.saved.empty());
    EXPECT_THAT(rows(), ElementsAre("/a.mp3", "/b.mp3"));
    EXPECT_FALSE(list().ListSaved);
}

TEST_F(ListFile, YesSavesFirstAndACancelledSaveStillLeadsToTheLoad) {
    openWith({"/a.mp3"}).ListSaved = false;
    world.boxes.answers = {BoxResult::Yes};
    world.dialogs.answers = {{0, "", ""}, {1, "/b.ply", "b.ply"}};
    world.files.addText("/b.ply", "/b.mp3\r\n");
    click(list().LoadMenu.Click);
    EXPECT_EQ(world.dialogs.saved.size(), 1U);
    EXPECT_EQ(world.dialogs.opened.size(), 1U);
    EXPECT_THAT(rows(), ElementsAre("/a.mp3", "/b.mp3"));
    EXPECT_FALSE(list().ListSaved);
}

TEST_F(ListFile, CancellingTheLoadAfterASaveLeavesTheListSaved) {
    openWith({"/a.mp3"}).ListSaved = false;
    world.boxes.answers = {BoxResult::Yes};
    world.dialogs.answers = {{1, "/saved.ply", "x"}, {0, "", ""}};
    click(list().LoadMenu.Click);
    EXPECT_THAT(rows(), ElementsAre("/a.mp3"));
    EXPECT_TRUE(list().ListSaved);
    EXPECT_EQ(world.setting("Common Dialog Dir 2"), "(none)");
}

TEST_F(ListFile, AFileThatCannotBeReadAddsNothingAndSaysNothing) {
    open();
    load("/none.ply");
    expectNoBox();
    EXPECT_TRUE(rows().empty());
    EXPECT_TRUE(list().playmenu.Enabled);
}

TEST_F(ListFile, AReadErrorOnTheWayKeepsWhatWasRead) {
    open();
    world.files.addText("/a.ply", "/1.mp3\r\n/2.mp3\r\n");
    world.files.readError = ErrorNumber::DeviceIOError;
    load("/a.ply");
    expectNoBox();
    EXPECT_THAT(rows(), ElementsAre("/1.mp3", "/2.mp3"));
}

TEST_F(ListFile, LoadingDuringARunLeavesTheRunAlone) {
    openWith({"/a.mp3"});
    play();
    world.files.addText("/b.ply", "/b.mp3\r\n");
    load("/b.ply");
    EXPECT_THAT(rows(), ElementsAre("/a.mp3", "/b.mp3"));
    EXPECT_EQ(list().PlayQueue, Texts{"/a.mp3"});
    finish();
    EXPECT_TRUE(isIdle());
}

TEST_F(ListFile, OneDialogObjectServesTheWindowsWholeLife) {
    openWith({"/a.mp3"});
    answerDialog("/b.mp3");
    click(list().AddMenu.Click);
    load("/none.ply");
    EXPECT_EQ(world.dialogs.opened[1].filterIndex, 1) << "as the one before left it";
}

TEST_F(ListFile, RowsGiveTheirWidthToTheScrollRangeAfterAnAdd) {
    open().List1.textWidth = [](const std::string &text) { return static_cast<std::int32_t>(text.size()) * 100; };
    EXPECT_EQ(list().List1.HorizontalExtent, 0);
    answerDialog("/123456789"); // 10 letters, 1000 twips
    click(list().AddMenu.Click);
    EXPECT_EQ(list().MaxRowExtent, 1000 / 15 + 20);
    EXPECT_EQ(list().List1.HorizontalExtent, 86);
    answerDialog("/a");
    click(list().AddMenu.Click);
    EXPECT_EQ(list().List1.HorizontalExtent, 86) << "twips of the rows against the pixels kept";
    click(list().NewMenu.Click);
    EXPECT_EQ(list().MaxRowExtent, 86) << "never reset";
    list().List1.AddItem(std::string(100, 'x'));
    EXPECT_EQ(list().List1.HorizontalExtent, 86) << "only an Add recomputes it";
    list().List1.Clear();
    list().List1.textWidth = nullptr;
    answerDialog("/a");
    click(list().AddMenu.Click);
    EXPECT_EQ(list().List1.HorizontalExtent, 86 / 15 + 20);
}

TEST_F(ListFile, TheRowUnderThePointerIsTheToolTip) {
    openWith({"/first.mp3", "/second.mp3"});
    std::vector<std::pair<std::int32_t, std::int32_t>> asked;
    std::int32_t row = 1;
    list().List1.itemFromPoint = [&](std::int32_t x, std::int32_t y) {
        asked.emplace_back(x, y);
        return row;
    };
    list().List1.MouseMove(0, 151, 314);
    EXPECT_EQ(list().List1.ToolTipText, "/second.mp3");
    EXPECT_THAT(asked, ElementsAre(std::pair(10, 20)));
    list().List1.MouseMove(kLeftButton, 0, 0);
    EXPECT_EQ(asked.size(), 1U) << "not while a button is down";
    for (const std::int32_t outside : {-1, 2, 3}) {
        row = 0;
        list().List1.MouseMove(0, 0, 0);
        EXPECT_EQ(list().List1.ToolTipText, "/first.mp3");
        row = outside;
        list().List1.MouseMove(0, 0, 0);
        EXPECT_EQ(list().List1.ToolTipText, "");
    }
}

TEST_F(ListFile, AListThatIsOpenedFromOutsideFillsTheOpenWindow) {
    openWith({"/old.mp3"}).ListSaved = false;
    world.files.addText("/m/a.ply", "/m/1.mp3\r\n");
    world.boxes.answers = {BoxResult::Yes};
    std::string command = "/m/a.ply";
    std::int16_t cancel = 0;
    world.app().form1->Form_LinkExecute(command, cancel);
    EXPECT_THAT(rows(), ElementsAre("/old.mp3", "/m/1.mp3"));
    EXPECT_EQ(world.boxes.shown.size(), 1U) << "no save question";
    EXPECT_FALSE(list().ListSaved);
}

TEST_F(ListFile, AfterOpeningFromOutsidePlayIsGreyButTheToolbarPlays) {
    world.files.addText("/m/a.ply", "/m/1.mp3\r\n");
    world.boxes.answers = {BoxResult::Yes};
    registerPlaylistWindows(world.app());
    world.start("/m/a.ply");
    EXPECT_THAT(rows(), ElementsAre("/m/1.mp3"));
    EXPECT_FALSE(list().playmenu.Enabled);
    pushToolbar("Play");
    EXPECT_TRUE(isPlaying());
}

} // namespace
} // namespace tonvale::test
