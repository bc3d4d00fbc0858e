// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "player/Form1Menus.h"

namespace tonvale {

Form1Menus::Form1Menus() {
    arrangeMainMenu();
    arrangeTrayMenu();
    arrangePictureMenu();
}

MenuEntry *Form1Menus::separator() {
    separators_.push_back(std::make_unique<MenuEntry>("-"));
    return separators_.back().get();
}

void Form1Menus::arrangeMainMenu() {
    mnuFileMRU[0].Caption = "-";
    for (MenuEntry &entry : mnuFileMRU) entry.Visible = false;
    FileMenu.children = {&playmenu,      &DeleteMenu,        separator(),        &CDDBMenu,      separator(),
                         &playlistmenu,  &VideoPlayListMenu, &VivoPlayListMenu2, separator(),    &ExitMenu,
                         &mnuFileMRU[0], &mnuFileMRU[1],     &mnuFileMRU[2],     &mnuFileMRU[3], &mnuFileMRU[4]};
    ControlsMenu.children = {&playcurrentmenu, &PauseMenu,  &StopMenu,   separator(),
                             &MuteMenu,        separator(), &CDPlayMenu, &VideoCDPlayMenu};
    ConversionsMenu.children = {&WAVConvertMenu, separator(), &wav2mp3, &Mp32WAV, separator(), &cd2mp3, &cd2wavmenu};
    zoom.children = {&FullScreenAdvMenu, &FullZoomMenu, separator(), &original, &half, &Quarter, &DoubleSizeMenu};
    MMPropsMenu.children = {&SoumdPropsMenu, &CDPropsMenu, &MIDIPropsMenu, &VidePropsMenu, separator(), &AllPropsMenu};
    OptionsMenu.children = {&generalmenu, &assosicatemenu, separator(),   &zoom,
                            &MMPropsMenu, separator(),     &ClearDocMenu, &ClearMRUMenu};
    WindowMenu.children = {&rollmenu, &traymenu, separator(), &StartSSMenu};
    infomenu.Shortcut = "F1";
    helpmenu.children = {&infomenu, separator(), &mailmemenu, &visitmemenu, separator(), &DisclaimerMenu, &aboutmenu};
    menuBar_ = {&FileMenu, &ControlsMenu, &ConversionsMenu, &OptionsMenu, &WindowMenu, &helpmenu};
}

void Form1Menus::arrangeTrayMenu() {
    helppopmenu.children = {&aboutpop, separator(), &visitmepop, &MailOrvanePop, separator(), &InfoPopMenu};
    ConvertPopMenu.children = {&BatchConvPop, separator(), &cd2wavpop, &cd2mp2pop,
                               separator(),   &wav2mp3pop, &Mp32WAVPop};
    PopUpMenu2.children = {&exitpop,     separator(),     &helppopmenu, &ConvertPopMenu,   separator(),
                           &DeleteMenu2, &PauseMenuPop,   separator(),  &VivoPlayListMenu, &playlistmenu2,
                           separator(),  &playcurrentpop, &playnewpop,  separator(),       &showpop};
}

void Form1Menus::arrangePictureMenu() {
    VidZoomPop.children = {&VidOrigSize, separator(), &FullPopMenu,   &VidFullPop,
                           separator(),  &VidHalfPop, &VidQuarterPop, &VidDblPop};
    VidPopMenu.children = {&VidPlayPop,   &VidPlayCurrentPop, &VidPausePop, separator(),
                           &VidDeletePop, separator(),        &VidMutePop,  &VidZoomPop};
}

} // namespace tonvale
