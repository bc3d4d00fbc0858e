// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/codec/engine/DoneRanges.h"
#include "platform/codec/engine/FrameMap.h"
#include "platform/codec/engine/Mpg123.h"
#include "platform/codec/engine/OutputFile.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <stop_token>
#include <vector>

namespace tonvale {

// Decodes ranges of frames, any number of them at a time.
class RangeDecoder {
public:
    struct Context {
        int source;
        const FrameMap &map;
        SoundFormat format;
        std::int64_t begin, end; // the samples that are wanted
        const OutputFile &output;
        std::int64_t outputBegin; // where in the file they belong
    };
    explicit RangeDecoder(const Context &context) : context_(context) {}

    // Takes ranges until none is left.
    void work(const std::stop_token &stop);

    // Of the wanted samples, those which are written.
    [[nodiscard]] const DoneRanges &done() const { return done_; }
    // Whether a frame may be damaged. Then the library decodes those after it a little differently
    // in one go, and nothing of this is good for use.
    [[nodiscard]] bool isDoubtful() const { return isDoubtful_; }

private:
    class Output;
    struct Frame {
        std::int64_t number;
        bool hasData; // bits that describe sound
        Bytes sound;
    };
    void decode(std::size_t range, FrameDecoder &decoder, const std::stop_token &stop);
    void decodeFrames(std::size_t range, FrameDecoder &decoder, const std::stop_token &stop,
                      const std::function<void(const Frame &frame)> &take);
    [[nodiscard]] bool endsSilent(Bytes sound) const;

    const Context context_;
    DoneRanges done_;
    std::atomic<std::size_t> nextRange_ = 0;
    std::atomic<bool> isDoubtful_ = false;
};

} // namespace tonvale
