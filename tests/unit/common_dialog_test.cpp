// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/BrowseForFolder.h"
#include "desktop/clsCommonDialog.h"
#include "tests/unit/expectations.h"
#include "tests/unit/fakes/FakeDesktop.h"

#include <gtest/gtest.h>

#include <string>

namespace tonvale::test {
namespace {

using namespace std::string_literals;

class CommonDialog : public testing::Test {
protected:
    CallLog log;
    FakeLoop loop;
    FakeDialogs dialogs{log, loop};
    clsCommonDialog dialog{dialogs};
};

TEST_F(CommonDialog, HandsItsPropertiesOver) {
    dialog.FileName = "proposed.mp3";
    dialog.DialogTitle = "Open Media File...";
    dialog.Filter = "MP3|*.mp3|WAV|*.wav;*.WAV";
    dialog.FilterIndex = 2;
    dialog.Flags = 4;
    dialog.InitDir = "/music";
    dialog.DefaultExt = "mp3";
    dialog.ShowOpen();
    ASSERT_EQ(dialogs.opened.size(), 1U);
    const OpenFileName &given = dialogs.opened.front();
    EXPECT_EQ(given.file, "proposed.mp3");
    EXPECT_EQ(given.title, "Open Media File...");
    EXPECT_EQ(given.filter, "MP3\0*.mp3\0WAV\0*.wav;*.WAV\0"s);
    EXPECT_EQ(given.filterIndex, 2);
    EXPECT_EQ(given.flags, 4);
    EXPECT_EQ(given.initialDirectory, "/music");
    EXPECT_EQ(given.defaultExtension, "mp3");
    EXPECT_TRUE(dialogs.saved.empty());
}

TEST_F(CommonDialog, TheRoomForTheAnswerIs256UnlessToldOtherwise) {
    for (const auto &[asked, given] : {std::pair{0, 256U}, {-5, 256U}, {1, 1U}, {32000, 32000U}}) {
        dialog.MaxFileSize = asked;
        dialog.ShowOpen();
        EXPECT_EQ(dialogs.opened.back().capacity, given);
    }
}

TEST_F(CommonDialog, GivesTheChosenName) {
    dialogs.answers.push_back({1, "/music/a.mp3", "a.mp3"});
    dialog.ShowOpen();
    EXPECT_EQ(dialog.FileName, "/music/a.mp3");
    EXPECT_EQ(dialog.FileTitle, "a.mp3");
    EXPECT_EQ(dialog.APIReturn(), 1);
    EXPECT_EQ(dialog.ExtendedError(), 0);
}

TEST_F(CommonDialog, CutsTheNameAtTheFirstZero) {
    dialogs.answers.push_back({1, "/music/a.mp3\0junk"s, "a.mp3\0\0"s});
    dialog.ShowOpen();
    EXPECT_EQ(dialog.FileName, "/music/a.mp3");
    EXPECT_EQ(dialog.FileTitle, "a.mp3");
}

TEST_F(CommonDialog, SeveralNamesComeWholeWithTheirZeros) {
    dialog.Flags = 0x200;
    dialogs.answers.push_back({1, "/music\0a.mp3\0b.mp3\0\0"s, ""});
    dialog.ShowOpen();
    EXPECT_EQ(dialog.FileName, "/music\0a.mp3\0b.mp3\0\0"s);
}

TEST_F(CommonDialog, OneNameOutOfAMultipleSelectionIsCut) {
    dialog.Flags = 0x200;
    dialogs.answers.push_back({1, "/music/a.mp3\0\0"s, "a.mp3"});
    dialog.ShowOpen();
    EXPECT_EQ(dialog.FileName, "/music/a.mp3");
}

TEST_F(CommonDialog, WithoutMultipleSelectionAnEmptyTitleChangesNothing) {
    dialogs.answers.push_back({1, "/music\0a.mp3\0"s, ""});
    dialog.ShowOpen();
    EXPECT_EQ(dialog.FileName, "/music");
}

TEST_F(CommonDialog, ACancelledOneLeavesTheNameAsItWas) {
    dialog.FileName = "before";
    dialog.ShowOpen();
    EXPECT_EQ(dialog.FileName, "before");
    EXPECT_EQ(dialog.APIReturn(), 0);
}

TEST_F(CommonDialog, ACancelledOneRaisesAnErrorOnDemand) {
    dialog.CancelError = true;
    try {
        dialog.ShowSave();
        FAIL() << "no error";
    } catch (const RuntimeError &error) {
        EXPECT_EQ(static_cast<std::uint32_t>(error.number()), 0x800407D1U);
        EXPECT_EQ(error.description(), "Cancel Pressed");
    }
}

TEST_F(CommonDialog, AFailedOneKeepsTheExtendedError) {
    dialog.FileName = "before";
    dialog.CancelError = true;
    dialogs.answers.push_back({-1, "x", "x"});
    dialogs.error = 12291;
    dialog.ShowOpen();
    EXPECT_EQ(dialog.APIReturn(), -1);
    EXPECT_EQ(dialog.ExtendedError(), 12291);
    EXPECT_EQ(dialog.FileName, "before");
}

TEST_F(CommonDialog, EachCallForgetsTheResultsOfTheLast) {
    dialogs.answers.push_back({-1, "x", "x"});
    dialogs.error = 12291;
    dialog.ShowOpen();
    dialog.ShowOpen();
    EXPECT_EQ(dialog.APIReturn(), 0);
    EXPECT_EQ(dialog.ExtendedError(), 0);
}

TEST_F(CommonDialog, SavingUsesTheSaveDialog) {
    dialogs.answers.push_back({1, "/music/list.ply", "list.ply"});
    dialog.ShowSave();
    EXPECT_EQ(dialogs.saved.size(), 1U);
    EXPECT_TRUE(dialogs.opened.empty());
    EXPECT_EQ(dialog.FileName, "/music/list.ply");
}

TEST_F(CommonDialog, TheFolderPickerGivesTheFolder) {
    dialogs.folder = "/home/me/space";
    EXPECT_EQ(BrowseForFolder(dialogs, "Select..."), "/home/me/space");
    EXPECT_EQ(dialogs.browsed, std::vector<std::string>{"Select..."});
}

TEST_F(CommonDialog, TheCancelledFolderPickerGivesTheEmptyText) {
    EXPECT_EQ(BrowseForFolder(dialogs, "Select..."), "");
}

} // namespace
} // namespace tonvale::test
