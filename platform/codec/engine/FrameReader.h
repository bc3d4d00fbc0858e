// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/codec/engine/MpegFrame.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace tonvale {

// Reads frames that lie side by side.
class FrameReader {
public:
    FrameReader(int file, std::int64_t position) : file_(file), position_(position) {}

    struct Frame {
        MpegHeader header;
        MutableBytes bytes; // until the next call
    };
    // Nothing where no whole frame is.
    [[nodiscard]] std::optional<Frame> next();
    // Of the frame that next() gives next.
    [[nodiscard]] std::int64_t position() const { return position_; }

private:
    [[nodiscard]] MutableBytes ahead(std::size_t size);

    int file_;
    std::int64_t position_;
    std::vector<std::uint8_t> buffer_;
    std::size_t used_ = 0; // of the buffer
};

} // namespace tonvale
