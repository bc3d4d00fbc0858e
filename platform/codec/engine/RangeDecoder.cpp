// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/codec/engine/RangeDecoder.h"

#include "controls/Errors.h"
#include "platform/codec/engine/FrameReader.h"

#include <algorithm>
#include <deque>
#include <set>

namespace tonvale {

namespace {

constexpr std::size_t kWriteSize = 1 << 20;

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
    FrameDecoder decoder(context_.format, FrameDecoder::Samples::Integers);
    for (std::size_t i = nextRange_++; i < context_.map.ranges.size(); i = nextRange_++) {
        if (stop.stop_requested() || isDoubtful_) return;
        decode(i, decoder, stop);
    }
}

// The library leaves a frame that it cannot decode, or the rest of it, silent.
bool RangeDecoder::endsSilent(Bytes sound) const {
    const auto granules = static_cast<std::size_t>(context_.map.header.granules());
    return std::ranges::all_of(sound.last(sound.size() / granules), [](std::uint8_t byte) { return byte == 0; });
}

void RangeDecoder::decode(std::size_t range, FrameDecoder &decoder, const std::stop_token &stop) {
    const std::int64_t begin = context_.map.begin(range);
    Output output(*this, begin * context_.map.header.samples());
    std::set<std::int64_t> silent;
    decodeFrames(range, decoder, stop, [&](const Frame &frame) {
        if (frame.hasData && endsSilent(frame.sound)) silent.insert(frame.number);
        if (frame.number >= begin) output.add(frame.sound);
    });
    output.write();
    if (silent.empty()) return;
    // Sound may just be too faint for these samples. Finer ones tell it from none.
    FrameDecoder finer(context_.format, FrameDecoder::Samples::Floats);
    decodeFrames(range, finer, stop, [&](const Frame &frame) {
        if (silent.contains(frame.number) && endsSilent(frame.sound)) isDoubtful_ = true;
    });
}

void RangeDecoder::decodeFrames(std::size_t range, FrameDecoder &decoder, const std::stop_token &stop,
                                const std::function<void(const Frame &frame)> &take) {
    const FrameMap &map = context_.map;
    const FrameMap::Range &start = map.ranges[range];
    const auto frameSize = static_cast<std::size_t>(map.header.samples() * decoder.bytesPerSample());
    FrameReader reader(context_.source, start.position);
    decoder.restart();
    std::deque<bool> hasData; // of the frames that are fed and have not come back
    std::int64_t fed = start.fedFirst, decoded = start.fedFirst;
    for (int available = 0; decoded < map.end(range) && !isDoubtful_ && !stop.stop_requested();) {
        // The library wants to see a little of what follows.
        if (const auto frame = fed < map.frames ? reader.next() : std::nullopt) {
            if (fed < start.heard) muteFrame(frame->header, frame->bytes, available);
            available += frame->header.size() - frame->header.slotBegin();
            hasData.push_back(SideInfo::parse(frame->header, frame->bytes).mainDataBits > 0);
            decoder.feed(frame->bytes);
            ++fed;
        } else if (fed < map.frames) {
            throw RuntimeError(ErrorNumber::DeviceIOError); // the file has become another
        } else if (hasData.empty()) {
            break;
        }
        for (Bytes sound = decoder.next(); !sound.empty() && decoded < map.end(range); sound = decoder.next()) {
            if (sound.size() != frameSize || hasData.empty()) isDoubtful_ = true;
            if (isDoubtful_) return;
            take({decoded++, hasData.front(), sound});
            hasData.pop_front();
        }
    }
}

} // namespace tonvale
