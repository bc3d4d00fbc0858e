// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "playlists/PlaylistWindow.h"

#include <string>

namespace tonvale {

namespace {

namespace key {
constexpr std::int32_t kSpace = 32, kH = 72, kM = 77, kP = 80, kX = 88, kPlus = 107, kMinus = 109;
} // namespace key

// A key that is held down while its action waits, or has a box up, starts the action anew at each
// repeat. The stack has room for more than anybody means.
constexpr int kMostHotKeysAtOnce = 32;

constexpr std::uint32_t kLowWord = 0xFFFF, kFirstItem = 512, kSecondItem = 513;

} // namespace

void PlaylistWindow::WinHook1_KeyDown(std::int32_t keyCode) {
    struct Running {
        explicit Running(int &running) : count(running) { ++count; }
        ~Running() { --count; }
        int &count;
    };
    if (closed_ || hotKeysRunning_ == kMostHotKeysAtOnce) return;
    const Running running(hotKeysRunning_);
    switch (keyCode) {
    case key::kSpace: playmenu_Click(); break;
    case key::kH: HotKeyMenu_Click(); break;
    case key::kM: MuteMenu_Click(); break;
    case key::kP: PauseMenu_Click(); break;
    case key::kX: Unload(); break;
    case key::kPlus: NextMenu_Click(); break;
    case key::kMinus: PrevMenu_Click(); break;
    default: break;
    }
}

void PlaylistWindow::HotKeyMenu_Click() {
    app_.box(std::string(variant_.hotKeysFirst) +
                 "\r\n\r\n"
                 "Control +  Space   =   Play / Stop Toggle\r\n"
                 "Control +  P            =   Pause\r\n"
                 "Control +  +            =   Seek Next (+ Numeric KeyPad)\r\n"
                 "Control +  -             =   Seek Previous (- Numeric KeyPad)\r\n"
                 "Control +  M           =   Mute\r\n"
                 "Control +  H           =   HotKey Information (this window)\r\n" +
                 variant_.hotKeysLast,
             BoxIcon::Information, BoxPlace::Foreground, BoxButtons::Ok, "Hot Key Information...");
}

// The window's system menu has no such items; a message from outside may name them.
bool PlaylistWindow::SystemCommand(std::uint32_t command) {
    const std::uint32_t item = command & kLowWord;
    if (!subclass_.isHooked() || (item != kFirstItem && item != kSecondItem)) return false;
    handler([this, item] { Process_SYSCOMMAND(item == kFirstItem ? 1 : 2); })();
    return true;
}

void PlaylistWindow::Process_SYSCOMMAND(std::int16_t choice) {
    if (choice == 1) {
        app_.box("Choice 1 selected.", BoxIcon::Information, BoxPlace::Normal);
        return;
    }
    systemItemChecked_ = !systemItemChecked_;
    app_.box(std::string("Gee, choice 2 selected! ") + (systemItemChecked_ ? "Now checked." : "Now unchecked."),
             BoxIcon::Information, BoxPlace::Normal);
}

} // namespace tonvale
