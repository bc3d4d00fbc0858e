// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "player/Form1.h"

#include "controls/Numbers.h"
#include "core/setting_keys.h"

#include <algorithm>
#include <array>

namespace tonvale {

namespace {

constexpr const char *kOnlineQuestion =
    "Important Note:  In order to use the key elements of this feature, you must be connected to the Internet. "
    "\r\n\r\nWould you like to continue?";

// To the front, where it is shown already.
void bringUp(FormSlot &window) {
    window.form().Show();
    window.form().ZOrder();
}

} // namespace

void Form1::connect(Action action, std::initializer_list<MenuEntry *> entries) {
    for (MenuEntry *entry : entries) entry->Click = handler([this, action] { (this->*action)(); });
}

void Form1::connectMenus() {
    connectPlayback();
    connectFileActions();
    connectZoom();
    connectDesktop();
    connectWindows();
}

void Form1::connectPlayback() {
    connect(&Form1::playmenu_Click, {&playmenu, &playnewpop, &VidPlayPop});
    connect(&Form1::playcurrentmenu_Click, {&playcurrentmenu, &playcurrentpop, &VidPlayCurrentPop});
    connect(&Form1::PauseMenu_Click, {&PauseMenu, &PauseMenuPop, &VidPausePop});
    connect(&Form1::StopMenu_Click, {&StopMenu});
    connect(&Form1::ControlsMenu_Click, {&ControlsMenu});
    connect(&Form1::MuteMenu_Click, {&MuteMenu, &VidMutePop});
}

void Form1::connectFileActions() {
    connect(&Form1::FileMenu_Click, {&FileMenu});
    connect(&Form1::DeleteMenu_Click, {&DeleteMenu, &DeleteMenu2, &VidDeletePop});
    connect(&Form1::WAVConvertMenu_Click, {&WAVConvertMenu, &BatchConvPop});
    connect(&Form1::ClearDocMenu_Click, {&ClearDocMenu});
    connect(&Form1::ClearMRUMenu_Click, {&ClearMRUMenu});
    for (MenuEntry *entry : {&ExitMenu, &exitpop}) entry->Click = handler([this] { Unload(); });
    for (std::size_t i = 1; i < mnuFileMRU.size(); ++i)
        mnuFileMRU[i].Click = handler([this, i] { mnuFileMRU_Click(i); });
}

void Form1::connectZoom() {
    connect(&Form1::zoom_Click, {&zoom});
    connect(&Form1::original_Click, {&original, &VidOrigSize});
    connect(&Form1::FullZoomMenu_Click, {&FullZoomMenu, &VidFullPop});
    connect(&Form1::FullScreenAdvMenu_Click, {&FullScreenAdvMenu, &FullPopMenu});
    const auto zooms = [this](std::int32_t displaySize, std::initializer_list<MenuEntry *> entries) {
        for (MenuEntry *entry : entries) entry->Click = handler([this, displaySize] { zoomTo(displaySize); });
    };
    zooms(display_size::kHalf, {&half, &VidHalfPop});
    zooms(display_size::kOneFourthScreen, {&Quarter, &VidQuarterPop});
    zooms(display_size::kDouble, {&DoubleSizeMenu});
}

void Form1::connectDesktop() {
    connect(&Form1::rollmenu_Click, {&rollmenu});
    connect(&Form1::traymenu_Click, {&traymenu});
    connect(&Form1::restoreFromTray, {&showpop});
    connect(&Form1::StartSSMenu_Click, {&StartSSMenu});
    connect(&Form1::infomenu_Click, {&infomenu, &InfoPopMenu});
    connect(&Form1::mailmemenu_Click, {&mailmemenu, &MailOrvanePop});
    connect(&Form1::visitmemenu_Click, {&visitmemenu, &visitmepop});
    const auto shows = [this](MenuEntry &entry, PropertySheets sheets) {
        entry.Click = handler([this, sheets] {
            MMProps.Sheets = sheets;
            MMProps.Execute();
        });
    };
    shows(AllPropsMenu, PropertySheets::psAll);
    shows(SoumdPropsMenu, PropertySheets::psAudio);
    shows(VidePropsMenu, PropertySheets::psVideo);
    shows(MIDIPropsMenu, PropertySheets::psMIDI);
    shows(CDPropsMenu, PropertySheets::psCD);
}

void Form1::connectWindows() {
    struct Opener {
        FormSlot &window;
        std::vector<MenuEntry *> entries;
    };
    const std::array openers{
        Opener{app_.frmPlayList, {&playlistmenu, &playlistmenu2}},
        Opener{app_.frmVideoPlayList, {&VideoPlayListMenu}},
        Opener{app_.frmVivoPlayList, {&VivoPlayListMenu, &VivoPlayListMenu2}},
        Opener{app_.frmCDPlayer, {&CDPlayMenu}},
        Opener{app_.frmVideoCDPlayer, {&VideoCDPlayMenu}},
        Opener{app_.frmCD2WAV, {&cd2wavmenu, &cd2wavpop, &wav2mp3pop}}, // the last by its design
        Opener{app_.frmCD2MP3, {&cd2mp3, &cd2mp2pop}},
        Opener{app_.frmEncode, {&wav2mp3}},
        Opener{app_.frmDecode, {&Mp32WAV, &Mp32WAVPop}},
        Opener{app_.settings, {&generalmenu}},
        Opener{app_.frmAssociate, {&assosicatemenu}},
        Opener{app_.frmAbout, {&aboutmenu, &aboutpop}},
        Opener{app_.Disclaimer, {&DisclaimerMenu}},
    };
    for (const Opener &opener : openers)
        for (MenuEntry *entry : opener.entries) {
            entry->Enabled = opener.window.exists();
            entry->Click = handler([&window = opener.window] { bringUp(window); });
        }
    for (MenuEntry *entry : {&FullScreenAdvMenu, &FullPopMenu}) entry->Enabled = app_.frmVideoPlay.exists();
    CDDBMenu.Enabled = app_.frmCDDBMain.exists();
    connect(&Form1::CDDBMenu_Click, {&CDDBMenu});
}

void Form1::CDDBMenu_Click() {
    bool ask = true;
    attempt([&] { ask = textToBoolean(app_.setting(setting::kCddbPrompt, booleanToText(true))); });
    const auto answeredYes = [this] {
        return app_.box(kOnlineQuestion, BoxIcon::Information, BoxPlace::Foreground, BoxButtons::YesNo) ==
               BoxResult::Yes;
    };
    if ((!ask || answeredYes()) && !isUnloading()) bringUp(app_.frmCDDBMain);
}

void Form1::WinHook1_KeyDown(std::int32_t keyCode) {
    struct HotKey {
        std::int32_t keyCode;
        Action action;
    };
    static constexpr std::array kHotKeys{
        HotKey{' ', &Form1::StopMenu_Click},  HotKey{'L', &Form1::playmenu_Click}, HotKey{'M', &Form1::MuteMenu_Click},
        HotKey{'P', &Form1::PauseMenu_Click}, HotKey{112, &Form1::infomenu_Click}, // F1
    };
    const auto *const found = std::ranges::find(kHotKeys, keyCode, &HotKey::keyCode);
    if (found != kHotKeys.end()) (this->*found->action)();
}

} // namespace tonvale
