// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/CDReader.h"
#include "controls/Controls.h"
#include "controls/Form.h"
#include "controls/Loop.h"
#include "controls/MMPropertiesX.h"
#include "controls/MediaPlayer.h"
#include "controls/TrayX.h"
#include "controls/WinHook.h"
#include "core/Application.h"
#include "core/shared_windows.h"
#include "desktop/CCaptionlessWindowMover.h"
#include "desktop/CFormPos.h"
#include "desktop/CMRU.h"
#include "desktop/clsCommonDialog.h"
#include "player/Form1Menus.h"
#include "player/VolumeControl.h"

#include <array>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>

namespace tonvale {

// The main window: the player's panel, its menus and its engines. It keeps no state variable; the
// state is in the captions of its menu entries, in Text1 and in its timers, and other windows read
// and write them.
class Form1 : public MainWindow, public Form1Menus {
public:
    explicit Form1(Application &app);
    ~Form1() override;

    // ---- panel ----
    TextBox Text1; // path of the current media, outside the visible area
    Label Label3;  // the name of what is playing
    Label lblTime{"Time"}, lblLength{"Length"}, lblProgress{"Play Progress"};
    Label lblVolume{"Tonvale Volume"}, lblMasterVolume{"Master Volume"}, lblBalance{"Balance"};
    Frame framePanel;
    std::array<LedDigit, 2> CurPosLEDHour, CurPosLEDMinute, CurPosLEDSecond; // [0] tens, [1] units
    std::array<LedDigit, 2> TotalLEDHour, TotalLEDMinute, TotalLEDSecond;
    LedDigit MMLEDDigitX1{LedDigit::Kind::Colon};
    Led MMLEDX1;
    LedGauge MMLEDGaugeX1;
    LevelScale MMLevelScaleX1;
    Slider slidTracker{0, 0};
    LedSpin MMLEDSpinX1{100}; // player volume, per cent
    LedSpin MMLEDSpinX2{0};   // master volume, per cent
    Slider slidBalance{-10000, 10000, 1000};
    CommandButton cmdBalance0;
    CommandButton btnPlay, btnPlayCurrent, btnPause, btnStop, btnMute, btnDelete, btnHelp;

    // ---- engines and timers ----
    MediaPlayer ActiveMovie1;
    std::unique_ptr<tonvale::CDReader> CDReader;
    Timer Timer1, Timer2, Timer3, CDR_Timer;

    // ---- the desktop ----
    TrayX TrayX1;
    WinHook WinHook1;
    MMPropertiesX MMProps;

    // ---- for other windows ----
    // Brings the window back to Idle.
    void PlayStopped();
    [[nodiscard]] bool isRunning() const; // or paused
    // Splits seconds into HourText, MinuteText and SecondText, and writes them into `text`: with
    // `clockForm` as "00:01:40", else as words, short ones with `shortForm`.
    void ConvertSeconds(std::int32_t seconds, bool clockForm, bool shortForm, std::string &text);
    void mailmemenu_Click() override;
    void visitmemenu_Click() override;

    std::string HourText, MinuteText, SecondText;
    std::int32_t OriginalWidth = 0, OriginalHeight = 0; // twips
    std::int32_t VideoMargin = 0;                       // twips
    std::int32_t CurrentTrack = 0;                      // zero-based
    std::string LastOpenName, RaPath;
    bool DeleteDeclined = false; // the question before a deletion was answered with No
    CMRU RecentFiles;

    void Form_LinkExecute(std::string &commandString, std::int16_t &cancel) override;

private:
    // Whether starting a CD track greys the entry `zoom`.
    enum class ZoomEntry { Disable, Leave };
    struct FrameSize {
        std::int32_t width = 0, height = 0; // twips
    };

    // ---- load, unload (Form1.cpp) ----
    void Form_Load() override;
    void Form_Unload(std::int16_t &cancel) override;
    void connectPanel();
    void connectDragging();
    void connectEngines();
    void placePicture();
    void readBaseSize();
    void restorePosition();
    void loadRecentFiles();
    void deleteLeftover();
    [[nodiscard]] std::string commandLinePath() const;
    bool openCommandLine();
    void closeBatchConverter();
    bool settingIsOn(CheckBox Settings::*box);

    // ---- menus.cpp ----
    using Action = void (Form1::*)();
    void connectMenus();
    void connectPlayback();
    void connectFileActions();
    void connectZoom();
    void connectDesktop();
    void connectWindows();
    // One action behind an entry of the main menu and its twins in the pop-ups.
    void connect(Action action, std::initializer_list<MenuEntry *> entries);
    void WinHook1_KeyDown(std::int32_t keyCode);
    void CDDBMenu_Click();

    // ---- file_actions.cpp ----
    struct VendorAddress {
        std::string address, withoutProgram, notFound;
    };
    void DeleteMenu_Click();
    void deleteFile(const std::string &path);
    void btnDelete_Click();
    void infomenu_Click();
    void openAddress(const VendorAddress &target);
    void ClearDocMenu_Click();
    void ClearMRUMenu_Click();
    void WAVConvertMenu_Click();

    // ---- tray.cpp ----
    void connectTray();
    void traymenu_Click();
    void restoreFromTray();

    // ---- video.cpp ----
    void FitWindowToVideo();
    FrameSize frameForPicture();
    // Returns whether the frame has room on the screen; else the picture covers the screen.
    bool fitWindow(FrameSize frame);
    void zoomTo(std::int32_t displaySize);
    void original_Click();
    void FullZoomMenu_Click();
    void FullScreenAdvMenu_Click();
    void FileMenu_Click();
    void zoom_Click();
    void rollmenu_Click();
    void StartSSMenu_Click();
    [[nodiscard]] bool isVivo();
    enum class VivoSize { Window, FullScreen };
    void showVivo(VivoSize size);

    // ---- transport.cpp ----
    // Brings the window to Running.
    void MediaStarted(std::int32_t seconds);
    void playmenu_Click();
    void stopCurrent();
    void switchLoopOff();
    void StopMenu_Click();
    void ControlsMenu_Click();
    void PauseMenu_Click();
    void pauseCurrent(const std::string &extension);
    void resumeCurrent(const std::string &extension);
    void MuteMenu_Click();
    void btnPlay_Click();
    void btnPlayCurrent_Click();
    void btnPlayCurrent_MouseMove();
    void btnPause_Click();
    void btnStop_Click();
    void btnMute_MouseMove();

    // ---- engine_events.cpp ----
    void ActiveMovie1_OpenStateChange();
    void ActiveMovie1_PlayStateChange(PlayState state);
    void ActiveMovie1_MouseMove();
    void ActiveMovie1_MouseUp(std::int16_t button);
    FrameSize askForRealVideo();

    // ---- panel.cpp ----
    void Timer1_Timer();
    void Timer2_Timer();
    void Timer3_Timer();
    void CDR_Timer_Timer();
    void slidTracker_Change();
    void SetTrackerFromCD(std::int32_t value);
    void showDigits(std::array<LedDigit, 2> &group, const std::string &digits);
    void danceGauge();

    // ---- volume.cpp ----
    void loadVolumes();
    void MMLEDSpinX1_Change();
    void MMLEDSpinX2_Change();
    void slidBalance_Change();
    void cmdBalance0_Click();

    // ---- cd_track.cpp ----
    // Waits up to 15 seconds for the disc, then plays the track of this name. False: gave up.
    bool StartCDTrack(const std::string &name, ZoomEntry zoomEntry);
    bool waitForDisc();
    std::int32_t trackOf(const std::string &name);
    [[nodiscard]] const CdTrack &currentCdTrack() const;
    [[nodiscard]] std::string audioTrackName() const;

    // ---- open_roads.cpp ----
    void Announce(std::string path);
    void StopEngines();
    void StartVivo(std::string path);
    void StartMedia(std::string path);
    void openInEngine(std::string path);
    void OpenPlaylist(const std::string &path);
    // Moves song.ram to song.ra, whose path stays in RaPath. False: the user has been told why.
    bool RenameRam(const std::string &path);
    bool askToRename(const char *question);
    void setCurrent(const std::string &path);
    bool openFromCommandLine(const std::string &path);
    void openRamFromCommandLine(const std::string &path);
    void execute(std::string &commandString);
    void openFromDesktop(const std::string &path);
    std::string chooseMediaFile();
    void openFromDialog();
    void openChosen(const std::string &path, const std::string &extension);
    void openRamFromDialog(const std::string &path);
    void mnuFileMRU_Click(std::size_t index);
    void playcurrentmenu_Click();

    Application &app_;
    VolumeControl VolumeControl_;
    CCaptionlessWindowMover WindowMover;
    std::unique_ptr<CFormPos> FormPos;
    std::unique_ptr<clsCommonDialog> CommonDialog; // made at first use
    bool TrackerBusy = false, CDTrackerBusy = false;
    CdTime CDPausePosition{};
    std::int32_t CDWaitStart = 0;
    Connection chrome_, visible_, trayVisible_;
};

} // namespace tonvale
