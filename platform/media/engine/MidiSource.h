// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/media/engine/MediaSource.h"
#include "platform/media/engine/MidiSong.h"

#include <array>
#include <memory>
#include <vector>

namespace tonvale {

class MidiRenderer;

// A MIDI song as a WAV file, made while it is being read.
class MidiSource final : public MediaSource {
public:
    // Throws RuntimeError where the file is no song or the machine has no instruments.
    explicit MidiSource(std::vector<std::byte> file);
    ~MidiSource() override;

    [[nodiscard]] std::int64_t size() const override;
    [[nodiscard]] std::int64_t read(std::span<std::byte> buffer) override;
    [[nodiscard]] bool seek(std::int64_t offset) override;
    [[nodiscard]] double measuredDuration(const std::string &) const override { return 0; }
    [[nodiscard]] std::string extension() const override { return "wav"; }

private:
    static constexpr std::size_t kHeaderSize = 44;
    // Whole blocks of the synthesizer, and few enough for a prompt end.
    static constexpr std::int64_t kBlockFrames = 1024;
    static constexpr std::int64_t kFrameSize = 4;

    [[nodiscard]] std::array<std::byte, kHeaderSize> header() const;
    [[nodiscard]] bool render(std::int64_t block);

    std::vector<std::byte> file_;
    MidiSong song_;
    std::int64_t frames_;
    std::string soundFont_;
    std::int64_t offset_ = 0;
    std::unique_ptr<MidiRenderer> renderer_; // made at the first sound
    std::int64_t block_ = -1;                // the block in samples_
    std::array<std::int16_t, kBlockFrames * 2> samples_{};
};

} // namespace tonvale
