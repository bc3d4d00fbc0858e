// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "playlists/ListMenus.h"

namespace tonvale {

ListMenus::ListMenus() {
    arrangeMenuBar();
    arrangePopUp();
    giveShortcuts();
}

MenuEntry *ListMenus::separator() {
    separators_.push_back(std::make_unique<MenuEntry>("-"));
    return separators_.back().get();
}

void ListMenus::arrangeMenuBar() {
    FileMenu.children = {&NewMenu,  &LoadMenu,   &SaveMenu, separator(), &playmenu,   &PauseMenu, separator(),
                         &MuteMenu, separator(), &PrevMenu, &NextMenu,   separator(), &ExitMenu};
    EditMenu.children = {&AddMenu, &RemoveMenu, separator(), &MoveUpMenu, &MoveDownMenu, separator(), &DeselectMenu};
    OptionsMenu.children = {&LoopMenu, &OntopMenu};
    helpmenu.children = {&HotKeyMenu};
    menuBar_ = {&FileMenu, &EditMenu, &OptionsMenu, &helpmenu};
}

void ListMenus::arrangePopUp() {
    PopMenu.children = {&NewPop,     &LoadPop,    &SavePop, separator(), &PlayPop,         &PausePop,   separator(),
                        &MutePop,    separator(), &PrevPop, &NextPop,    separator(),      &AddPop,     &RemovePop,
                        separator(), &UpPop,      &DownPop, separator(), &DeselectPopMenu, separator(), &exitpop};
}

void ListMenus::giveShortcuts() {
    NewMenu.Shortcut = "Ctrl+N";
    LoadMenu.Shortcut = "Ctrl+L";
    SaveMenu.Shortcut = "Ctrl+S";
    playmenu.Shortcut = "Ctrl+P";
    MuteMenu.Shortcut = "Ctrl+M";
    AddMenu.Shortcut = "Ctrl+A";
    RemoveMenu.Shortcut = "Del";
    MoveUpMenu.Shortcut = "Ctrl+U";
    MoveDownMenu.Shortcut = "Ctrl+D";
    DeselectMenu.Shortcut = "Ctrl+T";
    LoopMenu.Shortcut = "F3";
    OntopMenu.Shortcut = "F2";
    HotKeyMenu.Shortcut = "F1";
}

} // namespace tonvale
