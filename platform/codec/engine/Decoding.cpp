// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/codec/engine/Decoding.h"

#include "controls/Errors.h"
#include "platform/codec/engine/RangeDecoder.h"
#include "platform/codec/engine/workers.h"

#include <algorithm>
#include <vector>

namespace tonvale {

namespace {

constexpr std::size_t kReadSize = 1 << 18;
// No file becomes longer than so many times itself.
constexpr std::int64_t kMostGrowth = 256;
constexpr std::int64_t kMostCut = 3;
constexpr std::int64_t kUnknown = -1;

WavHeader::Room roomFor(std::int64_t sourceSize) {
    return sourceSize > UINT32_MAX / kMostGrowth ? WavHeader::Room::Long : WavHeader::Room::Usual;
}

} // namespace

Decoding::Decoding(const std::string &source, const std::string &target, Crew crew)
    : source_(openSource(source, target)), decoder_(source_.get()), output_(target),
      header_(decoder_.format(), roomFor(fileSize(source_.get()))), crew_(crew) {}

void Decoding::run(const std::stop_token &stop, const Progress &progress) {
    std::int64_t size = tryRanges(stop, progress);
    if (size == kUnknown) size = decodeInOrder(stop, progress);
    if (size == 0 && stop.stop_requested()) return;
    output_.write(0, header_.bytes(size));
    output_.publish(header_.size() + size);
    if (!stop.stop_requested()) progress(1);
}

// How many bytes of sound are there; kUnknown if the ranges are not to be used.
std::int64_t Decoding::tryRanges(const std::stop_token &stop, const Progress &progress) {
    const auto map = FrameMap::make(source_.get(), decoder_.firstFrame(), stop);
    if (!map) return kUnknown;
    const std::int64_t whole = map->frames * map->header.samples();
    std::int64_t begin = 0, end = whole;
    if (const auto trim = decoder_.trim()) {
        begin = trim->begin;
        end = std::min(whole, whole - trim->end);
        // Where many frames are cut off, the library does not decode the first of them.
        if (begin >= end || end - begin != decoder_.length() || begin >= kMostCut * map->header.samples())
            return kUnknown;
    } else if (whole - decoder_.length() == kDecoderDelay) {
        return kUnknown; // the file says its number of frames alone; then the library cuts off the delay
    }
    const std::int64_t sampleSize = decoder_.format().bytesPerSample();
    output_.reserve(header_.size() + (end - begin) * sampleSize);
    RangeDecoder ranges({source_.get(), *map, decoder_.format(), begin, end, output_, header_.size()});
    runWorkers(
        crew_, stop, [&](const std::stop_token &ended) { ranges.work(ended); },
        [&] { progress(static_cast<double>(ranges.done().total()) / static_cast<double>(end - begin)); });
    if (ranges.isDoubtful()) return kUnknown;
    return ranges.done().prefix() * sampleSize;
}

std::int64_t Decoding::decodeInOrder(const std::stop_token &stop, const Progress &progress) {
    const auto sourceSize = static_cast<double>(fileSize(source_.get()));
    std::atomic<std::int64_t> size = 0, position = 0;
    runWorkers(
        {1}, stop, [&](const std::stop_token &ended) { readToEnd(ended, size, position); },
        [&] { progress(std::clamp(static_cast<double>(position) / sourceSize, 0.0, 1.0)); });
    return size;
}

void Decoding::readToEnd(const std::stop_token &stop, std::atomic<std::int64_t> &size,
                         std::atomic<std::int64_t> &position) {
    std::vector<std::uint8_t> buffer(kReadSize);
    while (!stop.stop_requested()) {
        const std::size_t count = decoder_.read(buffer, stop);
        if (count == 0) break;
        output_.write(header_.size() + size, Bytes(buffer).first(count));
        size += static_cast<std::int64_t>(count);
        position = decoder_.position();
    }
}

} // namespace tonvale
