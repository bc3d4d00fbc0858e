// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>

// The captions that carry the player's state. Other windows compare and write them, too.

namespace tonvale::caption {

inline constexpr const char *kLoadAndPlay = "&Load and Play File"; // playmenu: idle
inline constexpr const char *kStop = "&Stop";                      // playmenu, playnewpop: running
inline constexpr const char *kPlayNew = "&Play New File";          // playnewpop: idle
inline constexpr const char *kPause = "Pa&use";                    // PauseMenu: running
inline constexpr const char *kResume = "&Resume";                  // PauseMenu: paused
inline constexpr const char *kMute = "&Mute";                      // MuteMenu: sound on
inline constexpr const char *kUnMute = "&Un-Mute";                 // MuteMenu: master volume at 0
inline constexpr const char *kRollUp = "&Roll Up";                 // rollmenu: at full height
inline constexpr const char *kRollDown = "&Roll Down";             // rollmenu: rolled up
inline constexpr const char *kPictureHint = "Right-Click for Options...";

} // namespace tonvale::caption

// Colours of the lamp: blue * 65536 + green * 256 + red.
namespace tonvale::lamp {

inline constexpr std::int32_t kIdle = 255;      // red
inline constexpr std::int32_t kRunning = 65280; // green
inline constexpr std::int32_t kPaused = 65535;  // yellow

} // namespace tonvale::lamp
