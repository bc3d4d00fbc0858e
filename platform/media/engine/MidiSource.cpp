// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/media/engine/MidiSource.h"

#include "platform/media/engine/MidiRenderer.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace tonvale {

namespace {

// The last notes may ring out, and no song is endless.
constexpr double kTail = 1.0;
constexpr double kLongest = 6.0 * 3600;

void append(std::byte *&to, const char *text) {
    std::memcpy(to, text, 4);
    to += 4;
}

void append(std::byte *&to, std::uint32_t value, int length) {
    for (int i = 0; i < length; ++i) *to++ = static_cast<std::byte>(value >> (8 * i));
}

} // namespace

MidiSource::MidiSource(std::vector<std::byte> file)
    : file_(std::move(file)), song_(file_),
      frames_(static_cast<std::int64_t>(std::min(song_.duration() + kTail, kLongest) * kMidiSampleRate)),
      soundFont_(findSoundFont()) {}

MidiSource::~MidiSource() = default;

std::int64_t MidiSource::size() const { return static_cast<std::int64_t>(kHeaderSize) + frames_ * kFrameSize; }

std::array<std::byte, MidiSource::kHeaderSize> MidiSource::header() const {
    std::array<std::byte, kHeaderSize> result{};
    const auto dataSize = static_cast<std::uint32_t>(frames_ * kFrameSize);
    std::byte *to = result.data();
    append(to, "RIFF");
    append(to, dataSize + kHeaderSize - 8, 4);
    append(to, "WAVE");
    append(to, "fmt ");
    append(to, 16, 4); // the length of what follows up to "data"
    append(to, 1, 2);  // PCM
    append(to, 2, 2);
    append(to, kMidiSampleRate, 4);
    append(to, kMidiSampleRate * kFrameSize, 4);
    append(to, kFrameSize, 2);
    append(to, 16, 2);
    append(to, "data");
    append(to, dataSize, 4);
    return result;
}

bool MidiSource::render(std::int64_t block) {
    if (!renderer_) renderer_ = std::make_unique<MidiRenderer>(song_, soundFont_);
    if (!renderer_->isReady()) return false;
    const double seconds = static_cast<double>(block * kBlockFrames) / kMidiSampleRate;
    if ((block == 0 || block != block_ + 1) && !renderer_->startAt(seconds)) return false;
    block_ = renderer_->render(samples_) ? block : -1;
    return block_ >= 0;
}

std::int64_t MidiSource::read(std::span<std::byte> buffer) {
    const std::int64_t headerSize = kHeaderSize;
    const auto length = static_cast<std::size_t>(
        std::clamp<std::int64_t>(size() - offset_, 0, static_cast<std::int64_t>(buffer.size())));
    if (length == 0) return 0;
    std::size_t count = 0;
    if (offset_ < headerSize) {
        const auto bytes = header();
        const auto start = static_cast<std::size_t>(offset_);
        count = std::min(length, bytes.size() - start);
        std::memcpy(buffer.data(), bytes.data() + start, count);
    } else {
        constexpr std::int64_t kBlockSize = kBlockFrames * kFrameSize;
        const std::int64_t block = (offset_ - headerSize) / kBlockSize;
        if (block != block_ && !render(block)) return -1;
        const auto start = static_cast<std::size_t>((offset_ - headerSize) % kBlockSize);
        count = std::min(length, sizeof samples_ - start);
        std::memcpy(buffer.data(), reinterpret_cast<const std::byte *>(samples_.data()) + start, count);
    }
    offset_ += static_cast<std::int64_t>(count);
    return static_cast<std::int64_t>(count);
}

bool MidiSource::seek(std::int64_t offset) {
    if (offset < 0) return false;
    offset_ = offset;
    return true;
}

} // namespace tonvale
