// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/codec/engine/MpegFrame.h"

#include <lame/lame.h>

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace tonvale {

// One encoder with the library's own defaults.
class Lame {
public:
    Lame(int sampleRate, int channels);

    // Appends what comes out to `mp3`. Samples of several channels alternate; both kinds are on the
    // scale of 16 bits.
    void encode(std::span<std::int16_t> samples, std::vector<std::uint8_t> &mp3);
    void encode(std::span<const float> left, std::span<const float> right, std::vector<std::uint8_t> &mp3);
    void flush(std::vector<std::uint8_t> &mp3);

    [[nodiscard]] int outputRate() const { return lame_get_out_samplerate(handle_.get()); }
    [[nodiscard]] int frames() const { return lame_get_frameNum(handle_.get()); } // encoded so far
    [[nodiscard]] int delay() const { return lame_get_encoder_delay(handle_.get()); }
    [[nodiscard]] int padding() const { return lame_get_encoder_padding(handle_.get()); } // after the flush
    // The frame with the length and the table of contents, which stands before all others. Empty
    // before the first frame, and where the library leaves it out.
    [[nodiscard]] std::vector<std::uint8_t> tagFrame() const;

private:
    struct Closer {
        void operator()(lame_global_flags *handle) const { (void)lame_close(handle); }
    };
    void append(int result, std::vector<std::uint8_t> &mp3);

    std::unique_ptr<lame_global_flags, Closer> handle_;
    std::vector<std::uint8_t> buffer_;
};

// What the encoder makes of sound of this kind: frames of a constant bit rate, whose places in the
// file are known beforehand.
struct Mp3Shape {
    int sourceRate = 0;
    int channels = 0;
    MpegHeader header; // of the first frame
    int tagSize = 0;
    int delay = 0;
    bool isResampled = false;

    Mp3Shape(int rate, int channelCount);

    // Samples of the source for each frame.
    [[nodiscard]] int frameSamples() const { return header.samples(); }
    // Where frames of these numbers are, in bytes from the first one.
    [[nodiscard]] std::int64_t offset(std::int64_t frame) const;
    [[nodiscard]] std::int64_t filePosition(std::int64_t frame) const { return tagSize + offset(frame); }
    // Bytes of main data that fit into all frames before this one.
    [[nodiscard]] std::int64_t slots(std::int64_t frame) const { return offset(frame) - frame * header.slotBegin(); }
    // After so many frames the pattern of padded ones begins anew.
    [[nodiscard]] std::int64_t paddingPeriod() const;

private:
    [[nodiscard]] std::int64_t remainder() const;
};

} // namespace tonvale
