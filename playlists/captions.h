// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// The captions that carry a list's state, beside those that it shares with the main window.

namespace tonvale::list_caption {

inline constexpr const char *kPlay = "&Play";              // playmenu: idle
inline constexpr const char *kPause = "Pa&use\tAlt + P";   // PauseMenu
inline constexpr const char *kResume = "&Resume\tAlt + R"; // PauseMenu: paused
inline constexpr const char *kPrevious = "Seek Pre&vious\t-";
inline constexpr const char *kNext = "Seek &Next\t+";

} // namespace tonvale::list_caption
