// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Signal.h"

#include <cstdint>
#include <string>

namespace tonvale {

// Encodes a WAV file into an MP3 file, with the encoder's own defaults. It works beside the
// user-interface thread; the notifications arrive on it, from the loop, and none arrives after
// StopEncoder, another OpenEncoder, or the end of the control.
//
// The destination appears when it is complete, replacing what was there. A stop (and so the end
// of the control) leaves the part that was done under its name, a failure leaves nothing there.
class Mp3Enc {
public:
    Mp3Enc() = default;
    virtual ~Mp3Enc() = default;
    Mp3Enc(const Mp3Enc &) = delete;
    Mp3Enc &operator=(const Mp3Enc &) = delete;

    Event<std::int32_t> EncoderProgress; // position, 0 to EncoderLength
    Event<> EncoderDone;
    Event<std::int32_t, std::string> EncoderError; // number, description; EncoderDone does not follow

    // 0, or the number of the error. What runs is stopped.
    [[nodiscard]] virtual std::int16_t OpenEncoder(const std::string &source, const std::string &destination) = 0;
    // Returns at once. Where OpenEncoder has failed, EncoderError comes.
    virtual void StartEncoder() = 0;
    virtual void StopEncoder() = 0; // harmless when nothing runs
    [[nodiscard]] virtual std::int32_t EncoderLength() const = 0;
};

} // namespace tonvale
