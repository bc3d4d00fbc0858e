// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Controls.h"
#include "core/Application.h"
#include "core/shared_windows.h"

#include <array>
#include <cstdint>

namespace tonvale {

// Fills the screen with the main window's film, all options of the media control at hand. The main
// window is hidden as long as this one is loaded.
class frmVideoPlay : public VideoWindow {
public:
    explicit frmVideoPlay(Application &app);

    MenuEntry MainMenu{"MainMenu"};
    MenuEntry RestartMenu{"Restart"}, StopMenu{"Stop"}, PauseMenu{"Pause"};
    MenuEntry ZoomMenu{"Zoom"};
    MenuEntry NormalSizeMenu{"Normal Size"}, DoubleSizeMenu{"Double Size"}, HalfSizeMenu{"Half Size"};
    MenuEntry OneFourthMenu{"One-Fourth Screen"}, HalfScreenMenu{"One-Half Screen"};
    MenuEntry OneSixteenthMenu{"One-Sixteenth Screen"};
    MenuEntry FullScreenMenu{"Full Screen Mode"};
    MenuEntry OptionsMenu{"Options"}, VideoStatsMenu{"Video Statistics"};
    MenuEntry ExitMenu{"Close"};

private:
    void arrangeMenus();
    void connectMenus();
    void connectPlayer();
    void Form_Load() override;
    void Form_Resize() override;
    void Form_Unload(std::int16_t &cancel) override;
    void Form_KeyPress(std::int16_t &keyAscii) override;
    void Form_MouseUp(std::int16_t button, std::int16_t shift, double x, double y) override;
    void showMenu(std::int16_t button);
    void RestartMenu_Click();
    void StopMenu_Click();
    void PauseMenu_Click();
    void FullScreenMenu_Click();
    void centrePicture();

    Application &app_;
    std::array<MenuEntry, 5> separators_;
    Connection dialogs_;
};

} // namespace tonvale
