// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "playlists/PlaylistWindow.h"

#include "desktop/list_editing.h"

namespace tonvale {

namespace {

constexpr const char *kStopFirst =
    "If you wish to adjust the playlist, you must stop the currently playing media beforehand.";
constexpr const char *kNothingToRemove = "No files are currently in your playlist to remove.";
constexpr const char *kNothingSelected = "No files are currently selected to remove.";

} // namespace

bool PlaylistWindow::mayEdit() {
    if (!List1.Enabled) tell(kStopFirst);
    return List1.Enabled;
}

void PlaylistWindow::RefreshCommands() {
    const std::size_t selected = List1.SelCount();
    const bool mayMove = List1.ListCount() > 1 && !PlayActive && selected == 1;
    for (MenuEntry *entry : {&MoveUpMenu, &UpPop, &MoveDownMenu, &DownPop}) entry->Enabled = mayMove;
    for (MenuEntry *entry : {&playmenu, &PlayPop}) entry->Enabled = List1.ListCount() > 0;
    AddMenu.Enabled = !PlayActive;
    for (MenuEntry *entry : {&RemoveMenu, &RemovePop, &DeselectMenu}) entry->Enabled = selected > 0 && !PlayActive;
}

// Asks nothing, and the commands keep their state until the next refresh.
void PlaylistWindow::NewMenu_Click() {
    List1.Clear();
    dialog().FileName = "";
    ListSaved = true;
}

void PlaylistWindow::AddMenu_Click() {
    if (!mayEdit()) return;
    clsCommonDialog &open = dialog();
    chooseFiles(app_, open, {variant_.addTitle, variant_.addFilter, variant_.addDirectoryKey});
    if (open.FileName.empty()) return;
    ListSaved = false;
    rememberDirectory(app_, open.FileName, variant_.addDirectoryKey);
    addFiles(List1, open.FileName);
    setRowExtent();
    RefreshCommands();
}

void PlaylistWindow::RemoveMenu_Click() {
    if (!mayEdit()) return;
    if (List1.ListCount() == 0) {
        tell(kNothingToRemove);
        return;
    }
    ListSaved = false;
    removeSelectedRows(List1);
    RefreshCommands();
}

void PlaylistWindow::removeFromToolbar() {
    if (RemoveMenu.Enabled)
        RemoveMenu_Click();
    else
        tell(kNothingSelected);
}

void PlaylistWindow::moveRow(MoveRow direction) {
    if (!mayEdit()) return;
    ListSaved = false;
    attempt([&] { moveFocusedRow(List1, direction); });
    RefreshCommands();
}

void PlaylistWindow::DeselectMenu_Click() {
    if (!mayEdit()) return;
    List1.ClearSelection();
    RefreshCommands();
}

} // namespace tonvale
