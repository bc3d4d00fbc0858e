// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// Every key of the settings store, exact to the letter: "Temp  Location" has two blanks, the list
// windows write "Always OnTop" and the main window "Always Ontop", and "Vide" lacks its o.

namespace tonvale::setting {

inline constexpr const char *kSection = "Settings";
inline constexpr const char *kAssociationBackups = "Assoc Backups";

// Check box form, "0" or "1".
inline constexpr const char *kMultiInstances = "Multi-Instances";
inline constexpr const char *kPosition = "Position";
inline constexpr const char *kAlwaysOntop = "Always Ontop";
inline constexpr const char *kConfirmDelete = "Confirm Delete";
inline constexpr const char *kLoopOther = "Loop Other";
inline constexpr const char *kSameInstanceLoad = "Same Instance Load";

// Path form.
inline constexpr const char *kTempLocation = "Temp  Location";
inline constexpr const char *kOpenMediaDirectory = "Common Dialog Dir";
inline constexpr const char *kLoadListDirectory = "Common Dialog Dir 2";
inline constexpr const char *kAddAudioDirectory = "Common Dialog Dir 3";
inline constexpr const char *kLoadPictureListDirectory = "Common Dialog Dir 4"; // Vivo and video lists share it
inline constexpr const char *kAddPictureDirectory = "Common Dialog Dir 5";      // as they do this one
inline constexpr const char *kAddWavDirectory = "Common Dialog Dir 398";
inline constexpr const char *kAddMp3Directory = "Common Dialog Dir 399";

// Integer form.
inline constexpr const char *kVolume = "Volume";

// Boolean form, "True" or "False".
inline constexpr const char *kVideoListFullScreen = "Vide Playlist Full Screen";
inline constexpr const char *kCddbPrompt = "CDDB Enter Prompt";
inline constexpr const char *kLoopNoticeDue = "ShowMsg2";
inline constexpr const char *kWebNoticeDue = "ShowMsg3";
inline constexpr const char *kPipelineNoticeDue = "ShowMsg4";
inline constexpr const char *kWavQualityNoticeDue = "ShowMsg222";

// The list windows' own applications and keys.
inline constexpr const char *kAudioListApplication = "Audio PlayList";
inline constexpr const char *kVivoListApplication = "Vivo PlayList";
inline constexpr const char *kVideoListApplication = "Video PlayList";
inline constexpr const char *kListAlwaysOnTop = "Always OnTop";
inline constexpr const char *kListLoop = "Loop";

} // namespace tonvale::setting
