// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Controls.h"

#include <memory>
#include <vector>

namespace tonvale {

// The entries of a list window's menus, with their captions, shortcuts and order. What they do is
// wired by the window.
class ListMenus {
public:
    ListMenus();

    MenuEntry FileMenu{"&File"};
    MenuEntry NewMenu{"&New PlayList"}, LoadMenu{"&Load PlayList"}, SaveMenu{"&Save PlayList"};
    MenuEntry playmenu{"&Play"}, PauseMenu{"Pa&use"}, MuteMenu{"&Mute"};
    MenuEntry PrevMenu{"Seek Pre&vious"}, NextMenu{"S&eek Next"}, ExitMenu{"E&xit"};

    MenuEntry EditMenu{"&Edit"};
    MenuEntry AddMenu{"&Add"}, RemoveMenu{"&Remove"}, MoveUpMenu{"Move &Up"}, MoveDownMenu{"Move &Down"};
    MenuEntry DeselectMenu{"Deselec&t All"};

    MenuEntry OptionsMenu{"&Options"};
    MenuEntry LoopMenu{"&Loop PlayList"}, OntopMenu{"&Always Ontop"};

    MenuEntry helpmenu{"&Help"};
    MenuEntry HotKeyMenu{"&HotKey Information"};

    // The list's own menu.
    MenuEntry PopMenu{"PopMenu"};
    MenuEntry NewPop{"New PlayList"}, LoadPop{"Load PlayList"}, SavePop{"Save PlayList"};
    MenuEntry PlayPop{"Play"}, PausePop{"Pause"}, MutePop{"Mute"}, PrevPop{"Seek Previous"}, NextPop{"Seek Next"};
    MenuEntry AddPop{"Add"}, RemovePop{"Remove"}, UpPop{"Move Up"}, DownPop{"Move Down"};
    MenuEntry DeselectPopMenu{"Deselect All"}, exitpop{"Exit"};

    [[nodiscard]] const std::vector<MenuEntry *> &menuBar() const { return menuBar_; }

private:
    void arrangeMenuBar();
    void arrangePopUp();
    void giveShortcuts();
    MenuEntry *separator();

    std::vector<std::unique_ptr<MenuEntry>> separators_;
    std::vector<MenuEntry *> menuBar_;
};

} // namespace tonvale
