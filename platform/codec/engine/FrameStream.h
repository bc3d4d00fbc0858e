// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/codec/engine/Lame.h"
#include "platform/codec/engine/WavSource.h"

#include <cstdint>
#include <vector>

namespace tonvale {

// The frames that one encoder makes of the source from some frame on. Bits that belong to no
// frame's main data, which decoders skip, are cleared: what the encoder puts there depends on
// where it has started.
class FrameStream {
public:
    FrameStream(const Mp3Shape &shape, int sourceFile, std::int64_t firstFrame);

    // Encodes some more of the source; at its end, what is left.
    void encodeMore();
    [[nodiscard]] bool atEnd() const { return atEnd_; }

    // The frames from begin() to end() are complete and kept.
    [[nodiscard]] std::int64_t begin() const { return begin_; }
    [[nodiscard]] std::int64_t end() const { return complete_; }
    [[nodiscard]] MutableBytes frames(std::int64_t from, std::int64_t to);
    void dropBefore(std::int64_t frame);

    [[nodiscard]] const Lame &encoder() const { return lame_; }

private:
    [[nodiscard]] bool encodeSamples();
    [[nodiscard]] bool encodeFloats();
    void takeFrames();
    void takeFrame(Bytes frame);
    void finish();
    void clearBits(std::int64_t from, std::int64_t to);
    [[nodiscard]] std::size_t place(std::int64_t frame) const;

    const Mp3Shape &shape_;
    WavSource source_;
    Lame lame_;
    std::vector<std::int16_t> samples_;
    std::vector<float> left_, right_;
    std::vector<std::uint8_t> bytes_; // from frame begin_ on
    std::size_t tagLeft_;             // of the tag frame that comes out first
    std::int64_t begin_, complete_, taken_;
    std::int64_t dataEnd_; // in bits of main data, where that of the frame taken last ends
    bool atEnd_ = false;
};

} // namespace tonvale
