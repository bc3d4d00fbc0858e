// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/codec/engine/RangeDecoder.h"

#include "controls/Errors.h"
#include "platform/codec/engine/FrameReader.h"

#include <algorithm>
#include <deque>

namespace tonvale {

namespace {

constexpr std::size_t kWriteSize = 1 << 20;

// The library leaves a frame that it cannot decode, or the rest of it, silent.
bool endsSilent(Bytes sound, SoundFormat format, const MpegHeader &header) {
    const auto granule = static_cast<std::size_t>(header.samples() / header.granules() * format.bytesPerSample());
    return std::ranges::all_of(sound.last(granule), [](std::uint8_t byte) { return byte == 0; });
}

} // namespace

// Collects samples, and writes those which are wanted at their place.
class RangeDecoder::Output {
public:
    Output(RangeDecoder &decoder, std::int64_t firstSample)
        : decoder_(decoder), context_(decoder.context_), next_(firstSample) {
        bytes_.reserve(kWriteSize);
    }
    void add(Bytes sound) {
        if (bytes_.size() + sound.size() > kWriteSize) write();
        bytes_.insert(bytes_.end(), sound.begin(), sound.end());
    }
    void write() {
        const std::int64_t size = context_.format.bytesPerSample();
        const std::int64_t end = next_ + static_cast<std::int64_t>(bytes_.size()) / size;
        const std::int64_t from = std::max(next_, context_.begin), to = std::min(end, context_.end);
        if (from < to) {
            const Bytes wanted = Bytes(bytes_).subspan(static_cast<std::size_t>((from - next_) * size),
                                                       static_cast<std::size_t>((to - from) * size));
            context_.output.write(context_.outputBegin + (from - context_.begin) * size, wanted);
            decoder_.done_.add(from - context_.begin, to - context_.begin);
        }
        next_ = end;
        bytes_.clear();
    }

private:
    RangeDecoder &decoder_;
    const Context &context_;
    std::int64_t next_; // the sample that bytes_ begins with
    std::vector<std::uint8_t> bytes_;
};

void RangeDecoder::work(const std::stop_token &stop) {
    for (std::size_t i = nextRange_++; i < context_.map.ranges.size(); i = nextRange_++) {
        if (stop.stop_requested() || isDoubtful_) return;
        decode(i, stop);
    }
}

void RangeDecoder::decode(std::size_t range, const std::stop_token &stop) {
    const FrameMap &map = context_.map;
    const FrameMap::Range &start = map.ranges[range];
    const auto frameSize = static_cast<std::size_t>(map.header.samples() * context_.format.bytesPerSample());
    FrameReader reader(context_.source, start.position);
    FrameDecoder decoder(context_.format);
    Output output(*this, map.begin(range) * map.header.samples());
    std::deque<bool> hasSound; // of the frames that are fed and have not come back
    std::int64_t fed = start.fedFirst, decoded = start.fedFirst;
    for (int available = 0; decoded < map.end(range);) {
        if (stop.stop_requested()) break;
        // The library wants to see a little of what follows.
        if (const auto frame = fed < map.frames ? reader.next() : std::nullopt) {
            if (fed < start.heard) muteFrame(frame->header, frame->bytes, available);
            available += frame->header.size() - frame->header.slotBegin();
            hasSound.push_back(SideInfo::parse(frame->header, frame->bytes).mainDataBits > 0);
            decoder.feed(frame->bytes);
            ++fed;
        } else if (fed < map.frames) {
            throw RuntimeError(ErrorNumber::DeviceIOError); // the file has become another
        } else if (hasSound.empty()) {
            break;
        }
        for (Bytes sound = decoder.next(); !sound.empty() && decoded < map.end(range); sound = decoder.next()) {
            const bool isWhole = sound.size() == frameSize && !hasSound.empty();
            if (!isWhole || (hasSound.front() && endsSilent(sound, context_.format, map.header))) isDoubtful_ = true;
            if (isDoubtful_) return;
            hasSound.pop_front();
            if (decoded >= map.begin(range)) output.add(sound);
            ++decoded;
        }
    }
    output.write();
}

} // namespace tonvale
