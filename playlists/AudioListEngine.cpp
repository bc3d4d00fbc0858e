// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "playlists/AudioListEngine.h"

#include "controls/Numbers.h"
#include "controls/Text.h"
#include "player/media_kinds.h"

#include <utility>

namespace tonvale {

namespace {

constexpr std::int32_t kPollInterval = 500; // milliseconds
constexpr std::size_t kTrackNumberAt = 5;   // "Track01"

std::unique_ptr<CDReader> makeReader(Application &app) {
    auto reader = app.services.makeCDReader ? app.services.makeCDReader() : nullptr;
    return reader ? std::move(reader) : std::make_unique<AbsentCDReader>();
}

std::int32_t trackNumber(const std::string &baseName) {
    return baseName.size() > kTrackNumberAt ? toInt32(numericPrefix(baseName.substr(kTrackNumberAt))) : 0;
}

} // namespace

std::unique_ptr<ListEngine> makeAudioListEngine(Application &app) { return std::make_unique<AudioListEngine>(app); }

template <class Body> auto AudioListEngine::handler(Body body) {
    return [this, body = std::move(body)](const auto &...arguments) {
        const Forms::HandlerScope scope(app_.forms);
        skipErrors([&] { body(arguments...); });
    };
}

template <class... Statements> void AudioListEngine::skipErrors(Statements &&...statements) {
    static_cast<void>(resumeNext(app_.Err, std::forward<Statements>(statements)...));
}

AudioListEngine::AudioListEngine(Application &app)
    : ActiveMovie1(app.services.media()), CDReader(makeReader(app)), Timer1(app.services.loop, kPollInterval),
      app_(app) {
    ActiveMovie1.Visible = false;
    ActiveMovie1.PlayStateChange =
        handler([this](PlayState oldState, PlayState newState) { ActiveMovie1_PlayStateChange(oldState, newState); });
    Timer1.Tick = handler([this] { Timer1_Timer(); });
    for (Event<> *ended : {&CDReader->CopyFinished, &CDReader->CopyBroken, &CDReader->PlayFinished})
        *ended = handler([this] { itemEnded(); });
}

void AudioListEngine::prepare(const ListItem &item) {
    // A media file that still plays goes on until the next one is opened.
    if (lowerCase(item.extension) == media::kCdTrack) skipErrors([&] { ActiveMovie1.Stop(); });
    skipErrors([&] { CDReader->CloseDevice(); });
}

void AudioListEngine::start(const ListItem &item) {
    if (lowerCase(item.extension) == media::kCdTrack) {
        startTrack(item);
        return;
    }
    ActiveMovie1.FileName(item.path);
    ActiveMovie1.Play();
}

void AudioListEngine::startTrack(const ListItem &item) {
    CDReader->OpenDevice();
    const std::int32_t number = trackNumber(item.baseName);
    Timer1.Enabled(true);
    // The number as it stands, although tracks are counted from zero here: "Track01" is the second.
    CDReader->PlayTrack(number);
}

void AudioListEngine::pause(const ListItem &item) {
    if (item.extension == media::kCdTrack)
        CDReader->PausePlay();
    else
        ActiveMovie1.Pause();
}

void AudioListEngine::resume(const ListItem &item) {
    if (item.extension == media::kCdTrack)
        CDReader->ResumePlay();
    else
        ActiveMovie1.Play();
}

void AudioListEngine::stop() {
    skipErrors([&] { ActiveMovie1.Stop(); }, [&] { CDReader->StopPlay(); });
}

void AudioListEngine::stopAtClose() {
    skipErrors([&] { CDReader->StopPlay(); }, [&] { ActiveMovie1.Stop(); });
}

void AudioListEngine::shutDown() {
    Timer1.Enabled(false);
    skipErrors([&] { ActiveMovie1.shutDown(); }, [&] { CDReader->StopPlay(); }, [&] { CDReader->CloseDevice(); });
}

// A paused item turns the timer off, and nothing turns it on again: its end is not seen.
void AudioListEngine::Timer1_Timer() {
    const DriveState state = CDReader->DriveState();
    if (state == DriveState::Idle || state == DriveState::Paused) Timer1.Enabled(false);
    if (state == DriveState::Idle) itemEnded();
}

void AudioListEngine::ActiveMovie1_PlayStateChange(PlayState oldState, PlayState newState) {
    if (oldState == PlayState::Playing && newState == PlayState::Stopped) itemEnded();
}

} // namespace tonvale
