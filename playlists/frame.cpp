// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "playlists/PlaylistWindow.h"

#include "controls/Numbers.h"
#include "core/setting_keys.h"
#include "desktop/StayOnTop.h"
#include "player/Form1.h"
#include "playlists/captions.h"

#include <algorithm>

// What surrounds the rows: the window's coming and going, its marks, and where its parts lie.

namespace tonvale {

namespace {

constexpr const char *kHookFailed =
    "Subclassing failed.  Some features, such as drag & drop support, will not be available.";
constexpr const char *kQuitQuestion = "List is currently being played!  Quit anyway?";
constexpr const char *kSaveQuestion = "Do you wish to save your current playlist configuration before exiting?";

// All in twips.
constexpr double pixels(double count) { return count * kTwipsPerPixel; }
constexpr double kMargin = pixels(10), kGap = pixels(6);
constexpr double kToolbarHeight = pixels(54), kSliderHeight = pixels(28);
constexpr double kTextWidth = pixels(84), kTextHeight = pixels(20), kLineHeight = pixels(4);

} // namespace

void PlaylistWindow::Form_Load() {
    attempt([&] { app_.form1->Hide(); });
    loadMarks();
    ListSaved = true;
    giveFullCaptions();
    attempt([&] { Slider1.setRange(0, 100); });
    bindToolbarPictures();
    takeLeastSize();
    hookWindow();
    attempt([&] { Slider1.Value(VolumeControl_.GetMasterVolume()); });
    enableSeek(false);
    RefreshCommands();
}

void PlaylistWindow::loadMarks() {
    const auto isOn = [&](const char *key) {
        return textToBoolean(app_.store.GetSetting(variant_.application, setting::kSection, key, booleanToText(false)));
    };
    attempt([&] {
        if (isOn(setting::kListAlwaysOnTop)) OntopMenu_Click();
    });
    attempt([&] {
        if (isOn(setting::kListLoop)) LoopMenu_Click();
    });
}

void PlaylistWindow::giveFullCaptions() {
    PauseMenu.Caption = list_caption::kPause;
    PrevMenu.Caption = list_caption::kPrevious;
    NextMenu.Caption = list_caption::kNext;
    ExitMenu.Caption = variant_.exitCaption;
}

void PlaylistWindow::bindToolbarPictures() {
    for (ToolbarButton &button : Toolbar1.Buttons)
        if (button.kind == ToolbarButton::Kind::Button) button.Image = button.Key;
}

void PlaylistWindow::takeLeastSize() {
    if (Width < Subclass::kLeastWidth) Width = Subclass::kLeastWidth;
    if (Height < Subclass::kLeastHeight) Height = Subclass::kLeastHeight;
}

void PlaylistWindow::hookWindow() {
    if (subclass_.Hook())
        AcceptsFiles = true;
    else
        app_.box(kHookFailed, BoxIcon::Exclamation, BoxPlace::Foreground);
}

void PlaylistWindow::OntopMenu_Click() {
    if (OntopMenu.Checked)
        NotOnTop(*this);
    else
        StayOnTop(*this);
    OntopMenu.Checked = !OntopMenu.Checked;
}

void PlaylistWindow::LoopMenu_Click() { LoopMenu.Checked = !LoopMenu.Checked; }

void PlaylistWindow::saveMarks() {
    const auto save = [&](const char *key, const MenuEntry &entry) {
        attempt([&] {
            app_.store.SaveSetting(variant_.application, setting::kSection, key, booleanToText(entry.Checked));
        });
    };
    save(setting::kListAlwaysOnTop, OntopMenu);
    save(setting::kListLoop, LoopMenu);
}

void PlaylistWindow::Form_QueryUnload(std::int16_t &cancel) {
    saveMarks();
    if (variant_.pollingAtClose == PollingAtClose::Stopped) engine_->stopPolling();
    if (!PlayActive || variant_.closeDuringRun == CloseDuringRun::GoOn) return;
    if (app_.box(kQuitQuestion, BoxIcon::Question, BoxPlace::Foreground, BoxButtons::YesNoButNoPreferred) !=
        BoxResult::Yes) {
        cancel = 1;
        return;
    }
    PlayActive = false;
    engine_->stopAtClose();
}

// A window that the question keeps open has lost its least size and its files from the desktop.
void PlaylistWindow::Form_Unload(std::int16_t &cancel) {
    askToSave(cancel);
    // Where the main window goes itself, it takes this one with it.
    if (cancel == 0 && app_.form1.isLoaded() && !app_.form1->isUnloading()) app_.form1->Show();
    subclass_.Unhook();
    AcceptsFiles = false;
    if (cancel != 0) return;
    closed_ = true;
    WinHook1.Enabled(false);
    engine_->shutDown();
}

void PlaylistWindow::askToSave(std::int16_t &cancel) {
    if (List1.ListCount() == 0 || ListSaved) return;
    switch (app_.box(kSaveQuestion, BoxIcon::Question, BoxPlace::Foreground, BoxButtons::YesNoCancel)) {
    case BoxResult::Yes: SaveMenu_Click(); break;
    case BoxResult::Cancel: cancel = 1; break;
    default: break;
    }
}

void PlaylistWindow::Form_KeyPress(std::int16_t &keyAscii) {
    if (keyAscii == kKeyEscape) Unload();
}

void PlaylistWindow::Form_Resize() {
    if (State != WindowState::Minimized) layOut();
}

void PlaylistWindow::layOut() {
    const auto place = [](Control &part, double left, double top, double width, double height) {
        part.Move(left, top);
        part.Width = std::max(0.0, width);
        part.Height = std::max(0.0, height);
    };
    const double width = ScaleWidth(), height = ScaleHeight(), inner = width - 2 * kMargin;
    place(Toolbar1, 0, 0, width, kToolbarHeight);
    const double sliderTop = kToolbarHeight + kGap, textLeft = width - kMargin - kTextWidth;
    place(Slider1, kMargin, sliderTop, textLeft - kMargin, kSliderHeight);
    place(Label1, textLeft, sliderTop + (kSliderHeight - kTextHeight) / 2, kTextWidth, kTextHeight);
    const double lineTop = sliderTop + kSliderHeight + kGap, listTop = lineTop + kLineHeight + kGap;
    place(Picture2, kMargin, lineTop, inner, kLineHeight);
    const double textTop = height - kMargin - kTextHeight;
    place(List1, kMargin, listTop, inner, textTop - kGap - listTop);
    place(Label2, kMargin, textTop, inner, kTextHeight);
}

} // namespace tonvale
