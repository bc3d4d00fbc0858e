// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "viewers/frmVideoPlay.h"

#include "controls/Numbers.h"
#include "player/Form1.h"
#include "player/captions.h"
#include "viewers/MediaDialogWindow.h"

namespace tonvale {

namespace {

constexpr const char *kCaptionPause = "Pause", *kCaptionResume = "Resume";

} // namespace

frmVideoPlay::frmVideoPlay(Application &app) : VideoWindow(app.forms, "frmVideoPlay", app.services.media()), app_(app) {
    Caption = caption::kPictureHint;
    BorderStyle = BorderStyle::Sizable;
    arrangeMenus();
    connectMenus();
    connectPlayer();
}

void frmVideoPlay::arrangeMenus() {
    for (MenuEntry &separator : separators_) separator.Caption = "-";
    ZoomMenu.children = {&NormalSizeMenu, &DoubleSizeMenu, &HalfSizeMenu,    &separators_[0],
                         &OneFourthMenu,  &HalfScreenMenu, &OneSixteenthMenu};
    MainMenu.children = {&RestartMenu, &StopMenu,       &PauseMenu,      &separators_[1],
                         &ZoomMenu,    &separators_[2], &FullScreenMenu, &separators_[3],
                         &OptionsMenu, &VideoStatsMenu, &separators_[4], &ExitMenu};
}

void frmVideoPlay::connectMenus() {
    RestartMenu.Click = handler([this] { RestartMenu_Click(); });
    StopMenu.Click = handler([this] { StopMenu_Click(); });
    PauseMenu.Click = handler([this] { PauseMenu_Click(); });
    FullScreenMenu.Click = handler([this] { FullScreenMenu_Click(); });
    OptionsMenu.Click = handler([this] { MediaPlayer1.ShowDialog(MediaDialog::Options); });
    VideoStatsMenu.Click = handler([this] { MediaPlayer1.ShowDialog(MediaDialog::Statistics); });
    ExitMenu.Click = handler([this] { Unload(); });
    const auto sets = [this](MenuEntry &entry, std::int32_t size) {
        entry.Click = handler([this, size] {
            attempt([&] { MediaPlayer1.DisplaySize(size); });
            centrePicture();
        });
    };
    sets(NormalSizeMenu, display_size::kDefault);
    sets(DoubleSizeMenu, display_size::kDouble);
    sets(HalfSizeMenu, display_size::kHalf);
    sets(OneFourthMenu, display_size::kOneFourthScreen);
    sets(HalfScreenMenu, display_size::kOneHalfScreen);
    sets(OneSixteenthMenu, display_size::kOneSixteenthScreen);
}

void frmVideoPlay::connectPlayer() {
    MediaPlayer1.ReadyStateChange = handler([this](std::int32_t state) {
        if (state == kReadyStateComplete) centrePicture();
    });
    MediaPlayer1.MouseUp = handler([this](std::int16_t button, auto...) { showMenu(button); });
    dialogs_ = showDialogsOf(app_, *this, MediaPlayer1);
}

void frmVideoPlay::Form_Load() {
    attempt([&] { app_.form1->Hide(); });
}

// Larger than the screen is as small as it gets.
void frmVideoPlay::Form_Resize() {
    State = WindowState::Maximized;
    centrePicture(); // the window system says late how large the window has become
}

void frmVideoPlay::Form_Unload(std::int16_t & /*cancel*/) {
    MediaPlayer1.shutDown();
    // Where the main window goes itself, it takes this one with it.
    if (app_.form1.isLoaded() && !app_.form1->isUnloading()) app_.form1->Show();
}

void frmVideoPlay::Form_KeyPress(std::int16_t &keyAscii) {
    if (keyAscii == kKeyEscape) Unload();
}

void frmVideoPlay::Form_MouseUp(std::int16_t button, std::int16_t /*shift*/, double /*x*/, double /*y*/) {
    showMenu(button);
}

void frmVideoPlay::showMenu(std::int16_t button) {
    if (button != kRightButton) return;
    const PlayState state = MediaPlayer1.State();
    for (MenuEntry *entry : {&ZoomMenu, &PauseMenu, &StopMenu}) entry->Enabled = state != PlayState::Stopped;
    if (state == PlayState::Paused) PauseMenu.Caption = kCaptionResume;
    if (state == PlayState::Playing) PauseMenu.Caption = kCaptionPause;
    PopupMenu(MainMenu);
}

void frmVideoPlay::RestartMenu_Click() {
    if (MediaPlayer1.FileName().empty()) attempt([&] { MediaPlayer1.FileName(app_.form1->Text1.Text); });
    attempt([&] { MediaPlayer1.CurrentPosition(0); });
    attempt([&] { MediaPlayer1.Play(); });
    StopMenu.Enabled = true;
    PauseMenu.Enabled = true;
}

void frmVideoPlay::StopMenu_Click() {
    attempt([&] { MediaPlayer1.Stop(); });
    StopMenu.Enabled = false;
    PauseMenu.Enabled = false;
}

void frmVideoPlay::PauseMenu_Click() {
    const bool pause = PauseMenu.Caption == kCaptionPause;
    attempt([&] { pause ? MediaPlayer1.Pause() : MediaPlayer1.Play(); });
    PauseMenu.Caption = pause ? kCaptionResume : kCaptionPause;
}

void frmVideoPlay::FullScreenMenu_Click() {
    const bool enter = !FullScreenMenu.Checked;
    FullScreenMenu.Checked = enter;
    Caption = enter ? "" : caption::kPictureHint;
    attempt([&] { MediaPlayer1.DisplaySize(enter ? display_size::kFullScreen : display_size::kDefault); });
}

// Whole numbers, halves towards zero.
void frmVideoPlay::centrePicture() {
    attempt([&] {
        MediaPlayer1.Move(toInt32(ScaleWidth() - MediaPlayer1.Width) / 2,
                          toInt32(ScaleHeight() - MediaPlayer1.Height) / 2);
    });
}

} // namespace tonvale
