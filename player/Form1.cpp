// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "player/Form1.h"

#include "controls/Numbers.h"
#include "controls/Text.h"
#include "core/Main.h"
#include "core/WindowSearch.h"
#include "core/batch_converter.h"
#include "core/setting_keys.h"
#include "desktop/Settings.h"
#include "desktop/StayOnTop.h"
#include "player/captions.h"
#include "player/register.h"

#include <memory>

namespace tonvale {

namespace {

constexpr double kDesignWidth = 7500;  // twips
constexpr double kDesignHeight = 4665; // twips
constexpr double kPictureMargin = 120; // twips
constexpr double kDesignChrome = 690;  // twips; title and menu
constexpr const char *kPositionsPath = "SOFTWARE\\FMS\\Test CFormPos";
constexpr const char *kRecentFilesPath = "SOFTWARE\\Orvane Tonvale\\MRU";
constexpr const char *kPlaylistDescription = "Orvane Tonvale PlayList File";
constexpr const char *kLeftoverProgram = "qlv.Exe";

std::unique_ptr<CDReader> makeReader(Application &app) {
    auto reader = app.services.makeCDReader ? app.services.makeCDReader() : nullptr;
    return reader ? std::move(reader) : std::make_unique<AbsentCDReader>();
}

} // namespace

Form1::Form1(Application &app)
    : MainWindow(app.forms, "Form1"), ActiveMovie1(app.services.media()), CDReader(makeReader(app)),
      Timer1(app.services.loop, 500), Timer2(app.services.loop, 125), Timer3(app.services.loop, 100),
      CDR_Timer(app.services.loop, 1000), WinHook1(app.services.keyboard), MMProps(app.services.systemProperties),
      RecentFiles(app), app_(app), VolumeControl_(app.services.mixer), WindowMover(app) {
    Caption = app.services.program.title;
    Width = kDesignWidth;
    Height = kDesignHeight;
    setChrome(0, kDesignChrome);
    placePicture();
    ActiveMovie1.Left = kPictureMargin;
    ActiveMovie1.Width = ScaleWidth() - 2 * kPictureMargin;
    ActiveMovie1.Visible = false;
    connectPanel();
    connectDragging();
    connectMenus();
    connectEngines();
    connectTray();
    chrome_ = chromeChanged.connect([this] { placePicture(); });
}

Form1::~Form1() = default;

// The frame for a picture of no height is the window as it is, whatever stands around its inside.
void Form1::placePicture() { ActiveMovie1.Top = kDesignHeight - (Height - ScaleHeight()) - kPictureMargin; }

void Form1::connectPanel() {
    MMLEDX1.ToolTipText = "Media Status";
    btnPlay.ToolTipText = "Play New File";
    btnPause.ToolTipText = "Pause";
    btnStop.ToolTipText = "Stop";
    btnMute.ToolTipText = "Mute";
    btnDelete.ToolTipText = "Delete";
    btnHelp.ToolTipText = "Help";
    btnPlay.Click = handler([this] { btnPlay_Click(); });
    btnPlayCurrent.Click = handler([this] { btnPlayCurrent_Click(); });
    btnPlayCurrent.MouseMove = handler([this] { btnPlayCurrent_MouseMove(); });
    btnPause.Click = handler([this] { btnPause_Click(); });
    btnStop.Click = handler([this] { btnStop_Click(); });
    btnMute.Click = handler([this] { MuteMenu_Click(); });
    btnMute.MouseMove = handler([this] { btnMute_MouseMove(); });
    btnDelete.Click = handler([this] { btnDelete_Click(); });
    btnHelp.Click = handler([this] { infomenu_Click(); });
    slidTracker.Change = handler([this] { slidTracker_Change(); });
    slidTracker.Scroll = handler([this] { slidTracker_Change(); });
    MMLEDSpinX1.Change = handler([this] { MMLEDSpinX1_Change(); });
    MMLEDSpinX2.Change = handler([this] { MMLEDSpinX2_Change(); });
    slidBalance.Change = handler([this] { slidBalance_Change(); });
    slidBalance.Scroll = handler([this] { slidBalance_Change(); });
    cmdBalance0.Click = handler([this] { cmdBalance0_Click(); });
}

void Form1::connectDragging() {
    const auto drags = [this](MouseEvents &part) {
        part.MouseDown = handler([this](double x, double y) { WindowMover.HandleMouseDown(x, y); });
        part.MouseMove = handler([this](double x, double y) { WindowMover.HandleMouseMove(x, y); });
        part.MouseUp = handler([this] { WindowMover.HandleMouseUp(); });
    };
    const auto draws = [&](auto &...parts) { (drags(parts), ...); };
    draws(static_cast<Form &>(*this), framePanel, Label3, lblTime, lblLength, lblProgress, lblVolume, lblMasterVolume,
          lblBalance, MMLEDDigitX1, MMLEDX1, MMLEDGaugeX1, MMLevelScaleX1, MMLEDSpinX1, MMLEDSpinX2);
    for (auto *group :
         {&CurPosLEDHour, &CurPosLEDMinute, &CurPosLEDSecond, &TotalLEDHour, &TotalLEDMinute, &TotalLEDSecond})
        for (LedDigit &digit : *group) drags(digit);
}

void Form1::connectEngines() {
    ActiveMovie1.OpenStateChange = handler([this](OpenState, OpenState) { ActiveMovie1_OpenStateChange(); });
    ActiveMovie1.PlayStateChange = handler([this](PlayState, PlayState state) { ActiveMovie1_PlayStateChange(state); });
    ActiveMovie1.MouseMove = handler([this](auto...) { ActiveMovie1_MouseMove(); });
    ActiveMovie1.MouseUp = handler([this](std::int16_t button, auto...) { ActiveMovie1_MouseUp(button); });
    Timer1.Tick = handler([this] { Timer1_Timer(); });
    Timer2.Tick = handler([this] { Timer2_Timer(); });
    Timer3.Tick = handler([this] { Timer3_Timer(); });
    CDR_Timer.Tick = handler([this] { CDR_Timer_Timer(); });
}

bool Form1::settingIsOn(CheckBox Settings::*box) {
    bool on = false;
    attempt([&] { on = (*app_.settings.*box).Value == 1; });
    return on;
}

void Form1::readBaseSize() {
    attempt([&] { OriginalWidth = toInt32(Width); });
    attempt([&] { OriginalHeight = toInt32(Height); });
    attempt([&] { VideoMargin = toInt32(ActiveMovie1.Left); });
}

void Form1::Form_Load() {
    WindowMover.Form(this);
    readBaseSize();
    app_.MainLoadInProgress = true;
    loadVolumes();
    Label3.Caption = "";
    Text1.Text = "";
    if (settingIsOn(&Settings::Check2)) restorePosition();
    Width = OriginalWidth;
    Height = OriginalHeight;
    for (MenuEntry *entry :
         {&playcurrentmenu, &PauseMenu, &PauseMenuPop, &DeleteMenu, &DeleteMenu2, &zoom, &playcurrentpop})
        entry->Enabled = false;
    loadRecentFiles();
    if (settingIsOn(&Settings::Check3)) StayOnTop(*this);
    Show();
    Refresh();
    deleteLeftover();
    attempt([&] {
        if (app_.services.associations != nullptr)
            app_.services.associations->FileAssociator("ply", kPlaylistDescription, kPlaylistDescription);
    });
    if (!openCommandLine()) return;
    app_.MainLoadInProgress = false;
    app_.settings.Unload();
}

void Form1::restorePosition() {
    FormPos = std::make_unique<CFormPos>(app_);
    FormPos->Form(this);
    FormPos->RegistryPath = kPositionsPath;
    FormPos->SubKey = "Form Positions";
    if (!FormPos->RestoreForm(KeepOnScreen::No)) FormPos->CenterForm();
}

void Form1::loadRecentFiles() {
    RecentFiles.RootKey = RootKey::LocalMachine;
    RecentFiles.RegistryPath = kRecentFilesPath;
    RecentFiles.SubKey = "MRU Entries";
    RecentFiles.Prefix = "MRU";
    RecentFiles.TagPrefix = "MRUTag";
    for (std::size_t i = 0; i < mnuFileMRU.size(); ++i)
        RecentFiles.MenuItem(static_cast<std::int16_t>(i), &mnuFileMRU[i]);
    RecentFiles.GetMRUList();
}

// A program of an early release, which nothing uses any more.
void Form1::deleteLeftover() {
    FileService &files = app_.services.files;
    const std::string leftover = joinPath(app_.services.program.directory, kLeftoverProgram);
    attempt([&] {
        if (files.fileExists(leftover)) files.deleteFile(leftover);
    });
}

std::string Form1::commandLinePath() const { return withoutOuterQuotes(trimBlanks(app_.services.program.commandLine)); }

// Returns whether the load goes on.
bool Form1::openCommandLine() {
    const std::string path = commandLinePath();
    bool exists = false;
    attempt([&] { exists = !path.empty() && app_.services.files.fileExists(path); });
    return !exists || openFromCommandLine(path);
}

void Form1::Form_Unload(std::int16_t & /*cancel*/) {
    TrayX1.Visible = false;
    if (settingIsOn(&Settings::Check2) && FormPos) FormPos->SaveForm();
    attempt([&] { ActiveMovie1.Stop(); });
    attempt([&] { CDReader->StopPlay(); });
    attempt([&] { CDReader->CloseDevice(); });
    attempt([&] { app_.saveSetting(setting::kVolume, std::to_string(MMLEDSpinX1.Value())); });
    if (MuteMenu.Caption == caption::kUnMute) MuteMenu_Click();
    closeBatchConverter();
    CloseForms(app_, *this);
    // Nothing that waits in the loop may reach a window that is gone.
    for (Timer *timer : {&Timer1, &Timer2, &Timer3, &CDR_Timer}) timer->Enabled(false);
    ActiveMovie1.shutDown();
}

void Form1::closeBatchConverter() {
    attempt([&] {
        WindowSearch search(app_.services.windows);
        const std::string title = std::string("*") + batch_converter::kTitle + "*";
        search.FindWindowLike(kDesktopWindow, kFormClassPattern, title, SearchFor::All);
        for (const WindowInfo &window : search.found())
            attempt([&] { app_.services.windows.sendClose(window.handle); });
    });
}

void registerPlayerWindows(Application &app) {
    app.form1.setFactory([&app] { return std::make_unique<Form1>(app); });
}

} // namespace tonvale
