// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "player/Form1.h"

#include "controls/Numbers.h"
#include "controls/Text.h"
#include "player/captions.h"
#include "player/media_kinds.h"

namespace tonvale {

namespace {

constexpr double kRolledUpHeight = 650; // twips; title and menu alone

} // namespace

// The frame that the window needs to hold the picture, in twips.
Form1::FrameSize Form1::frameForPicture() {
    FrameSize frame;
    attempt([&] { frame.width = toInt32(ActiveMovie1.Width + 2.0 * VideoMargin + Width - ScaleWidth()); });
    attempt([&] {
        frame.height = toInt32(ActiveMovie1.Top + ActiveMovie1.Height + Height - ScaleHeight() +
                               VideoMargin / kTwipsPerPixel * kTwipsPerPixel);
    });
    return frame;
}

bool Form1::fitWindow(FrameSize frame) {
    Screen &screen = app_.services.screen;
    if (frame.width > screen.width() || frame.height > screen.height()) {
        ActiveMovie1.FullScreenMode = true;
        return false;
    }
    if (frame.width < OriginalWidth) frame.width = OriginalWidth;
    ActiveMovie1.FullScreenMode = false;
    Move((screen.width() - frame.width) / 2, (screen.height() - frame.height) / 2, frame.width, frame.height);
    const double beside = ScaleWidth() - ActiveMovie1.Width;
    ActiveMovie1.Left = beside > 0 ? beside / 2 : VideoMargin;
    return true;
}

void Form1::FitWindowToVideo() { fitWindow(frameForPicture()); }

void Form1::zoomTo(std::int32_t displaySize) {
    attempt([&] { ActiveMovie1.Stop(); });
    ActiveMovie1.FullScreenMode = false;
    attempt([&] { ActiveMovie1.DisplaySize(displaySize); });
    attempt([&] { ActiveMovie1.Play(); });
    FitWindowToVideo();
}

// By the extension as it stands.
bool Form1::isVivo() { return media::isIn(media::kVivo, app_.paths.ParsePath(Text1.Text, "e")); }

void Form1::showVivo(VivoSize size) {
    const bool full = size == VivoSize::FullScreen;
    attempt([&] { app_.VivoPlayer->Caption = full ? "" : caption::kPictureHint; });
    // The viewer goes to the other of its two sizes, whichever its mark says.
    attempt([&] { app_.VivoPlayer->FullScreenMenu.Checked = !full; });
    attempt([&] { app_.VivoPlayer->SetFullScreen(); });
    attempt([&] { app_.VivoPlayer->FullScreenMenu.Checked = full; });
}

void Form1::original_Click() {
    if (isVivo())
        showVivo(VivoSize::Window);
    else
        zoomTo(display_size::kDefault);
}

void Form1::FullZoomMenu_Click() {
    if (isVivo()) {
        showVivo(VivoSize::FullScreen);
        return;
    }
    attempt([&] { ActiveMovie1.Stop(); });
    ActiveMovie1.FullScreenMode = true;
    attempt([&] { ActiveMovie1.Play(); });
}

void Form1::FullScreenAdvMenu_Click() {
    attempt([&] { ActiveMovie1.Stop(); });
    PlayStopped();
    Width = OriginalWidth;
    Height = OriginalHeight;
    attempt([&] { app_.frmVideoPlay->MediaPlayer1.FileName(Text1.Text); });
    attempt([&] { app_.frmVideoPlay->Show(); });
}

// Without any file there would be nothing to zoom; the extension has the last word all the same.
void Form1::FileMenu_Click() {
    if (Text1.Text.get().empty() && commandLinePath().empty()) zoom.Enabled = false;
    const std::string extension = app_.paths.ParsePath(Text1.Text, "e");
    zoom.Enabled = !media::isIn(media::kNoZoom, lowerCase(extension));
    for (MenuEntry *entry : {&half, &Quarter, &DoubleSizeMenu}) entry->Enabled = !media::isIn(media::kVivo, extension);
}

void Form1::zoom_Click() { zoom.Enabled = !(Height == OriginalHeight); }

void Form1::rollmenu_Click() {
    const bool rollUp = rollmenu.Caption == caption::kRollUp;
    Height = rollUp ? kRolledUpHeight : OriginalHeight;
    rollmenu.Caption = rollUp ? caption::kRollDown : caption::kRollUp;
}

void Form1::StartSSMenu_Click() {
    attempt([&] { app_.services.screenSaver.activate(); });
}

} // namespace tonvale
