// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/codec/engine/Lame.h"

#include <cstdint>

namespace tonvale {

// The checksum of the info tag.
class Crc16 {
public:
    void add(Bytes bytes);
    [[nodiscard]] std::uint16_t value() const { return value_; }

private:
    std::uint16_t value_ = 0;
};

// What the tag frame says of the file.
struct InfoTag {
    std::int64_t frames = 0; // without the tag frame
    int delay = 0, padding = 0;
    std::uint16_t musicCrc = 0;

    // Puts it into a tag frame that an encoder has made for a part of the file.
    void writeTo(MutableBytes frame, const Mp3Shape &shape) const;
};

} // namespace tonvale
