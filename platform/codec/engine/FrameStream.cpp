// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/codec/engine/FrameStream.h"

#include "controls/Errors.h"

#include <algorithm>

namespace tonvale {

namespace {

constexpr int kChunkFrames = 4;

void check(bool isAsExpected) {
    if (!isAsExpected) throw RuntimeError(ErrorNumber::InternalError, "The MP3 encoder makes unexpected frames");
}

} // namespace

FrameStream::FrameStream(const Mp3Shape &shape, int sourceFile, std::int64_t firstFrame)
    : shape_(shape), source_(sourceFile), lame_(shape.sourceRate, shape.channels),
      samples_(static_cast<std::size_t>(kChunkFrames * shape.frameSamples() * shape.channels)),
      left_(samples_.size() / static_cast<std::size_t>(shape.channels)), right_(left_.size()),
      tagLeft_(static_cast<std::size_t>(shape.tagSize)), begin_(firstFrame), complete_(firstFrame), taken_(firstFrame),
      dataEnd_(shape.slots(firstFrame) * 8) {
    source_.seek(firstFrame * shape.frameSamples());
}

void FrameStream::encodeMore() {
    const bool isEnd = !(source_.isPlain() ? encodeSamples() : encodeFloats());
    if (isEnd) lame_.flush(bytes_);
    const std::size_t skipped = std::min(tagLeft_, bytes_.size());
    bytes_.erase(bytes_.begin(), bytes_.begin() + static_cast<std::ptrdiff_t>(skipped));
    tagLeft_ -= skipped;
    takeFrames();
    if (isEnd) finish();
}

bool FrameStream::encodeSamples() {
    const std::size_t count = source_.read(samples_);
    if (count > 0) lame_.encode({samples_.data(), count}, bytes_);
    return count > 0;
}

bool FrameStream::encodeFloats() {
    const std::size_t count = source_.read(left_, right_);
    if (count > 0) lame_.encode({left_.data(), count}, {right_.data(), count}, bytes_);
    return count > 0;
}

void FrameStream::takeFrames() {
    for (std::size_t end = place(taken_ + 1); end <= bytes_.size(); end = place(taken_ + 1))
        takeFrame(Bytes(bytes_).subspan(place(taken_), end - place(taken_)));
}

void FrameStream::takeFrame(Bytes frame) {
    const auto header = MpegHeader::parse(frame);
    check(header && header->matches(shape_.header) && header->size() == static_cast<int>(frame.size()));
    const SideInfo info = SideInfo::parse(*header, frame);
    const std::int64_t begin = (shape_.slots(taken_) - info.mainDataBegin) * 8;
    check(begin >= dataEnd_ && begin + info.mainDataBits <= shape_.slots(taken_ + 1) * 8);
    clearBits(dataEnd_, begin);
    dataEnd_ = begin + info.mainDataBits;
    ++taken_;
    while (complete_ < taken_ && shape_.slots(complete_ + 1) * 8 <= begin) ++complete_;
}

void FrameStream::finish() {
    check(bytes_.size() == place(taken_));
    clearBits(dataEnd_, shape_.slots(taken_) * 8);
    complete_ = taken_;
    atEnd_ = true;
}

void FrameStream::clearBits(std::int64_t from, std::int64_t to) {
    std::int64_t frame = taken_;
    while (frame > begin_ && shape_.slots(frame) * 8 > from) --frame;
    for (; from < to; ++frame) {
        const std::int64_t end = std::min(to, shape_.slots(frame + 1) * 8);
        const std::size_t slot = place(frame) + static_cast<std::size_t>(shape_.header.slotBegin());
        for (; from < end; ++from) {
            const auto bit = static_cast<std::size_t>(from - shape_.slots(frame) * 8);
            bytes_[slot + bit / 8] &= static_cast<std::uint8_t>(~(0x80U >> bit % 8));
        }
    }
}

std::size_t FrameStream::place(std::int64_t frame) const {
    return static_cast<std::size_t>(shape_.offset(frame) - shape_.offset(begin_));
}

MutableBytes FrameStream::frames(std::int64_t from, std::int64_t to) {
    return MutableBytes(bytes_).subspan(place(from), place(to) - place(from));
}

void FrameStream::dropBefore(std::int64_t frame) {
    bytes_.erase(bytes_.begin(), bytes_.begin() + static_cast<std::ptrdiff_t>(place(frame)));
    begin_ = frame;
}

} // namespace tonvale
