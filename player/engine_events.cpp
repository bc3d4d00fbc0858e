// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/Settings.h"
#include "player/Form1.h"

#include "controls/Numbers.h"
#include "controls/Text.h"
#include "player/captions.h"
#include "player/media_kinds.h"

namespace tonvale {

namespace {

constexpr const char *kRealVideoQuestion =
    "Is the selected file RealVideo or RealAudio?  If RealVideo, click \"Yes\", otherwise click \"No\".";
constexpr const char *kFullScreenHint = "Press escape to resturn to Tonvale.  Left-Click to replay.";

} // namespace

// Runs on every change of the open state, guarded against nothing.
void Form1::ActiveMovie1_OpenStateChange() {
    attempt([&] { MediaStarted(toInt32(ActiveMovie1.Duration())); });
    app_.paths.ParsePath(ActiveMovie1.FileName(), "e");
    const std::string extension = app_.paths.ParsedExtension;
    const std::string folded = lowerCase(extension);
    FrameSize frame;
    if (media::isIn(media::kVideo, folded)) {
        ActiveMovie1.Visible = true;
        frame = frameForPicture();
        zoom.Enabled = true;
    } else if (media::isIn(media::kRealMedia, folded)) {
        frame = askForRealVideo();
    } else {
        zoom.Enabled = false;
        ActiveMovie1.Visible = false;
        if (rollmenu.Caption == caption::kRollDown) return; // stays rolled up, with Timer3 off
        Width = OriginalWidth;
        Height = OriginalHeight;
    }
    // The extension as it stands: ".AVI" shows its picture but keeps the window's size.
    if (media::isIn(media::kVideo, extension) && fitWindow(frame))
        attempt([&] { ActiveMovie1.Left = roundEven(ActiveMovie1.Left); });
    Timer3.Enabled(true);
}

Form1::FrameSize Form1::askForRealVideo() {
    zoom.Enabled = false;
    const BoxResult answer =
        app_.box(kRealVideoQuestion, BoxIcon::Information, BoxPlace::Foreground, BoxButtons::YesNo);
    ActiveMovie1.Visible = answer == BoxResult::Yes;
    return ActiveMovie1.Visible ? frameForPicture() : FrameSize{OriginalWidth, OriginalHeight};
}

// The end of the media and any stop of the engine, those by the program included.
void Form1::ActiveMovie1_PlayStateChange(PlayState state) {
    switch (state) {
    case PlayState::Stopped:
        PlayStopped();
        if (settingIsOn(&Settings::Check6)) {
            attempt([&] { ActiveMovie1.Play(); });
            attempt([&] { MediaStarted(toInt32(ActiveMovie1.Duration())); });
        }
        break;
    case PlayState::Paused: Timer1.Enabled(false); break;
    case PlayState::Playing: Timer1.Enabled(true); break;
    }
}

void Form1::ActiveMovie1_MouseMove() {
    ActiveMovie1.ToolTipText = ActiveMovie1.FullScreenMode ? kFullScreenHint : caption::kPictureHint;
}

void Form1::ActiveMovie1_MouseUp(std::int16_t button) {
    if (button != kRightButton) return;
    VidPlayPop.Caption = playmenu.Caption;
    VidPlayCurrentPop.Caption = playcurrentmenu.Caption;
    VidPlayCurrentPop.Enabled = playcurrentmenu.Enabled;
    VidPausePop.Caption = PauseMenu.Caption;
    VidPausePop.Enabled = PauseMenu.Enabled;
    VidDeletePop.Enabled = DeleteMenu.Enabled;
    VidMutePop.Caption = MuteMenu.Caption;
    VidZoomPop.Enabled = zoom.Enabled;
    PopupMenu(VidPopMenu);
}

} // namespace tonvale
