// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/codec/engine/WavHeader.h"

#include "controls/Errors.h"

#include <string_view>

namespace tonvale {

namespace {

constexpr std::int64_t kUsualSize = 44;
constexpr std::int64_t kLongSizes = 28; // the sizes of an RF64 file
constexpr std::int64_t kChunkHeader = 8;
constexpr std::uint16_t kPcm = 1, kBits = 16;

class LittleEndian {
public:
    void text(std::string_view text) { bytes_.insert(bytes_.end(), text.begin(), text.end()); }
    template <class Number> void number(Number value) {
        for (std::size_t i = 0; i < sizeof value; ++i)
            bytes_.push_back(static_cast<std::uint8_t>(static_cast<std::uint64_t>(value) >> 8 * i));
    }
    [[nodiscard]] std::vector<std::uint8_t> take() { return std::move(bytes_); }

private:
    std::vector<std::uint8_t> bytes_;
};

} // namespace

std::int64_t WavHeader::size() const { return kUsualSize + (room_ == Room::Long ? kChunkHeader + kLongSizes : 0); }

std::vector<std::uint8_t> WavHeader::bytes(std::int64_t dataSize) const {
    const std::int64_t riffSize = size() - kChunkHeader + dataSize;
    const bool isLong = riffSize > UINT32_MAX;
    if (isLong && room_ == Room::Usual) throw RuntimeError(ErrorNumber::Overflow);
    const auto shortSize = [&](std::int64_t size) { return isLong ? UINT32_MAX : static_cast<std::uint32_t>(size); };
    LittleEndian header;
    header.text(isLong ? "RF64" : "RIFF");
    header.number(shortSize(riffSize));
    header.text("WAVE");
    if (room_ == Room::Long) {
        header.text(isLong ? "ds64" : "JUNK");
        header.number(static_cast<std::uint32_t>(kLongSizes));
        for (const std::int64_t size : {riffSize, dataSize, dataSize / format_.bytesPerSample()})
            header.number(isLong ? size : std::int64_t{0});
        header.number(std::uint32_t{0}); // no table of further sizes
    }
    header.text("fmt ");
    header.number(std::uint32_t{16});
    header.number(kPcm);
    header.number(static_cast<std::uint16_t>(format_.channels));
    header.number(static_cast<std::uint32_t>(format_.sampleRate));
    header.number(static_cast<std::uint32_t>(format_.sampleRate * format_.bytesPerSample()));
    header.number(static_cast<std::uint16_t>(format_.bytesPerSample()));
    header.number(kBits);
    header.text("data");
    header.number(shortSize(dataSize));
    return header.take();
}

} // namespace tonvale
