// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/codec/engine/MpegFrame.h"

#include <algorithm>

namespace tonvale {

namespace {

constexpr std::array<std::array<int, 15>, 2> kBitRates{{
    {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320}, // MPEG-1
    {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160},     // MPEG-2 and 2.5
}};
constexpr std::array<int, 3> kSampleRates{44100, 48000, 32000}; // halved and quartered in the others

class BitReader {
public:
    explicit BitReader(Bytes bytes) : bytes_(bytes) {}
    std::uint32_t read(int count) {
        const std::size_t end = position_ + static_cast<std::size_t>(count);
        std::uint32_t value = 0;
        for (std::size_t i = position_ / 8; i < (end + 7) / 8; ++i) value = value << 8 | bytes_[i];
        position_ = end;
        return value >> (7 - (end + 7) % 8) & ((1U << count) - 1);
    }
    void skip(int count) { position_ += static_cast<std::size_t>(count); }

private:
    Bytes bytes_;
    std::size_t position_ = 0;
};

// Widths of what stands in the side information.
struct SideInfoLayout {
    int mainDataBegin, privateBits, scaleFactorSelection, scaleFactorCompress, granuleEnd;

    explicit SideInfoLayout(const MpegHeader &header) : SideInfoLayout(0, 0, 0, 0, 0) {
        const bool mono = header.channels == 1;
        if (header.version == MpegVersion::Mpeg1)
            *this = {9, mono ? 5 : 3, 4 * header.channels, 4, 3};
        else
            *this = {8, mono ? 1 : 2, 0, 9, 2};
    }

private:
    SideInfoLayout(int begin, int priv, int selection, int compress, int end)
        : mainDataBegin(begin), privateBits(priv), scaleFactorSelection(selection), scaleFactorCompress(compress),
          granuleEnd(end) {}
};

} // namespace

std::optional<MpegHeader> MpegHeader::parse(Bytes bytes) {
    constexpr unsigned kSync = 0xE0, kLayer3 = 1, kReservedVersion = 1, kMono = 3;
    if (bytes.size() < kMpegHeaderSize || bytes[0] != 0xFF || (bytes[1] & kSync) != kSync) return {};
    const unsigned version = bytes[1] >> 3 & 3U, bitRate = bytes[2] >> 4, sampleRate = bytes[2] >> 2 & 3U;
    if ((bytes[1] >> 1 & 3U) != kLayer3 || version == kReservedVersion) return {};
    if (bitRate == 0 || bitRate >= kBitRates[0].size() || sampleRate >= kSampleRates.size()) return {};
    MpegHeader header;
    header.version = version == 3 ? MpegVersion::Mpeg1 : version == 2 ? MpegVersion::Mpeg2 : MpegVersion::Mpeg25;
    header.bitRate = kBitRates[header.version == MpegVersion::Mpeg1 ? 0 : 1][bitRate];
    header.sampleRate = kSampleRates[sampleRate] >> static_cast<int>(header.version);
    header.channels = bytes[3] >> 6 == kMono ? 1 : 2;
    header.isPadded = (bytes[2] & 2U) != 0;
    header.hasCrc = (bytes[1] & 1U) == 0;
    return header;
}

int MpegHeader::sideInfoSize() const {
    if (version == MpegVersion::Mpeg1) return channels == 1 ? 17 : 32;
    return channels == 1 ? 9 : 17;
}

SideInfo SideInfo::parse(const MpegHeader &header, Bytes frame) {
    BitReader bits(frame.subspan(static_cast<std::size_t>(header.sideInfoBegin())));
    const SideInfoLayout layout(header);
    SideInfo info;
    info.mainDataBegin = static_cast<int>(bits.read(layout.mainDataBegin));
    bits.skip(layout.privateBits + layout.scaleFactorSelection);
    for (int i = 0; i < header.granules() * header.channels; ++i) {
        info.mainDataBits += static_cast<int>(bits.read(12));
        bits.skip(9 + 8 + layout.scaleFactorCompress); // big values, gain
        const bool isSwitched = bits.read(1) != 0;
        const std::uint32_t rest = bits.read(2);
        info.blocks[static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(isSwitched ? rest : 0);
        bits.skip(20 + layout.granuleEnd); // tables and regions
    }
    return info;
}

void muteFrame(const MpegHeader &header, MutableBytes frame, int available) {
    const auto info = frame.subspan(static_cast<std::size_t>(header.sideInfoBegin()),
                                    static_cast<std::size_t>(header.sideInfoSize()));
    std::ranges::fill(info, std::uint8_t{0});
    const int most = header.version == MpegVersion::Mpeg1 ? kMostReservoir : kMostReservoir / 2;
    const int begin = std::min(available, most);
    if (header.version == MpegVersion::Mpeg1) {
        info[0] = static_cast<std::uint8_t>(begin >> 1);
        info[1] = static_cast<std::uint8_t>((begin & 1) << 7);
    } else {
        info[0] = static_cast<std::uint8_t>(begin);
    }
}

} // namespace tonvale
