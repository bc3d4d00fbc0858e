// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/codec/engine/Segment.h"

#include <algorithm>

namespace tonvale {

namespace {

constexpr std::int64_t kWarmUpFrames = 30;
// Short segments keep every core busy to the end and lose little at a stop; long ones share less
// work with their neighbours.
constexpr std::int64_t kUsualSegments = 8;
constexpr std::int64_t kShortestSegment = 1176, kLongestSegment = 4704;

std::int64_t numberOfSegments(std::int64_t frames) {
    const std::int64_t length = std::clamp(frames / kUsualSegments, kShortestSegment, kLongestSegment);
    const std::int64_t pairs = (frames + length) / (2 * length);
    return std::max<std::int64_t>(1, 2 * pairs);
}

} // namespace

EncodingPlan::EncodingPlan(const Mp3Shape &shape, std::int64_t samples)
    : frames(samples * shape.header.sampleRate / shape.sourceRate / shape.frameSamples() + 2), segments{{0, 0}} {
    // A resampling encoder has no frames of the source's own.
    const std::int64_t count = shape.isResampled ? 1 : numberOfSegments(frames);
    const std::int64_t period = shape.paddingPeriod();
    for (std::int64_t i = 1; i < count; ++i) {
        const std::int64_t warmUp = frames * i / count / period * period;
        segments.push_back({warmUp, warmUp + kWarmUpFrames});
    }
}

void EncodingBoard::setWritten(std::size_t segment, Written written) {
    const std::lock_guard lock(mutex_);
    written_[segment] = written;
    changed_.notify_all();
}

EncodingBoard::Written EncodingBoard::written(std::size_t segment) const {
    const std::lock_guard lock(mutex_);
    return written_[segment];
}

EncodingBoard::Written EncodingBoard::waitForFrame(std::size_t segment, std::int64_t frame,
                                                   const std::stop_token &stop) {
    std::unique_lock lock(mutex_);
    const Written &written = written_[segment];
    (void)changed_.wait(lock, stop, [&] { return written.isComplete || written.end > frame; });
    return written;
}

} // namespace tonvale
