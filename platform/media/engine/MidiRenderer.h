// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/media/engine/MidiSong.h"

#include <fluidsynth.h>

#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace tonvale {

inline constexpr int kMidiSampleRate = 44100;

struct FluidDeleter {
    void operator()(fluid_settings_t *settings) const { delete_fluid_settings(settings); }
    void operator()(fluid_synth_t *synth) const { delete_fluid_synth(synth); }
    void operator()(fluid_player_t *player) const { delete_fluid_player(player); }
};

// Plays a song into buffers.
class MidiRenderer {
public:
    MidiRenderer(const MidiSong &song, const std::string &soundFont);

    [[nodiscard]] bool isReady() const { return ready_; }
    // Whether the next samples are those from `seconds` on.
    [[nodiscard]] bool startAt(double seconds);
    // Stereo samples, a multiple of 64 frames; silence once the song is over.
    [[nodiscard]] bool render(std::span<std::int16_t> samples);

private:
    const MidiSong &song_;
    std::unique_ptr<fluid_settings_t, FluidDeleter> settings_;
    std::unique_ptr<fluid_synth_t, FluidDeleter> synth_;
    std::unique_ptr<fluid_player_t, FluidDeleter> player_;
    bool ready_ = false;
};

// The instruments of this machine; throws RuntimeError where there are none.
[[nodiscard]] std::string findSoundFont();

} // namespace tonvale
