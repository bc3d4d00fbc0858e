// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "player/Form1.h"

#include "controls/Numbers.h"

namespace tonvale {

namespace {

constexpr double kReadyTimeout = 15.0;         // seconds
constexpr std::int32_t kPollMilliseconds = 10; // leaves the processor alone while the wait blocks
constexpr std::size_t kNumberOffset = 5;       // behind "Track"

} // namespace

// The zero-based track that a name such as Track01.cda stands for; -1 when it holds no number.
std::int32_t Form1::trackOf(const std::string &name) {
    const std::string base = app_.paths.ParsePath(name, "b");
    const std::string number = base.size() > kNumberOffset ? base.substr(kNumberOffset) : std::string();
    return toInt32(numericPrefix(number) - 1);
}

const CdTrack &Form1::currentCdTrack() const {
    const auto &tracks = CDReader->Tracks();
    if (CurrentTrack < 0 || static_cast<std::size_t>(CurrentTrack) >= tracks.size())
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    return tracks[static_cast<std::size_t>(CurrentTrack)];
}

std::string Form1::audioTrackName() const { return "Audio Track #" + std::to_string(std::int64_t{CurrentTrack} + 1); }

bool Form1::waitForDisc() {
    Clock &clock = app_.services.clock;
    attempt([&] { CDWaitStart = toInt32(clock.secondsSinceMidnight()); });
    for (;;) {
        bool ready = false;
        attempt([&] { ready = CDReader->DiscReady(); });
        if (ready) return true;
        const double now = clock.secondsSinceMidnight();
        double waited = now - CDWaitStart;
        // The start is rounded, so a little below zero is no midnight. Past midnight the new count
        // is what limits the wait.
        if (waited < -1) waited = now;
        if (waited > kReadyTimeout) return false;
        clock.block(kPollMilliseconds);
    }
}

bool Form1::StartCDTrack(const std::string &name, ZoomEntry zoomEntry) {
    if (zoomEntry == ZoomEntry::Disable) zoom.Enabled = false;
    if (!waitForDisc()) {
        app_.box("CD not ready (15 second timeout).", BoxIcon::Exclamation, BoxPlace::Foreground);
        return false;
    }
    bool hasDirectory = false;
    attempt([&] { hasDirectory = CDReader->ReadDirectory(); });
    if (!hasDirectory) {
        app_.box("Unable to read CD directory.", BoxIcon::Exclamation, BoxPlace::Foreground);
        return false;
    }
    attempt([&] { CurrentTrack = trackOf(name); });
    attempt([&] { CDReader->PlayTrack(CurrentTrack); });
    const auto start = [&] { MediaStarted(CDReader->ToFrames(currentCdTrack().PlayTime) / kCdFramesPerSecond); };
    attempt(start);
    if (zoomEntry == ZoomEntry::Leave) attempt(start); // a replay hands the length over twice
    CDR_Timer.Enabled(true);
    Label3.Caption = audioTrackName();
    return true;
}

} // namespace tonvale
