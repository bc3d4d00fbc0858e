// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Signal.h"

#include <cstdint>
#include <string>

namespace tonvale {

// Decodes an MPEG audio file into a 16-bit WAV file. Threads, notifications and what becomes of
// the destination are as with Mp3Enc.
class Mp3Play {
public:
    Mp3Play() = default;
    virtual ~Mp3Play() = default;
    Mp3Play(const Mp3Play &) = delete;
    Mp3Play &operator=(const Mp3Play &) = delete;

    Event<std::int32_t> DecoderProgress; // position, 0 to DecoderLength
    Event<> DecoderDone;                 // has ended, well or not: there is no notification of an error

    // 0, or the number of the error. What runs is stopped.
    virtual std::int16_t OpenDecoder(const std::string &source, const std::string &destination) = 0;
    // Returns at once. Where OpenDecoder has failed, DecoderDone comes all the same.
    virtual void StartDecoder() = 0;
    virtual void StopDecoder() = 0; // harmless when nothing runs
    [[nodiscard]] virtual std::int32_t DecoderLength() const = 0;
};

} // namespace tonvale
