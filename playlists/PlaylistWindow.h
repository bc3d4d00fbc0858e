// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Controls.h"
#include "controls/Toolbar.h"
#include "controls/WinHook.h"
#include "core/Application.h"
#include "core/shared_windows.h"
#include "desktop/clsCommonDialog.h"
#include "desktop/list_editing.h"
#include "player/VolumeControl.h"
#include "playlists/FileListBox.h"
#include "playlists/ListEngine.h"
#include "playlists/ListMenus.h"
#include "playlists/ListVariant.h"
#include "playlists/Subclass.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tonvale {

// A list window: its rows are what List1 holds, and a run plays a snapshot of them. What makes it
// the audio, Vivo or video list is in its ListVariant alone.
class PlaylistWindow : public ListWindow, public ListMenus {
public:
    PlaylistWindow(Application &app, const ListVariant &variant,
                   Subclass::Installer installer = &Subclass::installProcedure);
    ~PlaylistWindow() override;

    Toolbar Toolbar1;
    Slider Slider1{0, 100, 10}; // master volume, per cent
    Label Label1{"0"};          // what the slider says
    Frame Picture2;             // the line between the volume and the rows
    Label Label2;               // what is played
    WinHook WinHook1;

    bool ListSaved = false;
    std::int32_t MaxRowExtent = 0;
    std::vector<std::string> PlayQueue; // of the run; empty when there is none
    std::int32_t QueuePos = 0;
    bool PlayActive = false; // a run may go on; False while an item is being opened
    std::string CurrentFile;

    [[nodiscard]] ListEngine &engine() { return *engine_; }
    [[nodiscard]] bool SystemItemChecked() const { return systemItemChecked_; }
    // A command of the system menu, in the low 16 bits. Returns whether it was one of this window's.
    bool SystemCommand(std::uint32_t command);

private:
    // ---- PlaylistWindow.cpp ----
    void connectMenus();
    void connectParts();
    void click(MenuEntry &entry, MenuEntry &popUp, void (PlaylistWindow::*action)());
    void Toolbar1_ButtonClick(const std::string &key);
    BoxResult tell(const std::string &text);

    // ---- frame.cpp: load, unload, layout ----
    void Form_Load() override;
    void Form_QueryUnload(std::int16_t &cancel) override;
    void Form_Unload(std::int16_t &cancel) override;
    void Form_Resize() override;
    void Form_KeyPress(std::int16_t &keyAscii) override;
    void loadMarks();
    void giveFullCaptions();
    void bindToolbarPictures();
    void takeLeastSize();
    void hookWindow();
    void saveMarks();
    void askToSave(std::int16_t &cancel);
    void layOut();
    void OntopMenu_Click();
    void LoopMenu_Click();

    // ---- hot_keys.cpp ----
    void WinHook1_KeyDown(std::int32_t keyCode);
    void HotKeyMenu_Click();
    void Process_SYSCOMMAND(std::int16_t choice);

    // ---- list_file.cpp: the .ply file, wide rows ----
    void LoadMenu_Click();
    void SaveMenu_Click();
    void writeRows(const std::string &path);
    clsCommonDialog &dialog();
    void setRowExtent();

    // ---- editing.cpp ----
    [[nodiscard]] bool mayEdit();
    void RefreshCommands();
    void NewMenu_Click();
    void AddMenu_Click();
    void RemoveMenu_Click();
    void removeFromToolbar();
    void MoveUpMenu_Click() { moveRow(MoveRow::Up); }
    void MoveDownMenu_Click() { moveRow(MoveRow::Down); }
    void moveRow(MoveRow direction);
    void DeselectMenu_Click();

    // ---- drop.cpp ----
    void Form_DropFiles(const std::vector<std::string> &names) override;
    void Process_DROPFILES(const std::vector<std::string> &names);
    [[nodiscard]] std::vector<std::string> rowsOf(const std::string &dropped);
    [[nodiscard]] bool isAccepted(const std::string &file) const;
    [[nodiscard]] std::vector<std::string> filesOfFolder(const std::string &folder);

    // ---- run.cpp ----
    enum class Opened { Done, Failed, Skipped };
    void playmenu_Click();
    void startRun();
    void stopRun();
    void stopMainPlayer();
    [[nodiscard]] std::vector<std::string> rowsToPlay() const;
    void enableSeek(bool enabled);
    void PlayCurrentItem();
    Opened openCurrentItem();
    Opened openItem(ListItem item);
    void pauseBetweenItems();
    void AdvanceList();
    void seekNext();
    void NextMenu_Click();
    void PrevMenu_Click();
    void PauseMenu_Click();
    void MuteMenu_Click();
    void Slider1_Change();
    void showPlaying(const PlayingText &text);
    void takeQueueEntry();
    [[nodiscard]] bool isAtEntry() const;
    [[nodiscard]] ListItem itemOf(const std::string &path) const;

    Application &app_;
    const ListVariant &variant_;
    std::unique_ptr<ListEngine> engine_;
    VolumeControl VolumeControl_;
    FileListBox File1;
    Subclass subclass_;
    std::unique_ptr<clsCommonDialog> CommonDialog; // made at first use
    Connection chromeChanged_;
    int hotKeysRunning_ = 0;
    bool closed_ = false; // a handler that still runs has nothing left to do
    bool systemItemChecked_ = false;
};

} // namespace tonvale
