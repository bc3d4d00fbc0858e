// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/Settings.h"
#include "player/Form1.h"

#include "controls/Numbers.h"
#include "controls/Text.h"
#include "core/setting_keys.h"
#include "core/shared_windows.h"
#include "player/captions.h"
#include "player/media_kinds.h"

namespace tonvale {

namespace {

constexpr const char *kLoopNotice =
    "The loop option has now been disabled, in order to stop play.  To use the loop feature in the future, after "
    "stopping, simply re-enable the setting in \"Preferences\" from the Options menu.";
constexpr const char *kNotInProgress = "Media play is not currently in progress.";
constexpr const char *kNothingToPlay = "No file is currently loaded to play.\r\n\r\n"
                                       "To play a new file, select \"Play New File\"\r\n"
                                       "from the toolbar or File menu.";

} // namespace

bool Form1::isRunning() const { return !(playmenu.Caption == caption::kLoadAndPlay); }

void Form1::PlayStopped() {
    MMLEDGaugeX1.Position = 0;
    slidTracker.Value(0);
    MMLEDX1.LEDColor = lamp::kIdle;
    playmenu.Caption = caption::kLoadAndPlay;
    playnewpop.Caption = caption::kPlayNew;
    playcurrentmenu.Enabled = true;
    PauseMenu.Enabled = false;
    PauseMenuPop.Enabled = false;
    for (Timer *timer : {&CDR_Timer, &Timer1, &Timer2, &Timer3}) timer->Enabled(false);
    Width = OriginalWidth;
    Height = OriginalHeight;
}

void Form1::MediaStarted(std::int32_t seconds) {
    slidTracker.setRange(0, seconds);
    std::string discarded;
    ConvertSeconds(seconds, true, true, discarded);
    showDigits(TotalLEDHour, HourText);
    showDigits(TotalLEDMinute, MinuteText);
    showDigits(TotalLEDSecond, SecondText);
    playmenu.Caption = caption::kStop;
    playnewpop.Caption = caption::kStop;
    MMLEDX1.LEDColor = lamp::kRunning;
    app_.paths.ParsePath(Text1.Text, "");
    for (MenuEntry *entry : {&playcurrentmenu, &playcurrentpop}) entry->Enabled = false;
    for (MenuEntry *entry : {&PauseMenu, &PauseMenuPop, &DeleteMenu, &DeleteMenu2}) entry->Enabled = true;
    if (app_.paths.ParsedExtension == media::kCdTrack) {
        Label3.Caption = audioTrackName();
        Timer2.Enabled(true);
        DeleteMenu.Enabled = false;
        DeleteMenu2.Enabled = false;
    } else {
        Label3.Caption = app_.paths.ParsedFileName;
    }
}

void Form1::playmenu_Click() {
    if (playmenu.Caption == caption::kLoadAndPlay)
        openFromDialog();
    else
        stopCurrent();
}

void Form1::stopCurrent() {
    Timer1.Enabled(false);
    const std::string extension = app_.paths.ParsePath(Text1.Text, "e"); // as it stands: ".CDA" is none
    if (extension == media::kCdTrack) {
        attempt([&] { CDReader->StopPlay(); });
    } else if (media::isIn(media::kVivo, extension)) {
        attempt([&] { app_.VivoPlayer->VvWeb1().Suspend(); });
        attempt([&] { app_.VivoPlayer->VvWeb1().LoadFile(""); });
        app_.VivoPlayer.Unload();
    } else {
        attempt([&] { ActiveMovie1.Stop(); });
    }
    if (settingIsOn(&Settings::Check6)) switchLoopOff();
    PlayStopped();
}

// Otherwise the end of the media would start it again.
void Form1::switchLoopOff() {
    attempt([&] { app_.settings->Check6.Value = 0; });
    attempt([&] { ActiveMovie1.Stop(); });
    bool due = true;
    attempt([&] { due = textToBoolean(app_.setting(setting::kLoopNoticeDue, booleanToText(true))); });
    if (!due) return;
    app_.box(kLoopNotice, BoxIcon::Information, BoxPlace::Foreground, BoxButtons::Ok, "Important Notice:");
    attempt([&] { app_.saveSetting(setting::kLoopNoticeDue, booleanToText(false)); });
}

void Form1::StopMenu_Click() {
    attempt([&] { CDReader->StopPlay(); });
    attempt([&] { ActiveMovie1.Stop(); });
    PlayStopped();
}

void Form1::ControlsMenu_Click() { StopMenu.Enabled = isRunning(); }

void Form1::btnPlay_Click() {
    if (playmenu.Caption == caption::kStop) playmenu_Click();
    playmenu_Click();
}

void Form1::btnStop_Click() {
    if (playmenu.Caption == caption::kStop)
        playmenu_Click();
    else
        app_.box(kNotInProgress, BoxIcon::Information, BoxPlace::Foreground);
}

void Form1::btnPlayCurrent_Click() {
    if (Text1.Text.get().empty())
        app_.box(kNothingToPlay, BoxIcon::Information, BoxPlace::Foreground);
    else
        playcurrentmenu_Click();
}

void Form1::btnPlayCurrent_MouseMove() {
    btnPlayCurrent.ToolTipText =
        Text1.Text.get().empty() ? "There is no file currently loaded to play." : "Play Currently Loaded File";
}

void Form1::btnPause_Click() {
    if (PauseMenu.Enabled)
        PauseMenu_Click();
    else
        app_.box(kNotInProgress, BoxIcon::Information, BoxPlace::Foreground);
}

void Form1::PauseMenu_Click() {
    if (Text1.Text.get().empty()) {
        app_.box("No file is currently playing to pause.", BoxIcon::Information, BoxPlace::Foreground);
        return;
    }
    const std::string extension = lowerCase(app_.paths.ParsePath(Text1.Text, "e"));
    if (PauseMenu.Caption == caption::kPause)
        pauseCurrent(extension);
    else
        resumeCurrent(extension);
}

void Form1::pauseCurrent(const std::string &extension) {
    MMLEDX1.LEDColor = lamp::kPaused;
    PauseMenu.Caption = caption::kResume;
    btnMute.ToolTipText = "Resume"; // the mute button's hint, not the pause button's
    if (extension == media::kCdTrack) {
        Timer2.Enabled(false);
        CDR_Timer.Enabled(false);
        attempt([&] { CDPausePosition = CDReader->PlayPosition(); });
        attempt([&] { CDReader->PausePlay(); });
    } else if (media::isIn(media::kVivo, extension)) {
        attempt([&] { app_.VivoPlayer->VvWeb1().Suspend(); });
    } else {
        attempt([&] { ActiveMovie1.Pause(); });
    }
    Timer3.Enabled(false);
}

void Form1::resumeCurrent(const std::string &extension) {
    MMLEDX1.LEDColor = lamp::kRunning;
    PauseMenu.Caption = caption::kPause;
    btnMute.ToolTipText = "Pause";
    if (extension == media::kCdTrack) {
        attempt([&] { CDReader->PlayRange(CDPausePosition, currentCdTrack().PlayTime); });
        Timer2.Enabled(true);
        CDR_Timer.Enabled(true);
    } else if (media::isIn(media::kVivo, extension)) {
        attempt([&] { app_.VivoPlayer->VvWeb1().Resume(); });
    } else {
        attempt([&] { ActiveMovie1.Play(); });
    }
    // Its tick switches CDR_Timer off again, so a CD's position stands still after a resume.
    Timer3.Enabled(true);
}

void Form1::MuteMenu_Click() {
    const bool mute = MuteMenu.Caption == caption::kMute;
    const char *const next = mute ? caption::kUnMute : caption::kMute;
    MuteMenu.Caption = next;
    btnMute.ToolTipText = next;
    attempt([&] { VolumeControl_.SetMasterVolume(mute ? 0 : MMLEDSpinX2.Value()); });
}

void Form1::btnMute_MouseMove() { btnMute.ToolTipText = MuteMenu.Caption == caption::kMute ? "Mute" : "Un-Mute"; }

} // namespace tonvale
