// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/codec/engine/Encoding.h"

#include "controls/Errors.h"
#include "platform/codec/engine/workers.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace tonvale {

namespace {

constexpr std::int64_t kSumFrames = 256;

} // namespace

Encoding::Encoding(const std::string &source, const std::string &target, Crew crew)
    : source_(openSource(source, target)), shape_([this] {
          const WavSource wav(source_.get());
          return Mp3Shape(wav.sampleRate(), wav.channels());
      }()),
      plan_(shape_, WavSource(source_.get()).length()), output_(target), crew_(crew), board_(plan_.segments.size()) {
    crew_.threads = std::min(crew_.threads, static_cast<unsigned>(plan_.segments.size()));
}

void Encoding::run(const std::stop_token &stop, const Progress &progress) {
    runWorkers(
        crew_, stop, [this](const std::stop_token &ended) { work(ended); },
        [&] {
            sumUp();
            progress(std::min(1.0, static_cast<double>(board_.done.total()) / static_cast<double>(plan_.frames)));
        });
    sumUp();
    const auto last = board_.written(plan_.segments.size() - 1);
    const bool isComplete = last.isComplete && summedUp_ == last.end;
    if (!isComplete && !stop.stop_requested()) throw RuntimeError(ErrorNumber::InternalError);
    // Decoders take away this much less than the padding from the end.
    if (!isComplete) board_.padding = kDecoderDelay;
    if (summedUp_ == 0) return;
    finish();
    if (isComplete) progress(1);
}

void Encoding::work(const std::stop_token &stop) {
    const EncodingContext context{shape_, plan_, output_, source_.get(), board_};
    std::unique_ptr<Segment> waiting; // for a next segment that nobody had begun
    for (std::size_t i = nextSegment_++; i < plan_.segments.size() && !stop.stop_requested(); i = nextSegment_++) {
        auto segment = std::make_unique<Segment>(context, i);
        segment->encode(stop);
        if (waiting) waiting->join(stop);
        waiting = plan_.isLast(i) ? nullptr : std::move(segment);
        if (waiting && nextSegment_ > i + 1) {
            waiting->join(stop);
            waiting.reset();
        }
    }
    if (waiting) waiting->join(stop);
}

void Encoding::sumUp() {
    std::vector<std::uint8_t> bytes;
    for (const std::int64_t end = board_.done.prefix(); summedUp_ < end;) {
        const std::int64_t next = std::min(end, summedUp_ + kSumFrames);
        bytes.resize(static_cast<std::size_t>(shape_.offset(next) - shape_.offset(summedUp_)));
        if (output_.read(shape_.filePosition(summedUp_), bytes) != bytes.size())
            throw RuntimeError(ErrorNumber::DeviceIOError);
        musicCrc_.add(bytes);
        summedUp_ = next;
    }
}

void Encoding::finish() {
    const InfoTag tag{summedUp_, shape_.delay, board_.padding, musicCrc_.value()};
    tag.writeTo(board_.tag, shape_);
    output_.write(0, board_.tag);
    output_.publish(shape_.filePosition(summedUp_));
}

} // namespace tonvale
