// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "player/Form1.h"

#include "controls/Numbers.h"
#include "controls/Text.h"
#include "core/setting_keys.h"
#include "core/shared_windows.h"
#include "desktop/Settings.h"
#include "desktop/list_editing.h"
#include "player/captions.h"
#include "player/media_kinds.h"

// The five roads on which a file reaches this window. They differ in small things, each on
// purpose: which extensions are special, what is announced and when, what is stopped first.

namespace tonvale {

namespace {

constexpr double kHeightAfterExecute = 4665; // twips
constexpr std::size_t kEntryPrefix = 4;      // "&1. "

constexpr const char *kRenameToAddQuestion =
    "RealAudio/Video files named with the .ram extension are currently not supported directly.  Would you like to "
    "rename the file with .ra and add it to the list?  (Selecting No will skip this file.)";
constexpr const char *kRenameToPlayQuestion =
    "RealAudio/Video files named with the .ram extension are currently not supported directly.  Would you like to "
    "rename the file with .ra and continue with play?  (Selecting No will result in the file not being played.)";
constexpr const char *kNothingToReplay = "No file is currently loaded to play.\r\n"
                                         "Select \"\"Play New File\"\" to open\r\n"
                                         "the desired media.";

constexpr const char *kMediaFilter =
    "All Media Formats|*.viv;*.vivo;*.rm;*.rmm;*.cda;*.ra;*.rpm;*.ram;*.avi;*.mp3;*.mpg;*.mpa;*.mpv;*.mov;*.qt;*.mpeg;"
    "*.enc;*.m1v;*.mp2;*.asf;*.wav;*.mid;*.midi;*.aif;*.aiff;*.aifc;*.au;*.snd;*.rmi;*.dat|MPEG Layer-3 Audio "
    "(MP3)|*.mp3|CD Audio|*.cda|Video CD|*.dat|Vivo (Digital Video)|*.viv;*.vivo|DirectShow "
    "Formats|*.mpg;*.mpa;*.mpv;*.mov;*.qt;*.mpeg;*.enc;*.m1v;*.mp2|Active Streaming Format|*.asf|Standard Audio "
    "Formats|*.wav;*.mid;*.midi;*.rmi;*.aif;*.aiff;*.aifc;*.au;*.snd|Video for Windows|*.avi|Real "
    "Media|*.ra;*.rpm;*.rm;*.ram;*.rmm";

} // namespace

// ---- shared steps ---------------------------------------------------------------------------

void Form1::Announce(std::string path) {
    const std::string folded = lowerCase(path);
    attempt([&] {
        RecentFiles.SetMRUList(folded, "File length: " + std::to_string(app_.services.files.fileLength(path)));
    });
    attempt([&] { app_.services.recentDocuments.add(folded); });
}

void Form1::StopEngines() {
    attempt([&] { ActiveMovie1.Stop(); });
    attempt([&] { CDReader->StopPlay(); });
    // The stop is this road's, not of what it starts next.
    ActiveMovie1.settle();
}

void Form1::StartVivo(std::string path) {
    attempt([&] { app_.VivoPlayer->VvWeb1().LoadFile(path); });
    attempt([&] { app_.VivoPlayer->VvWeb1().Start(); });
    attempt([&] { app_.VivoPlayer->Show(); });
}

void Form1::StartMedia(std::string path) {
    ActiveMovie1.AutoStart = true;
    openInEngine(std::move(path));
}

void Form1::openInEngine(std::string path) {
    attempt([&] { ActiveMovie1.FileName(std::move(path)); });
    attempt([&] { ActiveMovie1.Play(); });
    ZOrder();
}

void Form1::OpenPlaylist(const std::string &path) {
    const BoxResult answer = app_.box("Is the selected playlist file audio of vivo?\r\n\r\nIf audio, click Yes\r\n"
                                      "If vivo, click No.",
                                      BoxIcon::Information, BoxPlace::Foreground, BoxButtons::YesNo);
    if (isUnloading()) return; // closed while the box was up
    FormHolder<ListWindow> &list = answer == BoxResult::Yes ? app_.frmPlayList : app_.frmVivoPlayList;
    attempt([&] { list->Show(); });
    attempt([&] { appendRows(app_, list->List1, path); });
}

bool Form1::RenameRam(const std::string &path) {
    RaPath = path.substr(0, path.size() - 3) + "ra";
    app_.Err.Clear();
    attempt([&] { app_.services.files.rename(path, RaPath); });
    if (app_.Err.Number == 0) return true;
    app_.box("Unable to rename file:  " + app_.Err.Description, BoxIcon::Exclamation, BoxPlace::Foreground);
    return false;
}

bool Form1::askToRename(const char *question) {
    return app_.box(question, BoxIcon::Question, BoxPlace::Foreground, BoxButtons::YesNo) == BoxResult::Yes;
}

void Form1::setCurrent(const std::string &path) {
    Text1.Text = "";
    Text1.Text = path;
}

// ---- command line ---------------------------------------------------------------------------

// Returns whether the rest of the load is to run.
bool Form1::openFromCommandLine(const std::string &path) {
    const std::string extension = lowerCase((app_.paths.ParsePath(path, ""), app_.paths.ParsedExtension));
    Text1.Text = path;
    MMLEDX1.LEDColor = lamp::kRunning;
    if (media::isIn(media::kVivo, extension)) {
        StopEngines();
        Announce(path);
        StartVivo(path);
    } else if (extension == media::kPlaylist) {
        OpenPlaylist(path);
    } else if (extension == media::kCdTrack) {
        Announce(path);
        return StartCDTrack(path, ZoomEntry::Disable);
    } else if (extension == media::kRealMetafile) {
        openRamFromCommandLine(path);
    } else {
        Announce(path);
        openInEngine(path);
    }
    return true;
}

void Form1::openRamFromCommandLine(const std::string &path) {
    if (!askToRename(kRenameToAddQuestion)) return;
    const bool renamed = RenameRam(path);
    Text1.Text = RaPath; // whether or not the rename worked
    if (!renamed) return;
    Announce(RaPath);
    openInEngine(Text1.Text);
}

// ---- a path from the desktop ------------------------------------------------------------------

void Form1::Form_LinkExecute(std::string &commandString, std::int16_t &cancel) {
    cancel = 0;
    const Forms::HandlerScope scope(forms());
    attempt([&] { execute(commandString); });
}

void Form1::execute(std::string &commandString) {
    Height = kHeightAfterExecute;
    readBaseSize();
    if (State == WindowState::Minimized) State = WindowState::Normal;
    ZOrder();
    if (commandString.empty()) return;
    commandString = withoutOuterQuotes(commandString);
    const std::string path = commandString;
    bool exists = false;
    attempt([&] { exists = app_.services.files.fileExists(path); });
    if (exists) {
        app_.paths.ParsePath(path, "");
        Announce(path);
        Label3.Caption = app_.paths.ParsedFileName;
        setCurrent(path);
        StopEngines();
    }
    openFromDesktop(path);
}

void Form1::openFromDesktop(const std::string &path) {
    const std::string extension = lowerCase(app_.paths.ParsePath(path, "e"));
    if (media::isIn(media::kVivo, extension)) {
        Announce(Text1.Text);
        StopEngines();
        StartVivo(Text1.Text);
    } else if (extension == media::kCdTrack) {
        if (StartCDTrack(path, ZoomEntry::Disable)) Announce(Text1.Text);
    } else if (extension == media::kRealMetafile) {
        if (askToRename(kRenameToPlayQuestion) && RenameRam(path)) {
            Text1.Text = RaPath;
            StartMedia(Text1.Text);
        }
        Announce(Text1.Text);
    } else if (extension == media::kPlaylist) {
        OpenPlaylist(path);
    } else {
        StartMedia(path);
        Announce(Text1.Text);
    }
}

// ---- Open dialog ------------------------------------------------------------------------------

std::string Form1::chooseMediaFile() {
    if (!CommonDialog) CommonDialog = std::make_unique<clsCommonDialog>(app_.services.dialogs);
    CommonDialog->FileName = "";
    CommonDialog->DialogTitle = "Open Media File...";
    CommonDialog->Filter = kMediaFilter;
    CommonDialog->Flags = kDialogHideReadOnly;
    attempt([&] {
        CommonDialog->InitDir = app_.setting(setting::kOpenMediaDirectory, app_.services.files.currentDirectory());
    });
    attempt([&] { CommonDialog->ShowOpen(); });
    return CommonDialog->FileName;
}

void Form1::openFromDialog() {
    Timer1.Enabled(false);
    const std::string path = chooseMediaFile();
    if (path.empty() || isUnloading()) return;
    app_.paths.ParsePath(path, "");
    attempt([&] { app_.saveSetting(setting::kOpenMediaDirectory, app_.paths.ParsedDirectory); });
    const std::string extension = app_.paths.ParsedExtension;
    setCurrent(path);
    StopEngines();
    LastOpenName = path;
    if (extension == media::kRealMetafile) { // as it stands: ".RAM" is announced first
        openRamFromDialog(path);
        return;
    }
    Announce(path);
    openChosen(path, lowerCase(extension));
}

void Form1::openChosen(const std::string &path, const std::string &extension) {
    if (extension == media::kShortVivo) {
        State = WindowState::Minimized;
        StartVivo(path);
    } else if (extension == media::kCdTrack) {
        attempt([&] { CDReader->DeviceID(app_.settings->DevCombo.ListIndex); });
        attempt([&] { CDReader->OpenDevice(); });
        StartCDTrack(path, ZoomEntry::Disable);
    } else if (extension == media::kRealMetafile) {
        openRamFromDialog(path);
    } else {
        StartMedia(path);
    }
}

void Form1::openRamFromDialog(const std::string &path) {
    if (!askToRename(kRenameToPlayQuestion) || !RenameRam(path)) return;
    Text1.Text = RaPath;
    StartMedia(Text1.Text);
    Announce(RaPath);
}

// ---- recent files -----------------------------------------------------------------------------

void Form1::mnuFileMRU_Click(std::size_t index) {
    const std::string &entry = mnuFileMRU[index].Caption;
    const std::string path = entry.size() > kEntryPrefix ? entry.substr(kEntryPrefix) : std::string();
    const std::string tag = mnuFileMRU[index].Tag;
    setCurrent(path);
    StopEngines();
    const std::string extension = lowerCase(app_.paths.ParsePath(path, "e"));
    if (extension == media::kShortVivo) {
        State = WindowState::Minimized;
        StartVivo(path);
    } else if (extension == media::kCdTrack) {
        if (!StartCDTrack(path, ZoomEntry::Disable)) return;
    } else {
        StartMedia(path);
    }
    RecentFiles.SetMRUList(path, tag);
}

// ---- replay -----------------------------------------------------------------------------------

void Form1::playcurrentmenu_Click() {
    const std::string path = Text1.Text;
    if (path.empty()) {
        app_.box(kNothingToReplay, BoxIcon::Information, BoxPlace::Foreground);
        return;
    }
    const std::string extension = lowerCase(app_.paths.ParsePath(path, "e"));
    if (media::isIn(media::kVivo, extension)) {
        StartVivo(path);
    } else if (extension == media::kCdTrack) {
        // The dialog's last name, not the current path: a track that came by another road is -1.
        StartCDTrack(CommonDialog ? CommonDialog->FileName : std::string(), ZoomEntry::Leave);
    } else {
        openInEngine(path);
        attempt([&] { MediaStarted(toInt32(ActiveMovie1.Duration())); });
    }
}

} // namespace tonvale
