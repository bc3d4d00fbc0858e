// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/codec/engine/file_access.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace tonvale {

inline constexpr std::size_t kMpegHeaderSize = 4;
// The most that a frame's main data may reach back into the slots of those before it.
inline constexpr int kMostReservoir = 511;
// Samples that any decoder is late by.
inline constexpr int kDecoderDelay = 529;

enum class MpegVersion { Mpeg1, Mpeg2, Mpeg25 };

// A layer III frame's header with a bit rate that it names.
struct MpegHeader {
    MpegVersion version = MpegVersion::Mpeg1;
    int bitRate = 0; // kbit/s
    int sampleRate = 0;
    int channels = 0;
    bool isPadded = false;
    bool hasCrc = false;

    // Nothing if this is none.
    [[nodiscard]] static std::optional<MpegHeader> parse(Bytes bytes);

    [[nodiscard]] int samples() const { return version == MpegVersion::Mpeg1 ? 1152 : 576; }
    [[nodiscard]] int granules() const { return version == MpegVersion::Mpeg1 ? 2 : 1; }
    [[nodiscard]] int unpaddedSize() const { return samples() / 8 * 1000 * bitRate / sampleRate; }
    [[nodiscard]] int size() const { return unpaddedSize() + (isPadded ? 1 : 0); }
    [[nodiscard]] int sideInfoBegin() const { return static_cast<int>(kMpegHeaderSize) + (hasCrc ? 2 : 0); }
    [[nodiscard]] int sideInfoSize() const;
    // Behind header and side information; from here to the frame's end is its slot of main data.
    [[nodiscard]] int slotBegin() const { return sideInfoBegin() + sideInfoSize(); }
    // Whether frames with these headers can be parts of one stream.
    [[nodiscard]] bool matches(const MpegHeader &other) const {
        return version == other.version && sampleRate == other.sampleRate && channels == other.channels;
    }
};

// What a frame's side information says.
struct SideInfo {
    int mainDataBegin = 0;                // bytes before the frame's own slot
    int mainDataBits = 0;                 // of all granules and channels
    std::array<std::uint8_t, 4> blocks{}; // types of block, by granule and channel

    // The bytes begin with the frame's header and hold its side information.
    [[nodiscard]] static SideInfo parse(const MpegHeader &header, Bytes frame);
};

// Makes a silent frame of this one that leaves the bytes of its slot as they are and asks for no
// more main data than `available` bytes before it.
void muteFrame(const MpegHeader &header, MutableBytes frame, int available);

} // namespace tonvale
