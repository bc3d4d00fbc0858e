// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "playlists/PlaylistWindow.h"

#include "playlists/register.h"

namespace tonvale {

namespace {

constexpr double kDesignWidth = 540 * kTwipsPerPixel, kDesignHeight = 440 * kTwipsPerPixel;

ToolbarButton gap(const char *key) { return {key, "", "", ToolbarButton::Kind::Separator}; }

std::vector<ToolbarButton> toolbarButtons() {
    return {{"Add", "Add Files", "Add File(s) to PlayList"},
            {"Remove", "Remove", "Remove File(s) from PlayList"},
            gap("sep1"),
            {"Play", "Play", "Play Current List / Stop Play Toggle"},
            {"Pause", "Pause", "Pause / Resume Toggle"},
            gap("sep2"),
            {"Mute", "Mute", "Mute / Un-Mute Toggle"},
            gap("sep3"),
            {"About", "About", "HotKey Information"},
            {"Exit", "Exit", "Exit"}};
}

} // namespace

PlaylistWindow::PlaylistWindow(Application &app, const ListVariant &variant, Subclass::Installer installer)
    : ListWindow(app.forms, variant.name), Toolbar1(toolbarButtons()), WinHook1(app.services.keyboard), app_(app),
      variant_(variant), engine_(variant.makeEngine(app)), VolumeControl_(app.services.mixer),
      File1(app.services.files), subclass_(*this, installer) {
    Caption = variant.caption;
    BorderStyle = tonvale::BorderStyle::Sizable;
    Width = kDesignWidth;
    Height = kDesignHeight;
    Slider1.ToolTipText = "Volume Control";
    DeselectPopMenu.Visible = variant.deselectEntry == DeselectEntry::Present;
    if (variant.exitShortcut != nullptr) ExitMenu.Shortcut = variant.exitShortcut;
    chromeChanged_ = chromeChanged.connect([this] { layOut(); });
    connectMenus();
    connectParts();
    layOut();
    WinHook1.Enabled(true);
}

PlaylistWindow::~PlaylistWindow() = default;

// Each entry of the list's own menu runs what its twin in the menu bar runs.
void PlaylistWindow::click(MenuEntry &entry, MenuEntry &popUp, void (PlaylistWindow::*action)()) {
    entry.Click = handler([this, action] { (this->*action)(); });
    popUp.Click = entry.Click;
}

void PlaylistWindow::connectMenus() {
    click(NewMenu, NewPop, &PlaylistWindow::NewMenu_Click);
    click(LoadMenu, LoadPop, &PlaylistWindow::LoadMenu_Click);
    click(SaveMenu, SavePop, &PlaylistWindow::SaveMenu_Click);
    click(playmenu, PlayPop, &PlaylistWindow::playmenu_Click);
    click(PauseMenu, PausePop, &PlaylistWindow::PauseMenu_Click);
    click(MuteMenu, MutePop, &PlaylistWindow::MuteMenu_Click);
    click(PrevMenu, PrevPop, &PlaylistWindow::PrevMenu_Click);
    click(NextMenu, NextPop, &PlaylistWindow::NextMenu_Click);
    click(AddMenu, AddPop, &PlaylistWindow::AddMenu_Click);
    click(RemoveMenu, RemovePop, &PlaylistWindow::RemoveMenu_Click);
    click(MoveUpMenu, UpPop, &PlaylistWindow::MoveUpMenu_Click);
    click(MoveDownMenu, DownPop, &PlaylistWindow::MoveDownMenu_Click);
    click(DeselectMenu, DeselectPopMenu, &PlaylistWindow::DeselectMenu_Click);
    ExitMenu.Click = handler([this] { Unload(); });
    exitpop.Click = ExitMenu.Click;
    LoopMenu.Click = handler([this] { LoopMenu_Click(); });
    OntopMenu.Click = handler([this] { OntopMenu_Click(); });
    HotKeyMenu.Click = handler([this] { HotKeyMenu_Click(); });
}

void PlaylistWindow::connectParts() {
    Toolbar1.ButtonClick = handler([this](const ToolbarButton &button) { Toolbar1_ButtonClick(button.Key); });
    Slider1.Change = handler([this] { Slider1_Change(); });
    Slider1.Scroll = handler([this] { Slider1_Change(); });
    List1.Click = handler([this] { RefreshCommands(); });
    List1.GotFocus = handler([this] { RefreshCommands(); });
    List1.MouseMove =
        handler([this](std::int16_t button, double x, double y) { showRowUnderPointer(List1, button, x, y); });
    List1.MouseUp = handler([this](std::int16_t button, auto...) {
        if (button == kRightButton) PopupMenu(PopMenu);
    });
    WinHook1.KeyDown = handler([this](std::int32_t keyCode) { WinHook1_KeyDown(keyCode); });
    engine_->itemEnded = handler([this] { AdvanceList(); });
}

// Whether the menu entry is enabled does not count here, but for Remove.
void PlaylistWindow::Toolbar1_ButtonClick(const std::string &key) {
    if (key == "Add") AddMenu_Click();
    if (key == "Remove") removeFromToolbar();
    if (key == "Play") playmenu_Click();
    if (key == "Pause") PauseMenu_Click();
    if (key == "Mute") MuteMenu_Click();
    if (key == "About") HotKeyMenu_Click();
    if (key == "Exit") Unload();
}

BoxResult PlaylistWindow::tell(const std::string &text) {
    return app_.box(text, BoxIcon::Information, BoxPlace::Foreground);
}

void registerPlaylistWindows(Application &app) {
    app.frmPlayList.setFactory([&app] { return std::make_unique<PlaylistWindow>(app, kAudioList); });
}

} // namespace tonvale
