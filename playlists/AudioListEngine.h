// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/CDReader.h"
#include "controls/Loop.h"
#include "controls/MediaPlayer.h"
#include "core/Application.h"
#include "playlists/ListEngine.h"

#include <memory>

namespace tonvale {

// The audio list's own engines: one for media files, which is never seen, and a CD reader.
class AudioListEngine : public ListEngine {
public:
    explicit AudioListEngine(Application &app);

    MediaPlayer ActiveMovie1;
    std::unique_ptr<tonvale::CDReader> CDReader;
    Timer Timer1; // asks the reader whether its item has ended

    void prepare(const ListItem &item) override;
    void start(const ListItem &item) override;
    void pause(const ListItem &item) override;
    void resume(const ListItem &item) override;
    void stop() override;
    void stopAtClose() override;
    void stopPolling() override { Timer1.Enabled(false); }
    void shutDown() override;

private:
    void Timer1_Timer();
    void ActiveMovie1_PlayStateChange(PlayState oldState, PlayState newState);
    void startTrack(const ListItem &item);
    template <class Body> auto handler(Body body);
    template <class... Statements> void skipErrors(Statements &&...statements);

    Application &app_;
};

[[nodiscard]] std::unique_ptr<ListEngine> makeAudioListEngine(Application &app);

} // namespace tonvale
