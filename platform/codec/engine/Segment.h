// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/codec/engine/DoneRanges.h"
#include "platform/codec/engine/FrameStream.h"
#include "platform/codec/engine/OutputFile.h"

#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <stop_token>
#include <vector>

namespace tonvale {

// How a file is cut into segments for the crew. It depends on the file alone, and so do the bytes.
struct EncodingPlan {
    EncodingPlan(const Mp3Shape &shape, std::int64_t samples);

    struct Segment {
        std::int64_t warmUp; // the frame at which its encoder starts
        std::int64_t begin;  // its first frame in the file
    };
    std::int64_t frames; // about
    std::vector<Segment> segments;

    [[nodiscard]] bool isLast(std::size_t segment) const { return segment + 1 == segments.size(); }
    // The frame at which the next segment begins.
    [[nodiscard]] std::int64_t end(std::size_t segment) const {
        return isLast(segment) ? INT64_MAX : segments[segment + 1].begin;
    }
};

// What the segments of one file know of each other. For any thread, but for what is set once.
class EncodingBoard {
public:
    explicit EncodingBoard(std::size_t segments) : written_(segments) {}

    DoneRanges done; // frames that stay as they are

    struct Written {
        std::int64_t end = 0;
        bool isComplete = false;
    };
    void setWritten(std::size_t segment, Written written);
    [[nodiscard]] Written written(std::size_t segment) const;
    // Waits until the segment has written this frame or will not; not beyond a stop.
    [[nodiscard]] Written waitForFrame(std::size_t segment, std::int64_t frame, const std::stop_token &stop);

    std::vector<std::uint8_t> tag; // set by the first segment, read when all have ended
    int padding = 0;               // set by the last one

private:
    mutable std::mutex mutex_;
    std::condition_variable_any changed_;
    std::vector<Written> written_;
};

struct EncodingContext {
    const Mp3Shape &shape;
    const EncodingPlan &plan;
    const OutputFile &output;
    int source;
    EncodingBoard &board;
};

// A part of the file, encoded by an encoder of its own. That has started some frames earlier, since
// what it makes of a frame depends on those before.
class Segment {
public:
    Segment(const EncodingContext &context, std::size_t index);

    // Writes the segment's frames.
    void encode(const std::stop_token &stop);
    // Goes on, over the next segment's frames, until that one's encoder makes the same of them: from
    // there on the next one's stay. Where they never meet, they are spliced.
    void join(const std::stop_token &stop);

private:
    void write(std::int64_t to);
    void report(bool isComplete);
    [[nodiscard]] bool encodeFrame(std::int64_t frame);
    void takeOver(std::int64_t frame);
    [[nodiscard]] bool equalsNext(std::int64_t frame);
    [[nodiscard]] bool canSplice(std::int64_t frame);
    void splice(std::int64_t frame);
    [[nodiscard]] MutableBytes nextFrames(std::int64_t from, std::int64_t to);

    EncodingContext context_;
    std::size_t index_;
    FrameStream stream_;
    std::vector<std::uint8_t> next_; // frames of the next segment, read back
};

} // namespace tonvale
