// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "player/Form1.h"

#include "controls/Numbers.h"
#include "controls/Text.h"
#include "core/batch_converter.h"
#include "core/setting_keys.h"
#include "core/vendor.h"
#include "desktop/CShellExecute.h"
#include "desktop/Settings.h"
#include "player/captions.h"
#include "player/media_kinds.h"

namespace tonvale {

namespace {

constexpr std::int32_t kShowNormal = 1, kShow = 5, kShowDefault = 10;
constexpr std::int32_t kLastFailure = 32;

constexpr const char *kNothingToDelete = "No file is currently loaded to delete.";
constexpr const char *kHelpMissing =
    "The Tonvale Help compoents seems to have been deleted, moved, or renamed; please reinstall Tonvale or replace the "
    "help components otherwise in order to use the help system.";
constexpr const char *kHelpFailed =
    "An error has occured while attempting to access the Tonvale help system.  It is recommdended that you reinstall "
    "Orvane Tonvale in order to correct this condition.";
constexpr const char *kWebNotice =
    "Orvane Tonvale has been minimized to the system tray for web viewing.  To restore Tonvale when complete, "
    "right-click on the system tray icon and select \"Restore Window.\"";
constexpr const char *kListCleared = "Tonvale's Most Recently Used (MRU) files list has been successfully cleared.";

std::string quoted(const std::string &text) { return "\"" + text + "\""; }

std::string numberText(double value) {
    constexpr int kDoubleDigits = 15;
    return formatGeneral(value, kDoubleDigits);
}

} // namespace

// ---- delete -----------------------------------------------------------------------------------

void Form1::DeleteMenu_Click() {
    const std::string path = Text1.Text;
    const std::string extension = lowerCase(app_.paths.ParsePath(path, "e"));
    if (path.empty()) {
        app_.box(kNothingToDelete, BoxIcon::Information, BoxPlace::Foreground);
        return;
    }
    if (extension == media::kCdTrack) {
        app_.box("CD-ROM media is read-only, and cannot be deleted from.", BoxIcon::None, BoxPlace::Normal);
        return;
    }
    attempt([&] { ActiveMovie1.Stop(); });
    if (settingIsOn(&Settings::Check4) && app_.box("Are you sure you want to delete:  " + path + "?", BoxIcon::Question,
                                                   BoxPlace::Foreground, BoxButtons::YesNo) != BoxResult::Yes) {
        DeleteDeclined = true;
        return;
    }
    deleteFile(path);
}

// The file that was asked for, even if another one was opened while the question stood.
void Form1::deleteFile(const std::string &path) {
    attempt([&] { ActiveMovie1.Stop(); });
    attempt([&] { ActiveMovie1.FileName(""); });
    attempt([&] { app_.services.files.clearAttributes(path); });
    attempt([&] { app_.services.files.deleteFile(path); });
    playmenu.Caption = caption::kLoadAndPlay;
    Label3.Caption = "";
    Text1.Text = "";
}

void Form1::btnDelete_Click() {
    const std::string path = Text1.Text;
    const std::string extension = app_.paths.ParsePath(path, "e"); // as it stands: ".CDA" is none
    if (path.empty())
        app_.box(kNothingToDelete, BoxIcon::Information, BoxPlace::Foreground);
    else if (extension == media::kCdTrack)
        app_.box("CD Audio is read-only media which cannot be deleted.", BoxIcon::Information, BoxPlace::Foreground,
                 BoxButtons::Ok, "Attempt to Delete:  Audio Track " + numberText(numericPrefix(path)));
    else
        DeleteMenu_Click();
}

// ---- help, mail, web --------------------------------------------------------------------------

void Form1::infomenu_Click() {
    const std::string path = joinPath(joinPath(app_.services.program.directory, "Help"), "index.html");
    bool exists = false;
    bool good = attempt([&] { exists = app_.services.files.fileExists(path); });
    if (!exists) {
        app_.box(kHelpMissing, BoxIcon::Information, BoxPlace::Foreground);
        return;
    }
    std::int32_t result = 0;
    good &= attempt([&] { result = app_.services.shell.execute("", path, "", "", kShowDefault).code; });
    if (result <= kLastFailure)
        app_.box("An error occurred attempting to open the '" + path + "' file (ShellExecute API code " +
                     std::to_string(result) + ").",
                 BoxIcon::Exclamation, BoxPlace::SystemModal);
    if (!good) app_.box(kHelpFailed, BoxIcon::None, BoxPlace::Normal);
}

void Form1::mailmemenu_Click() {
    const std::string mail = vendor::kMailAddress;
    const std::string address = "mailto:" + mail + "?subject=Mail from Tonvale";
    openAddress({address,
                 "You do not seem to have an email client setup on your system. An email client should be installed in "
                 "order to use this feature.  You may send email manually through whatever means available to " +
                     quoted(mail) + " also.",
                 "The '" + address + "' address does not seem to be valid!  Report this error to " + quoted(mail) +
                     " please."});
}

void Form1::visitmemenu_Click() {
    if (Visible) {
        bool due = true;
        attempt([&] { due = textToBoolean(app_.setting(setting::kWebNoticeDue, booleanToText(true))); });
        if (due) {
            app_.box(kWebNotice, BoxIcon::Information, BoxPlace::Foreground, BoxButtons::Ok, "Important Note:");
            attempt([&] { app_.saveSetting(setting::kWebNoticeDue, booleanToText(false)); });
        }
        if (isUnloading()) return; // closed while the box was up
        traymenu_Click();
    }
    const std::string address = vendor::kHomePage;
    openAddress({address, "No Association Found for HTTP Addresses. A Web Browser Should be Installed or Reinstalled.",
                 "The '" + address + "' File or Path was Not Found."});
}

// The result is compared as text: 5 comes after "32" and passes, 100 comes before it and does not.
void Form1::openAddress(const VendorAddress &target) {
    std::int32_t code = 0;
    attempt([&] { code = app_.services.shell.execute("", target.address, "", "", kShow).code; });
    const std::string result = std::to_string(code);
    if (result == "31")
        app_.box(target.withoutProgram, BoxIcon::Exclamation, BoxPlace::Normal);
    else if (result == "2" || result == "3")
        app_.box(target.notFound, BoxIcon::Exclamation, BoxPlace::Normal);
    else if (result <= "32")
        app_.box("An error occurred attempting to open '" + target.address + "' (ShellExecute code " + result + ").",
                 BoxIcon::Critical, BoxPlace::Normal);
}

// ---- lists of recent files ---------------------------------------------------------------------

void Form1::ClearDocMenu_Click() {
    attempt([&] { app_.services.recentDocuments.clear(); });
}

void Form1::ClearMRUMenu_Click() {
    app_.Err.Clear();
    // Each of the four entries; the empty name has cleared all of them the first time.
    for (std::size_t i = 1; i < mnuFileMRU.size(); ++i) attempt([&] { RecentFiles.SetMRUList("", ""); });
    if (app_.Err.Number != 0)
        app_.box("An error occurred while attempting to clear the application's Most Recently Used (MRU) files list.  "
                 "\r\n\r\nPlease restart Tonvale and try again.  If problems persist, contact technical support at " +
                     quoted(vendor::kSupportAddress) + " for assistance.\r\n",
                 BoxIcon::Exclamation, BoxPlace::Foreground);
    else
        app_.box(kListCleared, BoxIcon::Information, BoxPlace::Foreground);
}

// ---- the batch converter ------------------------------------------------------------------------

void Form1::WAVConvertMenu_Click() {
    CShellExecute(app_).LaunchProgram(joinPath(app_.services.program.directory, batch_converter::kProgram), "", "",
                                      kShowNormal);
}

} // namespace tonvale
