// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "playlists/ListVariant.h"

#include "core/setting_keys.h"
#include "player/media_kinds.h"
#include "playlists/AudioListEngine.h"

#include <array>

namespace tonvale {

namespace {

using Texts = std::string_view;

// What the dialog offers, what a dropped folder gives, what is taken when dropped by itself and
// what plays are four sets, and no two of them are equal.
constexpr const char *kAudioPattern =
    "*.cda;*.mp3;*.mp2;*.wav;*.asf;*.aif;*.au;*.aiff;*.mid;*.midi;*.rmi;*.snd;*.ra;*.ram;*.rpm";
constexpr const char *kAudioFilter =
    "Audio Files|*.cda;*.mp3;*.mp2;*.wav;*.asf;*.aif;*.au;*.aiff;*.mid;*.midi;*.rmi;*.snd;*.ra;*.ram;*.rpm";
constexpr std::array<Texts, 17> kAudioDropped{".mp2", ".mp3", ".asf",  ".wav",  ".aif",  ".ram", ".rmm", ".rpm", ".mid",
                                              ".rmi", ".snd", ".aifc", ".aiff", ".midi", ".ra",  ".rm",  ".au"};
constexpr std::array<Texts, 18> kAudioPlayed{".mp3",  ".mp2", ".wav", ".asf", ".aif", ".au",  ".aiff", ".aifc", ".mid",
                                             ".midi", ".rmi", ".snd", ".ra",  ".ram", ".rmm", ".rm",   ".rpm",  ".cda"};

constexpr const char *kVivoPattern = "*.viv;*.vivo";
constexpr const char *kVivoFilter = "Vivo Files|*.viv;*.vivo";

// The third pattern lacks its dot: any name that ends in these letters matches.
constexpr const char *kVideoPattern = "*.avi;*.mov;*mpg;*.mpeg;*.dat;*.m1v;*.enc;*.qt;*.mpv;*.mpa";
constexpr const char *kVideoFilter = "Video Files|*.avi;*.mov;*mpg;*.mpeg;*.dat;*.m1v;*.enc;*.qt;*.mpv;*.mpa";

constexpr const char *kExit = "E&xit", *kExitByHook = "E&xit\tCtrl + Alt + X";

} // namespace

constinit const ListVariant kAudioList{
    .name = "frmPlayList",
    .caption = "Audio PlayList",
    .application = setting::kAudioListApplication,
    .loadDirectoryKey = setting::kLoadListDirectory,
    .addDirectoryKey = setting::kAddAudioDirectory,
    .addTitle = "Select Audio Files:",
    .addFilter = kAudioFilter,
    .folderPattern = kAudioPattern,
    .droppedEndings = kAudioDropped,
    .playedExtensions = kAudioPlayed,
    .otherExtension = OtherExtension::StopList,
    .makeEngine = makeAudioListEngine,
    .playing = {"Playing File: ", NameShown::FileName},
    .playingNext = {"Playing File:  ", NameShown::FileName},
    .Label1AtStop = "Play Halted.",
    .Label2AtStop = "PlayList Halted.",
    .notPlaying = "The playlist is not currently playing.",
    .emptyLine3 = "in your PlayList first in order to proceed.",
    .emptyLine5 = "to PlayList\" from the toolbar,  \"Add\" from",
    .exitCaption = kExit,
    .exitShortcut = "Ctrl+X",
    .hotKeysFirst =
        "Use the following HotKeys at any time while the Audio Playlist is running to perform the given tasks:",
    .hotKeysLast = "Control +  X            =   Exit",
    .closeDuringRun = CloseDuringRun::Ask,
    .pollingAtClose = PollingAtClose::Stopped,
    .viewerAtClose = ViewerAtClose::None,
    .viewerAfterQueue = ViewerAfterQueue::None,
    .whileOpening = WhileOpening::Inactive,
    .volumeAtItem = VolumeAtItem::Restored,
    .enginesStopped = EnginesStopped::MediaFirst,
    .deselectEntry = DeselectEntry::Present,
};

constinit const ListVariant kVivoList{
    .name = "frmVivoPlayList",
    .caption = "Vivo PlayList",
    .application = setting::kVivoListApplication,
    .loadDirectoryKey = setting::kLoadPictureListDirectory,
    .addDirectoryKey = setting::kAddPictureDirectory,
    .addTitle = "Select Vivo Files:",
    .addFilter = kVivoFilter,
    .folderPattern = kVivoPattern,
    .droppedEndings = media::kVivo,
    .playedExtensions = media::kVivo,
    .otherExtension = OtherExtension::SkipItem,
    .makeEngine = nullptr,
    .playing = {"Playing List... ", NameShown::Path},
    .playingNext = {"Playing List... ", NameShown::Path},
    .Label1AtStop = nullptr,
    .Label2AtStop = "PlayList Halted.",
    .notPlaying = "The playlist is not currently playing.",
    .emptyLine3 = "in your PlayList first in order to proceed.",
    .emptyLine5 = "to PlayList\" from the toolbar,  \"Add\" from",
    .exitCaption = kExitByHook,
    .exitShortcut = nullptr,
    .hotKeysFirst =
        "Use the following HotKeys at any time while the Vivo Playlist is running to perform the given tasks:",
    .hotKeysLast = "Ctrl + Alt +  X            =   Exit",
    .closeDuringRun = CloseDuringRun::GoOn,
    .pollingAtClose = PollingAtClose::Untouched,
    .viewerAtClose = ViewerAtClose::Left,
    .viewerAfterQueue = ViewerAfterQueue::Closed,
    .whileOpening = WhileOpening::Inactive,
    .volumeAtItem = VolumeAtItem::Left,
    .enginesStopped = EnginesStopped::DiscFirst,
    .deselectEntry = DeselectEntry::Absent,
};

constinit const ListVariant kVideoList{
    .name = "frmVideoPlayList",
    .caption = "Video PlayList",
    .application = setting::kVideoListApplication,
    .loadDirectoryKey = setting::kLoadPictureListDirectory,
    .addDirectoryKey = setting::kAddPictureDirectory,
    .addTitle = "Select Video Files:",
    .addFilter = kVideoFilter,
    .folderPattern = kVideoPattern,
    .droppedEndings = media::kVideo,
    .playedExtensions = media::kVideo,
    .otherExtension = OtherExtension::SkipItem,
    .makeEngine = nullptr,
    .playing = {"Playing List... ", NameShown::Path},
    .playingNext = {"Playing List... ", NameShown::Path},
    .Label1AtStop = nullptr,
    .Label2AtStop = "Play Halted.",
    .notPlaying = "The playlist is not currently being played.",
    .emptyLine3 = "in your playlist first in order to proceed.",
    .emptyLine5 = "to Playlist\" from the toolbar,  \"Add\" from",
    .exitCaption = kExitByHook,
    .exitShortcut = nullptr,
    .hotKeysFirst =
        "Use the following HotKeys at any time while the Video playlist is running to perform the given tasks:",
    .hotKeysLast = "Ctrl + Alt +  X            =   Exit",
    .closeDuringRun = CloseDuringRun::GoOn,
    .pollingAtClose = PollingAtClose::Untouched,
    .viewerAtClose = ViewerAtClose::Closed,
    .viewerAfterQueue = ViewerAfterQueue::Disabled,
    .whileOpening = WhileOpening::Active,
    .volumeAtItem = VolumeAtItem::Left,
    .enginesStopped = EnginesStopped::DiscFirst,
    .deselectEntry = DeselectEntry::Absent,
};

} // namespace tonvale
