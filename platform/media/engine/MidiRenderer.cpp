// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/media/engine/MidiRenderer.h"

#include "controls/Errors.h"

#include <unistd.h>

#include <array>

namespace tonvale {

namespace {

// What the machine's owner has chosen comes first.
constexpr std::array kSoundFonts{"/usr/share/sounds/sf2/default-GM.sf2", "/usr/share/soundfonts/default.sf2",
                                 "/usr/share/sounds/sf2/TimGM6mb.sf2"};

constexpr double kGain = 0.5; // the library's own default is far below the level of other music
constexpr std::size_t kSynthBlock = 64;

void silenceLog() {
    for (int level = 0; level < LAST_LOG_LEVEL; ++level)
        static_cast<void>(fluid_set_log_function(
            level, [](int, const char *, void *) {}, nullptr));
}

fluid_settings_t *makeSettings() {
    fluid_settings_t *settings = new_fluid_settings();
    if (!settings) return nullptr;
    const bool good = fluid_settings_setnum(settings, "synth.sample-rate", kMidiSampleRate) == FLUID_OK &&
                      fluid_settings_setnum(settings, "synth.gain", kGain) == FLUID_OK &&
                      fluid_settings_setstr(settings, "player.timing-source", "sample") == FLUID_OK &&
                      fluid_settings_setint(settings, "synth.lock-memory", 0) == FLUID_OK &&
                      fluid_settings_setint(settings, "synth.dynamic-sample-loading", 1) == FLUID_OK;
    if (good) return settings;
    delete_fluid_settings(settings);
    return nullptr;
}

} // namespace

std::string findSoundFont() {
    for (const char *path : kSoundFonts)
        if (::access(path, R_OK) == 0) return path;
    throw RuntimeError(ErrorNumber::AutomationError,
                       "No instruments (SoundFont) for MIDI files are installed on this machine");
}

MidiRenderer::MidiRenderer(const MidiSong &song, const std::string &soundFont) : song_(song) {
    silenceLog();
    settings_.reset(makeSettings());
    if (!settings_) return;
    synth_.reset(new_fluid_synth(settings_.get()));
    ready_ = synth_ && fluid_synth_sfload(synth_.get(), soundFont.c_str(), 1) != FLUID_FAILED;
}

bool MidiRenderer::startAt(double seconds) {
    player_.reset();
    if (fluid_synth_system_reset(synth_.get()) != FLUID_OK) return false;
    player_.reset(new_fluid_player(synth_.get()));
    const auto song = song_.bytes();
    if (!player_ || fluid_player_add_mem(player_.get(), song.data(), song.size()) != FLUID_OK ||
        fluid_player_play(player_.get()) != FLUID_OK)
        return false;
    const std::int32_t tick = song_.tickAt(seconds);
    if (tick == 0) return true;
    // The player knows the song only after its first block.
    std::array<std::int16_t, kSynthBlock * 2> unheard{};
    if (!render(unheard)) return false;
    // Behind the player's own last tick there is nothing but silence.
    if (fluid_player_seek(player_.get(), tick) != FLUID_OK) return fluid_player_stop(player_.get()) == FLUID_OK;
    return true;
}

bool MidiRenderer::render(std::span<std::int16_t> samples) {
    const int frames = static_cast<int>(samples.size() / 2);
    return fluid_synth_write_s16(synth_.get(), frames, samples.data(), 0, 2, samples.data(), 1, 2) == FLUID_OK;
}

} // namespace tonvale
