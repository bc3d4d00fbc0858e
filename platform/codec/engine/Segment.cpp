// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/codec/engine/Segment.h"

#include "controls/Errors.h"

#include <algorithm>

namespace tonvale {

namespace {

constexpr std::int64_t kWriteFrames = 64;
constexpr int kEqualFrames = 8;
// So many frames show that two encoders do not meet, and so many that they hardly ever could.
constexpr std::int64_t kSpliceAfter = 400, kSpliceAnywayAfter = 800;

} // namespace

Segment::Segment(const EncodingContext &context, std::size_t index)
    : context_(context), index_(index), stream_(context.shape, context.source, context.plan.segments[index].warmUp) {}

void Segment::encode(const std::stop_token &stop) {
    const std::int64_t begin = context_.plan.segments[index_].begin, end = context_.plan.end(index_);
    while (!stop.stop_requested() && !stream_.atEnd() && stream_.end() < end) {
        stream_.encodeMore();
        if (stream_.begin() < begin) stream_.dropBefore(std::min(begin, stream_.end()));
        if (stream_.end() - stream_.begin() >= kWriteFrames) write(std::min(end, stream_.end()));
    }
    if (stream_.end() > stream_.begin() && stream_.begin() >= begin) write(std::min(end, stream_.end()));
    if (index_ == 0) context_.board.tag = stream_.encoder().tagFrame();
    if (stream_.atEnd()) context_.board.padding = stream_.encoder().padding();
    if (!stop.stop_requested()) report(true);
}

void Segment::write(std::int64_t to) {
    const std::int64_t from = stream_.begin();
    context_.output.write(context_.shape.filePosition(from), stream_.frames(from, to));
    stream_.dropBefore(to);
    // The last frame does not count before the next segment has been joined.
    context_.board.done.add(from, std::min(to, context_.plan.end(index_) - 1));
    report(false);
}

void Segment::report(bool isComplete) { context_.board.setWritten(index_, {stream_.begin(), isComplete}); }

bool Segment::encodeFrame(std::int64_t frame) {
    while (stream_.end() <= frame && !stream_.atEnd()) stream_.encodeMore();
    return stream_.end() > frame;
}

void Segment::join(const std::stop_token &stop) {
    const std::int64_t begin = context_.plan.end(index_);
    int equal = 0;
    std::int64_t equalFrom = begin;
    for (std::int64_t frame = begin; !stop.stop_requested(); ++frame) {
        if (!encodeFrame(frame)) return takeOver(frame);
        const auto next = context_.board.waitForFrame(index_ + 1, frame, stop);
        if (stop.stop_requested()) return;
        if (next.end <= frame) throw RuntimeError(ErrorNumber::InternalError, "Two parts of the sound do not meet");
        equal = equalsNext(frame) ? equal + 1 : 0;
        if (equal == 0) equalFrom = frame + 1;
        // What comes after may refer to bytes so far back.
        const auto slots = context_.shape.slots(frame + 1) - context_.shape.slots(equalFrom);
        if (equal >= kEqualFrames && slots >= kMostReservoir) return takeOver(frame + 1);
        if (frame - begin >= kSpliceAfter && canSplice(frame)) {
            splice(frame);
            return takeOver(frame);
        }
    }
}

// The next segment's frames stay from this one on.
void Segment::takeOver(std::int64_t frame) {
    const std::int64_t begin = context_.plan.end(index_);
    context_.output.write(context_.shape.filePosition(begin), stream_.frames(begin, frame));
    context_.board.done.add(begin - 1, frame);
}

MutableBytes Segment::nextFrames(std::int64_t from, std::int64_t to) {
    next_.resize(static_cast<std::size_t>(context_.shape.offset(to) - context_.shape.offset(from)));
    if (context_.output.read(context_.shape.filePosition(from), next_) != next_.size())
        throw RuntimeError(ErrorNumber::DeviceIOError);
    return next_;
}

bool Segment::equalsNext(std::int64_t frame) {
    return std::ranges::equal(stream_.frames(frame, frame + 1), nextFrames(frame, frame + 1));
}

bool Segment::canSplice(std::int64_t frame) {
    const auto info = [&](Bytes bytes) { return SideInfo::parse(context_.shape.header, bytes); };
    const SideInfo here = info(stream_.frames(frame, frame + 1)), there = info(nextFrames(frame, frame + 1));
    if (here.mainDataBegin < there.mainDataBegin) return false;
    if (frame - context_.plan.end(index_) >= kSpliceAnywayAfter) return true;
    const SideInfo before = info(stream_.frames(frame - 1, frame));
    return here.blocks == there.blocks && before.blocks == info(nextFrames(frame - 1, frame)).blocks;
}

// This segment's last slots take what the next one's frames keep in them; the rest is free.
void Segment::splice(std::int64_t frame) {
    const Mp3Shape &shape = context_.shape;
    const int surplus = SideInfo::parse(shape.header, stream_.frames(frame, frame + 1)).mainDataBegin;
    const int taken = SideInfo::parse(shape.header, nextFrames(frame, frame + 1)).mainDataBegin;
    int distance = 0;
    for (std::int64_t before = frame - 1; distance < surplus; --before) {
        const auto slot = static_cast<std::size_t>(shape.header.slotBegin());
        const MutableBytes ours = stream_.frames(before, before + 1).subspan(slot);
        const MutableBytes theirs = nextFrames(before, before + 1).subspan(slot);
        for (std::size_t i = ours.size(); i > 0 && distance < surplus; --i, ++distance)
            ours[i - 1] = distance < taken ? theirs[i - 1] : std::uint8_t{0};
    }
}

} // namespace tonvale
