// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tonvale {

inline constexpr std::size_t kMidiSignatureLength = 12;

// Whether a file that begins like this is a MIDI file, bare or inside a RIFF file.
[[nodiscard]] bool looksLikeMidi(std::span<const std::byte> start);

// The timing of a standard MIDI file: how long it is and which tick is played when. Damaged tracks
// count as far as they can be read.
class MidiSong {
public:
    // Throws RuntimeError for a file without tracks and for one that counts in film frames.
    explicit MidiSong(std::span<const std::byte> file);

    // The song without what it was wrapped in; a part of the file that was handed in.
    [[nodiscard]] std::span<const std::byte> bytes() const { return bytes_; }
    [[nodiscard]] double duration() const { return secondsAt(lastTick_); }
    [[nodiscard]] std::int32_t tickAt(double seconds) const;

private:
    // From `tick` on, which comes after `seconds`, a tick lasts `secondsPerTick`.
    struct Tempo {
        std::int64_t tick;
        double seconds;
        double secondsPerTick;
    };
    struct TempoEvent {
        std::int64_t tick;
        std::uint32_t microsecondsPerQuarter;
    };

    void readTracks();
    void readTrack(std::span<const std::byte> track, std::vector<TempoEvent> &tempos);
    void buildTempos(std::vector<TempoEvent> events);
    [[nodiscard]] double secondsAt(std::int64_t tick) const;

    std::span<const std::byte> bytes_;
    std::int64_t ticksPerQuarter_ = 0;
    std::int64_t lastTick_ = 0;
    std::vector<Tempo> tempos_;
};

} // namespace tonvale
