// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Application.h"
#include "playlists/ListEngine.h"

#include <memory>
#include <span>
#include <string_view>

namespace tonvale {

enum class OtherExtension { StopList, SkipItem };       // an item that cannot be played
enum class WhileOpening { Inactive, Active };           // whether PlayActive holds in the pause before an item
enum class VolumeAtItem { Restored, Left };             // an item begins as loud as the slider says
enum class EnginesStopped { MediaFirst, DiscFirst };    // those of the main window, as a run starts
enum class CloseDuringRun { Ask, GoOn };                // what closing a running list does
enum class PollingAtClose { Stopped, Untouched };       // as closing begins
enum class ViewerAtClose { None, Left, Closed };        // the viewer, as the list closes
enum class ViewerAfterQueue { None, Disabled, Closed }; // the viewer, when the last item has ended
enum class DeselectEntry { Present, Absent };           // in the list's own menu
enum class NameShown { FileName, Path };

// How an item is announced: the words, the name, and in parentheses the count.
struct PlayingText {
    std::string_view words;
    NameShown name = NameShown::FileName;
};

// All that differs between the three list windows.
struct ListVariant {
    const char *name;
    const char *caption;
    const char *application; // of the settings
    const char *loadDirectoryKey, *addDirectoryKey;
    const char *addTitle, *addFilter;
    const char *folderPattern;                          // of a dropped folder
    std::span<const std::string_view> droppedEndings;   // of a dropped file, in lower case
    std::span<const std::string_view> playedExtensions; // in lower case
    OtherExtension otherExtension;
    std::unique_ptr<ListEngine> (*makeEngine)(Application &); // null where its viewer is still to come
    PlayingText playing, playingNext;
    const char *Label1AtStop; // null: left alone
    const char *Label2AtStop;
    const char *notPlaying;                 // box: Pause without a run
    const char *emptyLine3, *emptyLine5;    // box: an empty list
    const char *exitCaption, *exitShortcut; // null: no shortcut
    const char *hotKeysFirst, *hotKeysLast; // box: hot keys
    CloseDuringRun closeDuringRun;
    PollingAtClose pollingAtClose;
    ViewerAtClose viewerAtClose;
    ViewerAfterQueue viewerAfterQueue;
    WhileOpening whileOpening;
    VolumeAtItem volumeAtItem;
    EnginesStopped enginesStopped;
    DeselectEntry deselectEntry;
};

extern const ListVariant kAudioList, kVivoList, kVideoList;

} // namespace tonvale
