// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "playlists/PlaylistWindow.h"

#include "controls/Numbers.h"
#include "controls/Text.h"
#include "player/Form1.h"
#include "player/captions.h"
#include "playlists/captions.h"

#include <algorithm>
#include <cmath>

// A run goes through a snapshot of the rows. Whether it may advance is PlayActive: it is off while
// an item is being opened, so that the stops which that causes are not taken for an item's end.

namespace tonvale {

namespace {

constexpr double kPauseBetweenItems = 2;     // seconds
constexpr std::int32_t kTurnOfThePause = 10; // milliseconds

} // namespace

void PlaylistWindow::playmenu_Click() {
    if (playmenu.Caption == list_caption::kPlay)
        startRun();
    else
        stopRun();
}

void PlaylistWindow::startRun() {
    if (List1.ListCount() == 0) {
        tell(std::string("Your playlist is currently empty.  \r\n\r\nSelect the files you wish to be included\r\n") +
             variant_.emptyLine3 + "\r\n\r\n (To accomplish this, select \"Add File(s)\r\n" + variant_.emptyLine5 +
             "\r\nthe Edit menu, or simply press Ctrl + A)");
        return;
    }
    stopMainPlayer();
    playmenu.Caption = caption::kStop;
    List1.Enabled = false;
    PlayActive = true;
    QueuePos = 0;
    PlayQueue = rowsToPlay();
    enableSeek(PlayQueue.size() >= 2);
    RefreshCommands();
    PlayCurrentItem();
    showPlaying(variant_.playing);
}

void PlaylistWindow::stopMainPlayer() {
    const auto stopMedia = [&] { app_.form1->ActiveMovie1.Stop(); };
    const auto stopDisc = [&] { app_.form1->CDReader->StopPlay(); };
    const auto showIdle = [&] { app_.form1->PlayStopped(); };
    if (variant_.enginesStopped == EnginesStopped::MediaFirst)
        resumeNext(app_.Err, stopMedia, stopDisc, showIdle);
    else
        resumeNext(app_.Err, stopDisc, stopMedia, showIdle);
}

// The selected rows, or all of them when none is.
std::vector<std::string> PlaylistWindow::rowsToPlay() const {
    const bool all = List1.SelCount() == 0;
    std::vector<std::string> rows;
    for (std::size_t i = 0; i < List1.ListCount(); ++i)
        if (all || List1.Selected(i)) rows.push_back(List1.List(i));
    return rows;
}

void PlaylistWindow::stopRun() {
    PlayActive = false;
    Label2.Caption = variant_.Label2AtStop;
    engine_->stop();
    playmenu.Caption = list_caption::kPlay;
    List1.Enabled = true;
    PlayQueue.clear();
    enableSeek(false);
    RefreshCommands();
    if (variant_.Label1AtStop != nullptr) Label1.Caption = variant_.Label1AtStop;
}

void PlaylistWindow::enableSeek(bool enabled) {
    for (MenuEntry *entry : {&PrevMenu, &PrevPop, &NextMenu, &NextPop}) entry->Enabled = enabled;
}

bool PlaylistWindow::isAtEntry() const {
    return QueuePos >= 0 && static_cast<std::size_t>(QueuePos) < PlayQueue.size();
}

// Without a run there is no entry, and the last one's name stays.
void PlaylistWindow::takeQueueEntry() {
    if (isAtEntry()) CurrentFile = PlayQueue[static_cast<std::size_t>(QueuePos)];
}

ListItem PlaylistWindow::itemOf(const std::string &path) const {
    app_.paths.ParsePath(path, "e");
    return {path, app_.paths.ParsedBaseName, app_.paths.ParsedExtension};
}

void PlaylistWindow::showPlaying(const PlayingText &text) {
    if (!isAtEntry()) return;
    std::string name = PlayQueue[static_cast<std::size_t>(QueuePos)];
    if (text.name == NameShown::FileName) name = app_.paths.ParsePath(name, "f");
    Label2.Caption = std::string(text.words) + name + " (" + std::to_string(QueuePos + 1) + " of " +
                     std::to_string(PlayQueue.size()) + ")";
}

// An item that fails is followed by the next one, for as long as the run lasts.
void PlaylistWindow::PlayCurrentItem() {
    std::size_t skipped = 0;
    bool moved = false;
    for (Opened result = openCurrentItem(); result != Opened::Done && !PlayQueue.empty(); result = openCurrentItem()) {
        skipped = result == Opened::Skipped ? skipped + 1 : 0;
        if (skipped == PlayQueue.size()) { // not one that can be played
            playmenu_Click();
            return;
        }
        seekNext();
        moved = true;
    }
    if (moved) showPlaying(variant_.playingNext);
}

PlaylistWindow::Opened PlaylistWindow::openCurrentItem() {
    takeQueueEntry();
    const ListItem item = itemOf(CurrentFile);
    if (std::ranges::find(variant_.playedExtensions, lowerCase(item.extension)) != variant_.playedExtensions.end())
        return openItem(item);
    if (variant_.otherExtension == OtherExtension::SkipItem) return Opened::Skipped;
    playmenu_Click();
    return Opened::Done;
}

PlaylistWindow::Opened PlaylistWindow::openItem(ListItem item) {
    const bool activeWhileOpening = variant_.whileOpening == WhileOpening::Active;
    PlayActive = activeWhileOpening;
    engine_->prepare(item);
    pauseBetweenItems();
    if (closed_) return Opened::Done;
    // A hot key may have opened another item meanwhile. Opening it anew stops it, which is no end.
    PlayActive = activeWhileOpening;
    const ListItem now = itemOf(CurrentFile);
    item.path = now.path;
    item.baseName = now.baseName;
    const bool started = attempt([&] {
        engine_->start(item);
        if (variant_.volumeAtItem == VolumeAtItem::Restored) VolumeControl_.SetMasterVolume(Slider1.Value());
    });
    if (!started) {
        app_.box("Unable to play file: " + app_.Err.Description, BoxIcon::Exclamation, BoxPlace::Foreground);
        return closed_ ? Opened::Done : Opened::Failed;
    }
    PlayActive = true;
    return Opened::Done;
}

// Messages are served meanwhile; the window being disabled keeps the user out of it.
void PlaylistWindow::pauseBetweenItems() {
    Clock &clock = app_.services.clock;
    Enabled = false;
    const double start = roundEven(clock.secondsSinceMidnight());
    while (std::abs(clock.secondsSinceMidnight() - start) <= kPauseBetweenItems && !closed_) {
        app_.services.loop.doEvents();
        clock.block(kTurnOfThePause);
    }
    Enabled = true;
}

void PlaylistWindow::AdvanceList() {
    if (!PlayActive) return;
    ++QueuePos;
    if (!PlayQueue.empty() && !isAtEntry()) {
        if (!LoopMenu.Checked) {
            playmenu_Click();
            return;
        }
        QueuePos = 0;
    }
    PlayCurrentItem();
    showPlaying(variant_.playing);
}

void PlaylistWindow::seekNext() {
    ++QueuePos;
    if (!PlayQueue.empty() && !isAtEntry()) QueuePos = 0;
}

void PlaylistWindow::NextMenu_Click() {
    seekNext();
    PlayCurrentItem();
    showPlaying(variant_.playingNext);
}

void PlaylistWindow::PrevMenu_Click() {
    --QueuePos;
    if (!PlayQueue.empty() && QueuePos < 0) QueuePos = static_cast<std::int32_t>(PlayQueue.size()) - 1;
    PlayCurrentItem();
    showPlaying(variant_.playing);
}

void PlaylistWindow::PauseMenu_Click() {
    if (!PlayActive) {
        tell(variant_.notPlaying);
        return;
    }
    takeQueueEntry();
    const ListItem item = itemOf(CurrentFile);
    if (PauseMenu.Caption == list_caption::kPause) {
        attempt([&] { engine_->pause(item); });
        PauseMenu.Caption = list_caption::kResume;
    } else {
        attempt([&] { engine_->resume(item); });
        PauseMenu.Caption = list_caption::kPause;
    }
}

void PlaylistWindow::MuteMenu_Click() {
    const bool mutes = MuteMenu.Caption == caption::kMute;
    MuteMenu.Caption = mutes ? caption::kUnMute : caption::kMute;
    VolumeControl_.SetMasterVolume(mutes ? 0 : Slider1.Value());
}

void PlaylistWindow::Slider1_Change() {
    Label1.Caption = std::to_string(Slider1.Value());
    VolumeControl_.SetMasterVolume(Slider1.Value());
    MuteMenu.Caption = caption::kMute;
}

} // namespace tonvale
