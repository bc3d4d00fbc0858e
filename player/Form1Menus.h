// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Controls.h"

#include <array>
#include <memory>
#include <vector>

namespace tonvale {

// The entries of the main window's menus, with their captions and order. What they do is wired by
// Form1; an entry without an action is shown greyed.
class Form1Menus {
public:
    Form1Menus();

    // File
    MenuEntry FileMenu{"&File"};
    MenuEntry playmenu{"&Load and Play File"}, DeleteMenu{"&Delete Current File"}, CDDBMenu{"&CDDB Access CD Player"};
    MenuEntry playlistmenu{"&Audio PlayList"}, VideoPlayListMenu{"Vide&o PlayList"},
        VivoPlayListMenu2{"&Vivo PlayList"};
    MenuEntry ExitMenu{"E&xit"};
    std::array<MenuEntry, 5> mnuFileMRU; // [0] is the separator

    // Playback
    MenuEntry ControlsMenu{"&Playback"};
    MenuEntry playcurrentmenu{"&Play"}, PauseMenu{"Pa&use"}, StopMenu{"&Stop"}, MuteMenu{"&Mute"};
    MenuEntry CDPlayMenu{"Advanced &CD Player"}, VideoCDPlayMenu{"Advanced &Video CD Player"};

    // Conversions
    MenuEntry ConversionsMenu{"&Conversions"};
    MenuEntry WAVConvertMenu{"WAV &Batch Converter"}, wav2mp3{"Convert &WAV to MP3"}, Mp32WAV{"Convert &MP3 to WAV"};
    MenuEntry cd2mp3{"Convert &CD Audio to MP3"}, cd2wavmenu{"Convert CD &Audio to WAV"};

    // Options
    MenuEntry OptionsMenu{"&Options"};
    MenuEntry generalmenu{"&Preferences"}, assosicatemenu{"&Associate  Supported File Types"};
    MenuEntry zoom{"&Video Zoom"};
    MenuEntry FullScreenAdvMenu{"Full Screen (Normal - Advanced Options)"}, FullZoomMenu{"&Full Screen (Stretch)"};
    MenuEntry original{"&Original Size"}, half{"&Half Screen"}, Quarter{"&Quarter Screen"};
    MenuEntry DoubleSizeMenu{"&Double Original Size"};
    MenuEntry MMPropsMenu{"&System Multimedia Properties"};
    MenuEntry SoumdPropsMenu{"&Audio"}, CDPropsMenu{"&CD Audio"}, MIDIPropsMenu{"&MIDI"}, VidePropsMenu{"&Video"};
    MenuEntry AllPropsMenu{"&All"};
    MenuEntry ClearDocMenu{"&Clear Windows Recent Documents List"};
    MenuEntry ClearMRUMenu{"Clear Application's &Most Recently Used (MRU) Files List"};

    // Window
    MenuEntry WindowMenu{"&Window"};
    MenuEntry rollmenu{"&Roll Up"}, traymenu{"Minimize as &Tray Icon"}, StartSSMenu{"&Activate Windows Screen Saver"};

    // Help
    MenuEntry helpmenu{"&Help"};
    MenuEntry infomenu{"&Help"}, mailmemenu{"&Mail Orvane Productions"};
    MenuEntry visitmemenu{"&Visit Orvane Productions on the Web"}, DisclaimerMenu{"&Disclaimer"}, aboutmenu{"&About"};

    // The tray's menu
    MenuEntry PopUpMenu2{"PopUpMenu"};
    MenuEntry exitpop{"Exit"};
    MenuEntry helppopmenu{"Help"};
    MenuEntry aboutpop{"About"}, visitmepop{"Visit Orvane Productions on the Web"};
    MenuEntry MailOrvanePop{"Mail Orvane Productions"}, InfoPopMenu{"Help"};
    MenuEntry ConvertPopMenu{"Conversions"};
    MenuEntry BatchConvPop{"WAV Batch Converter"}, cd2wavpop{"Convert CD Audio to WAV"};
    MenuEntry cd2mp2pop{"Convert CD Audio to MP3"}, wav2mp3pop{"Convert WAV to MP3"};
    MenuEntry Mp32WAVPop{"Convery MP3 to WAV"};
    MenuEntry DeleteMenu2{"Delete Current File"}, PauseMenuPop{"Pause"};
    MenuEntry VivoPlayListMenu{"Vivo PlayList"}, playlistmenu2{"Audio PlayList"};
    MenuEntry playcurrentpop{"Play Current File"}, playnewpop{"Play New File"}, showpop{"Restore Window"};

    // The picture's menu
    MenuEntry VidPopMenu;
    MenuEntry VidPlayPop{"Play"}, VidPlayCurrentPop{"Play Current File"}, VidPausePop{"Pause"};
    MenuEntry VidDeletePop{"Delete Current File"}, VidMutePop{"Mute"};
    MenuEntry VidZoomPop{"Video Zoom"};
    MenuEntry VidOrigSize{"Original Size"}, FullPopMenu{"Full Screen (Normal - Advanced Options)"};
    MenuEntry VidFullPop{"Full Screen (Stretch)"}, VidHalfPop{"Half Screen"}, VidQuarterPop{"Quarter Screen"};
    MenuEntry VidDblPop{"Double Original Size"}; // without an action

    // The menu bar, left to right.
    [[nodiscard]] const std::vector<MenuEntry *> &menuBar() const { return menuBar_; }

private:
    void arrangeMainMenu();
    void arrangeTrayMenu();
    void arrangePictureMenu();
    MenuEntry *separator();

    std::vector<MenuEntry *> menuBar_;
    std::vector<std::unique_ptr<MenuEntry>> separators_;
};

} // namespace tonvale
