// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/codec/engine/Mpg123.h"

#include <cstdint>
#include <vector>

namespace tonvale {

// What stands before the samples in a WAV file.
class WavHeader {
public:
    // A file that may become longer than 4 GiB keeps room for the sizes of an RF64 file.
    enum class Room { Usual, Long };
    WavHeader(SoundFormat format, Room room) : format_(format), room_(room) {}

    [[nodiscard]] std::int64_t size() const;
    [[nodiscard]] std::vector<std::uint8_t> bytes(std::int64_t dataSize) const;

private:
    SoundFormat format_;
    Room room_;
};

} // namespace tonvale
