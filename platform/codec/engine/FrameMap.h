// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/codec/engine/MpegFrame.h"

#include <cstdint>
#include <optional>
#include <stop_token>
#include <vector>

namespace tonvale {

// Where the ranges of frames of a layer III file begin, found by walking from header to header.
struct FrameMap {
    static constexpr std::int64_t kRangeFrames = 128;

    struct Range {
        std::int64_t position; // in the file, of the frame that is fed first
        std::int64_t fedFirst; // its number
        std::int64_t heard;    // the first one that is decoded; those before only hold parts of it
    };
    MpegHeader header;
    std::int64_t frames = 0;
    std::vector<Range> ranges;

    [[nodiscard]] std::int64_t begin(std::size_t range) const {
        return static_cast<std::int64_t>(range) * kRangeFrames;
    }
    [[nodiscard]] std::int64_t end(std::size_t range) const {
        return range + 1 == ranges.size() ? frames : begin(range + 1);
    }
    // Nothing if the frames do not lie side by side from `position` to the file's end, are of several
    // kinds, or refer to data that is not there; nothing on a stop, too.
    [[nodiscard]] static std::optional<FrameMap> make(int file, std::int64_t position, const std::stop_token &stop);
};

} // namespace tonvale
