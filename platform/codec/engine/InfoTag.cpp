// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/codec/engine/InfoTag.h"

#include <algorithm>
#include <array>

namespace tonvale {

namespace {

constexpr std::array<std::uint16_t, 256> makeTable() {
    std::array<std::uint16_t, 256> table{};
    for (unsigned i = 0; i < table.size(); ++i) {
        unsigned value = i;
        for (int bit = 0; bit < 8; ++bit) value = value & 1U ? value >> 1 ^ 0xA001U : value >> 1;
        table[i] = static_cast<std::uint16_t>(value);
    }
    return table;
}

constexpr auto kCrcTable = makeTable();
constexpr std::size_t kContents = 100;
constexpr int kMostDelay = 0xFFF; // three digits of four bits each

// Where things stand, from the word "Info" on.
constexpr std::size_t kFrames = 8, kBytes = 12, kTableOfContents = 16, kDelay = 141, kMusicLength = 148,
                      kMusicCrc = 152, kTagCrc = 154, kEnd = 156;

void put(MutableBytes bytes, std::uint64_t value) {
    for (auto byte = bytes.rbegin(); byte != bytes.rend(); ++byte, value >>= 8)
        *byte = static_cast<std::uint8_t>(value);
}

} // namespace

void Crc16::add(Bytes bytes) {
    for (const std::uint8_t byte : bytes)
        value_ = static_cast<std::uint16_t>(value_ >> 8 ^ kCrcTable[(value_ ^ byte) & 0xFFU]);
}

void InfoTag::writeTo(MutableBytes frame, const Mp3Shape &shape) const {
    const auto begin = static_cast<std::size_t>(shape.header.slotBegin());
    if (frame.size() < begin + kEnd) return;
    const MutableBytes tag = frame.subspan(begin);
    const std::int64_t size = shape.filePosition(frames);
    const auto length = static_cast<std::uint64_t>(std::min<std::int64_t>(size, UINT32_MAX));
    put(tag.subspan(kFrames, 4), static_cast<std::uint64_t>(std::min<std::int64_t>(frames, UINT32_MAX)));
    put(tag.subspan(kBytes, 4), length);
    for (std::size_t i = 0; i < kContents; ++i)
        tag[kTableOfContents + i] = static_cast<std::uint8_t>(
            shape.filePosition(frames * static_cast<std::int64_t>(i) / static_cast<std::int64_t>(kContents)) * 256 /
            size);
    const auto clamped = [](int samples) { return static_cast<std::uint64_t>(std::clamp(samples, 0, kMostDelay)); };
    put(tag.subspan(kDelay, 3), clamped(delay) << 12 | clamped(padding));
    put(tag.subspan(kMusicLength, 4), length);
    put(tag.subspan(kMusicCrc, 2), musicCrc);
    Crc16 crc;
    crc.add(frame.first(begin + kTagCrc));
    put(tag.subspan(kTagCrc, 2), crc.value());
}

} // namespace tonvale
