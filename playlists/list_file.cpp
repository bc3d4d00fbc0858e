// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "playlists/PlaylistWindow.h"

#include "desktop/list_editing.h"

#include <algorithm>
#include <utility>

// The rows' way out of a .ply file and into one: bytes, a row to a line.

namespace tonvale {

namespace {

constexpr const char *kSaveQuestion = "Do you wish to save your current playlist configuration before continuing?";
constexpr const char *kListFilter = "Orvane Tonvale PlayList|*.ply";
constexpr const char *kListOrAnyFilter = "Orvane Tonvale PlayList|*.ply|All Files|*.*";
constexpr const char *kListExtension = ".ply";
constexpr const char *kLineEnd = "\r\n";

} // namespace

clsCommonDialog &PlaylistWindow::dialog() {
    if (!CommonDialog) CommonDialog = std::make_unique<clsCommonDialog>(app_.services.dialogs);
    return *CommonDialog;
}

void PlaylistWindow::LoadMenu_Click() {
    if (List1.ListCount() > 0 && !ListSaved &&
        app_.box(kSaveQuestion, BoxIcon::Question, BoxPlace::Foreground, BoxButtons::YesNo) == BoxResult::Yes)
        SaveMenu_Click();
    clsCommonDialog &open = dialog();
    open.FileName = "";
    open.DialogTitle = "Load a PlayList File...";
    open.Filter = kListOrAnyFilter;
    open.Flags = kDialogHideReadOnly;
    attempt([&] { open.InitDir = app_.setting(variant_.loadDirectoryKey, app_.services.files.currentDirectory()); });
    attempt([&] { open.ShowOpen(); });
    if (open.FileName.empty()) return;
    rememberDirectory(app_, open.FileName, variant_.loadDirectoryKey);
    appendRows(app_, List1, open.FileName);
    playmenu.Enabled = true;
    PlayPop.Enabled = true;
}

// A file that cannot be read, or not to its end, gives the rows that it gave.
void PlaylistWindow::SaveMenu_Click() {
    clsCommonDialog &save = dialog();
    save.FileName = "";
    save.DialogTitle = "Save Current PlayList...";
    save.DefaultExt = kListExtension;
    save.Filter = kListFilter;
    save.Flags = kDialogHideReadOnly;
    attempt([&] { save.ShowSave(); });
    if (save.FileName.empty()) return;
    ListSaved = true;
    attempt([&] { writeRows(save.FileName); });
}

void PlaylistWindow::writeRows(const std::string &path) {
    std::string content;
    for (std::size_t i = 0; i < List1.ListCount(); ++i) {
        content += List1.List(i);
        content += kLineEnd;
    }
    app_.services.files.replaceFile(path, content);
}

// The field is in twips while rows are measured and keeps pixels until the next time.
void PlaylistWindow::setRowExtent() {
    MaxRowExtent = scrollExtent(std::max(MaxRowExtent, widestRow(List1)));
    List1.HorizontalExtent = MaxRowExtent;
}

} // namespace tonvale
