// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/unit/fakes/PlayerTest.h"

namespace tonvale::test {
namespace {

constexpr const char *kHelp = "/opt/tonvale/Help/index.html";

class Delete : public PlayerTest {
protected:
    void confirm(bool on) { world.app().settings->Check4.Value = on ? 1 : 0; }
    void startWith(const std::string &path) {
        file(path);
        start();
        executeFromDesktop(path);
        world.log.clear();
    }
};

TEST_F(Delete, WithoutAFileThereIsNothingToDelete) {
    start();
    for (const Event<> *way :
         {&form().DeleteMenu.Click, &form().DeleteMenu2.Click, &form().VidDeletePop.Click, &form().btnDelete.Click}) {
        world.boxes.shown.clear();
        (*way)();
        expectBox("No file is currently loaded to delete.", BoxIcon::Information);
        EXPECT_EQ(world.boxes.shown.size(), 1U);
    }
}

TEST_F(Delete, AsksAndDeletes) {
    startWith("/m/a.mp3");
    world.boxes.answers = {BoxResult::Yes};
    click(form().DeleteMenu.Click);
    expectBox("Are you sure you want to delete:  /m/a.mp3?", BoxIcon::Question, BoxPlace::Foreground,
              BoxButtons::YesNo);
    EXPECT_FALSE(world.files.fileExists("/m/a.mp3"));
    EXPECT_EQ(world.log.of({"engine.stop", "box", "engine.close", "files"}),
              (Texts{"engine.stop", "box Are you sure you want to", "engine.stop", "engine.close",
                     "files.clearAttributes /m/a.mp3", "files.delete /m/a.mp3"}));
    EXPECT_EQ(form().playmenu.Caption, "&Load and Play File");
    EXPECT_EQ(form().Label3.Caption, "");
    EXPECT_EQ(form().Text1.Text, "");
    EXPECT_FALSE(form().DeleteDeclined);
    EXPECT_TRUE(isIdle());
}

TEST_F(Delete, ADamagedSettingDoesNotSwitchTheQuestionOff) {
    world.setSetting("Position", "99999");
    startWith("/m/a.mp3");
    click(form().DeleteMenu.Click);
    EXPECT_EQ(world.boxes.shown.size(), 1U);
    EXPECT_TRUE(world.files.fileExists("/m/a.mp3"));
}

TEST_F(Delete, AsksWhereTheSettingsCannotBeReadAnyMore) {
    startWith("/m/a.mp3");
    world.app().settings.Unload();
    world.registry.readError = ErrorNumber::PathFileAccessError;
    click(form().DeleteMenu.Click);
    EXPECT_EQ(world.boxes.shown.size(), 1U);
    EXPECT_TRUE(world.files.fileExists("/m/a.mp3"));
}

TEST_F(Delete, NoLeavesTheFileStoppedAndRemembersIt) {
    startWith("/m/a.mp3");
    world.boxes.answers = {BoxResult::No};
    click(form().DeleteMenu2.Click);
    EXPECT_TRUE(form().DeleteDeclined);
    EXPECT_TRUE(world.files.fileExists("/m/a.mp3"));
    EXPECT_EQ(form().Text1.Text, "/m/a.mp3");
    EXPECT_FALSE(world.media.playing);
    EXPECT_TRUE(isIdle());
}

TEST_F(Delete, WithoutTheConfirmationDoesNotAsk) {
    startWith("/m/a.mp3");
    confirm(false);
    click(form().VidDeletePop.Click);
    EXPECT_TRUE(world.boxes.shown.empty());
    EXPECT_FALSE(world.files.fileExists("/m/a.mp3"));
}

TEST_F(Delete, ACdTrackIsReadOnlyInAnyCase) {
    for (const char *path : {"/cd/track01.cda", "/cd/track01.CDA"}) {
        start();
        form().Text1.Text = path;
        click(form().DeleteMenu.Click);
        expectBox("CD-ROM media is read-only, and cannot be deleted from.", BoxIcon::None, BoxPlace::Normal);
        EXPECT_EQ(form().Text1.Text, path);
    }
}

TEST_F(Delete, TheButtonHasATextOfItsOwnForACdTrack) {
    start();
    for (const auto &[path, number] : std::vector<std::pair<std::string, std::string>>{
             {"/cd/track07.cda", "0"}, {"12tracks.cda", "12"}, {"1.5.cda", "1.5"}, {"-3 x.cda", "-3"}}) {
        form().Text1.Text = path;
        click(form().btnDelete.Click);
        expectBox("CD Audio is read-only media which cannot be deleted.", BoxIcon::Information, BoxPlace::Foreground,
                  BoxButtons::Ok, "Attempt to Delete:  Audio Track " + number);
    }
}

TEST_F(Delete, TheButtonTakesACdTrackInCapitalsForAFile) {
    start();
    form().Text1.Text = "/cd/track07.CDA";
    click(form().btnDelete.Click);
    expectBox("CD-ROM media is read-only, and cannot be deleted from.", BoxIcon::None, BoxPlace::Normal);
}

TEST_F(Delete, TheButtonDeletesAFile) {
    startWith("/m/a.mp3");
    world.boxes.answers = {BoxResult::Yes};
    click(form().btnDelete.Click);
    EXPECT_FALSE(world.files.fileExists("/m/a.mp3"));
}

TEST_F(Delete, AFailingDeletionIsSilentAndTheWindowForgetsTheFile) {
    for (const ErrorNumber error :
         {ErrorNumber::PermissionDenied, ErrorNumber::PathFileAccessError, ErrorNumber::FileNotFound}) {
        startWith("/m/a.mp3");
        confirm(false);
        world.files.deleteError = error;
        click(form().DeleteMenu.Click);
        EXPECT_TRUE(world.boxes.shown.empty());
        EXPECT_EQ(form().Text1.Text, "");
        EXPECT_EQ(form().Label3.Caption, "");
        EXPECT_TRUE(isIdle());
    }
}

TEST_F(Delete, AFileThatHasJustGoneIsForgotten) {
    startWith("/m/a.mp3");
    confirm(false);
    world.files.deleteFile("/m/a.mp3");
    click(form().DeleteMenu.Click);
    EXPECT_TRUE(world.boxes.shown.empty());
    EXPECT_EQ(form().Text1.Text, "");
}

TEST_F(Delete, AReadOnlyFileGoesToo) {
    startWith("/m/a.mp3");
    confirm(false);
    click(form().DeleteMenu.Click);
    const Texts steps = world.log.of({"files."});
    ASSERT_EQ(steps.size(), 2U);
    EXPECT_EQ(steps[0], "files.clearAttributes /m/a.mp3") << "before it is deleted";
}

TEST_F(Delete, AVivoFileIsHeldByItsWindowAndForgottenAllTheSame) {
    startWith("/v/a.viv");
    confirm(false);
    world.files.deleteError = ErrorNumber::PermissionDenied; // in use
    click(form().DeleteMenu.Click);
    EXPECT_TRUE(world.log.of({"vivo"}).empty());
    EXPECT_TRUE(world.app().VivoPlayer.isLoaded());
    EXPECT_EQ(form().Text1.Text, "");
    EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(Delete, WhilePausedThePauseEntryStaysAsItIs) {
    startWith("/m/a.mp3");
    confirm(false);
    click(form().PauseMenu.Click);
    click(form().DeleteMenu.Click);
    EXPECT_EQ(form().PauseMenu.Caption, "&Resume");
}

TEST_F(Delete, WithTheLoopOnNothingStartsAgain) {
    startWith("/m/a.mp3");
    world.app().settings->Check6.Value = 1;
    world.boxes.answers = {BoxResult::Yes};
    click(form().DeleteMenu.Click);
    world.advance(2000);
    EXPECT_FALSE(world.media.playing);
    EXPECT_EQ(world.media.file, "");
    EXPECT_TRUE(isIdle());
}

TEST_F(Delete, DeletesWhatWasAskedForEvenIfAnotherFileComesMeanwhile) {
    startWith("/m/a.mp3");
    file("/m/b.mp3");
    world.boxes.answers = {BoxResult::Yes};
    world.boxes.whileUp = [&](const MessageBox &) { executeFromDesktop("/m/b.mp3"); };
    click(form().DeleteMenu.Click);
    EXPECT_FALSE(world.files.fileExists("/m/a.mp3"));
    EXPECT_TRUE(world.files.fileExists("/m/b.mp3"));
}

// ---- help ---------------------------------------------------------------------------------------

class Help : public PlayerTest {};

TEST_F(Help, OpensThePagesInTheBrowser) {
    file(kHelp);
    start();
    for (const Event<> *way : {&form().infomenu.Click, &form().InfoPopMenu.Click, &form().btnHelp.Click}) {
        world.shell.calls.clear();
        (*way)();
        EXPECT_EQ(world.shell.calls, (std::vector<FakeShell::Call>{{"", kHelp, "", "", 10}}));
    }
    EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(Help, MissingPagesAreTold) {
    start();
    click(form().infomenu.Click);
    expectBox("The Tonvale Help compoents seems to have been deleted, moved, or renamed; please reinstall Tonvale or "
              "replace the help components otherwise in order to use the help system.",
              BoxIcon::Information);
    EXPECT_TRUE(world.shell.calls.empty());
}

TEST_F(Help, ACodeOf32OrLessIsTold) {
    file(kHelp);
    start();
    for (const std::int32_t code : {0, 2, 5, 31, 32}) {
        world.boxes.shown.clear();
        world.shell.next = {code, 0};
        click(form().infomenu.Click);
        EXPECT_EQ(world.boxes.shown.size(), 1U);
        expectBox("An error occurred attempting to open the '" + std::string(kHelp) + "' file (ShellExecute API code " +
                      std::to_string(code) + ").",
                  BoxIcon::Exclamation, BoxPlace::SystemModal);
    }
    world.boxes.shown.clear();
    world.shell.next = {33, 0};
    click(form().infomenu.Click);
    EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(Help, AnErrorIsToldBesides) {
    file(kHelp);
    start();
    world.shell.failure = ErrorNumber::InternalError;
    click(form().infomenu.Click);
    EXPECT_EQ(world.boxes.shown.size(), 2U);
    expectBox("An error has occured while attempting to access the Tonvale help system.  It is recommdended that you "
              "reinstall Orvane Tonvale in order to correct this condition.",
              BoxIcon::None, BoxPlace::Normal);
}

// ---- mail ---------------------------------------------------------------------------------------

class Mail : public PlayerTest {
protected:
    void mailWith(std::int32_t code) {
        start();
        world.boxes.shown.clear();
        world.shell.next = {code, 0};
        click(form().mailmemenu.Click);
    }
    static constexpr const char *kAddress = "mailto:tonvale@orvane.example?subject=Mail from Tonvale";
};

TEST_F(Mail, BeginsAMailToTheVendor) {
    start();
    for (const Event<> *way : {&form().mailmemenu.Click, &form().MailOrvanePop.Click}) {
        world.shell.calls.clear();
        (*way)();
        EXPECT_EQ(world.shell.calls, (std::vector<FakeShell::Call>{{"", kAddress, "", "", 5}}));
    }
    EXPECT_TRUE(world.boxes.shown.empty());
    EXPECT_TRUE(form().Visible);
}

TEST_F(Mail, Code31IsAMissingMailProgram) {
    mailWith(31);
    expectBox("You do not seem to have an email client setup on your system. An email client should be installed in "
              "order to use this feature.  You may send email manually through whatever means available to "
              "\"tonvale@orvane.example\" also.",
              BoxIcon::Exclamation, BoxPlace::Normal);
}

TEST_F(Mail, Codes2And3AreABadAddress) {
    for (const std::int32_t code : {2, 3}) {
        mailWith(code);
        expectBox("The '" + std::string(kAddress) +
                      "' address does not seem to be valid!  Report this error to "
                      "\"tonvale@orvane.example\" please.",
                  BoxIcon::Exclamation, BoxPlace::Normal);
    }
}

TEST_F(Mail, OtherCodesAreComparedAsText) {
    for (const std::int32_t code : {0, 1, 10, 27, 30, 32, 100, 200, 299, -1}) {
        mailWith(code);
        expectBox("An error occurred attempting to open '" + std::string(kAddress) + "' (ShellExecute code " +
                      std::to_string(code) + ").",
                  BoxIcon::Critical, BoxPlace::Normal);
    }
    for (const std::int32_t code : {4, 5, 8, 9, 33, 42, 320, 99}) {
        mailWith(code);
        EXPECT_TRUE(world.boxes.shown.empty()) << code;
    }
}

TEST_F(Mail, AnErrorCountsAsCodeZero) {
    world.shell.failure = ErrorNumber::InternalError;
    mailWith(42);
    EXPECT_EQ(world.boxes.last().icon, BoxIcon::Critical);
    EXPECT_TRUE(world.boxes.last().text.ends_with("(ShellExecute code 0)."));
}

// ---- web ----------------------------------------------------------------------------------------

class Visit : public PlayerTest {
protected:
    static constexpr const char *kNotice =
        "Orvane Tonvale has been minimized to the system tray for web viewing.  To restore Tonvale when complete, "
        "right-click on the system tray icon and select \"Restore Window.\"";
    static constexpr const char *kAddress = "http://www.orvane.example/";
};

TEST_F(Visit, TellsOnceThatTheWindowGoesToTheTray) {
    start();
    bool shownWhileTold = false;
    world.boxes.whileUp = [&](const MessageBox &) { shownWhileTold = form().Visible && !form().TrayX1.Visible; };
    click(form().visitmemenu.Click);
    expectBox(kNotice, BoxIcon::Information, BoxPlace::Foreground, BoxButtons::Ok, "Important Note:");
    EXPECT_TRUE(shownWhileTold);
    EXPECT_FALSE(form().Visible);
    EXPECT_TRUE(form().TrayX1.Visible);
    EXPECT_EQ(world.shell.calls, (std::vector<FakeShell::Call>{{"", kAddress, "", "", 5}}));
    EXPECT_EQ(world.setting("ShowMsg3"), "False");
    click(form().showpop.Click);
    click(form().visitmepop.Click);
    EXPECT_EQ(world.boxes.shown.size(), 1U);
    EXPECT_FALSE(form().Visible);
    EXPECT_EQ(world.shell.calls.size(), 2U);
}

TEST_F(Visit, FromTheTrayThereIsNothingToTell) {
    start();
    click(form().traymenu.Click);
    click(form().visitmepop.Click);
    EXPECT_TRUE(world.boxes.shown.empty());
    EXPECT_EQ(world.setting("ShowMsg3"), "(none)");
    EXPECT_EQ(world.shell.calls.size(), 1U);
}

TEST_F(Visit, TellsTheCodesAsMailDoes) {
    world.setSetting("ShowMsg3", "False");
    start();
    const auto visitWith = [&](std::int32_t code) {
        world.boxes.shown.clear();
        world.shell.next = {code, 0};
        click(form().visitmemenu.Click);
    };
    visitWith(31);
    expectBox("No Association Found for HTTP Addresses. A Web Browser Should be Installed or Reinstalled.",
              BoxIcon::Exclamation, BoxPlace::Normal);
    for (const std::int32_t code : {2, 3}) {
        visitWith(code);
        expectBox("The '" + std::string(kAddress) + "' File or Path was Not Found.", BoxIcon::Exclamation,
                  BoxPlace::Normal);
    }
    for (const std::int32_t code : {0, 32, 100}) {
        visitWith(code);
        expectBox("An error occurred attempting to open '" + std::string(kAddress) + "' (ShellExecute code " +
                      std::to_string(code) + ").",
                  BoxIcon::Critical, BoxPlace::Normal);
    }
    visitWith(5);
    EXPECT_TRUE(world.boxes.shown.empty());
}

// ---- lists ----------------------------------------------------------------------------------------

class ClearLists : public PlayerTest {};

TEST_F(ClearLists, TheDesktopsDocumentsGoWithoutAWord) {
    start();
    click(form().ClearDocMenu.Click);
    EXPECT_EQ(world.documents.cleared, 1);
    EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(ClearLists, TheRecentFilesGoAndTheMenuHidesThem) {
    file("/m/a.mp3");
    start("/m/a.mp3");
    EXPECT_TRUE(form().mnuFileMRU[0].Visible);
    click(form().ClearMRUMenu.Click);
    expectBox("Tonvale's Most Recently Used (MRU) files list has been successfully cleared.", BoxIcon::Information);
    for (const MenuEntry &entry : form().mnuFileMRU) EXPECT_FALSE(entry.Visible);
    EXPECT_TRUE(recentFiles().empty());
    EXPECT_EQ(world.log.count("registry.set SOFTWARE\\Orvane Tonvale\\MRU\\MRU Entries MRU1="), 4);
}

TEST_F(ClearLists, AnEarlierErrorIsNotTakenForOne) {
    start();
    world.app().Err.Number = 70;
    click(form().ClearMRUMenu.Click);
    EXPECT_EQ(world.boxes.last().icon, BoxIcon::Information);
}

TEST_F(ClearLists, AFailureIsTold) {
    start();
    world.registry.writeError = ErrorNumber::PermissionDenied;
    click(form().ClearMRUMenu.Click);
    expectBox("An error occurred while attempting to clear the application's Most Recently Used (MRU) files list.  "
              "\n\nPlease restart Tonvale and try again.  If problems persist, contact technical support at "
              "\"support@orvane.example\" for assistance.\n",
              BoxIcon::Exclamation);
}

// ---- the batch converter ----------------------------------------------------------------------------

class BatchConverter : public PlayerTest {};

TEST_F(BatchConverter, IsStartedFromTheProgramsDirectory) {
    start();
    for (const Event<> *way : {&form().WAVConvertMenu.Click, &form().BatchConvPop.Click}) {
        world.shell.calls.clear();
        (*way)();
        ASSERT_EQ(world.shell.calls.size(), 1U);
        EXPECT_EQ(world.shell.calls[0], (FakeShell::Call{"Open", "/opt/tonvale/kzr", "", "", 1}));
    }
}

TEST_F(BatchConverter, AProgramThatIsNotThereIsPassedOver) {
    start();
    world.shell.next = {2, 0};
    click(form().WAVConvertMenu.Click);
    EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(BatchConverter, AnUnexpectedErrorIsTold) {
    start();
    world.shell.failure = ErrorNumber::OutOfMemory;
    click(form().WAVConvertMenu.Click);
    expectBox("Error: 7. Out of memory", BoxIcon::None, BoxPlace::Normal, BoxButtons::Ok, "LaunchProgram");
}

} // namespace
} // namespace tonvale::test
