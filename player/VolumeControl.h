// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Services.h"

#include <cstdint>

namespace tonvale {

// The system's speaker volume in per cent, for all windows. The mixer is opened and closed inside
// each call.
class VolumeControl {
public:
    static constexpr std::int32_t kFailed = -1;

    explicit VolumeControl(Mixer &mixer) : mixer_(mixer) {}

    // Prepares VolumeControlRecord; on true the mixer is open, and the caller closes it.
    [[nodiscard]] bool OpenMasterVolume();
    // 0 to 100 and, where the mixer's minimum is not 0, a little more; kFailed without a mixer.
    [[nodiscard]] std::int32_t GetMasterVolume();
    // Limits `percent` to 0 through 100. False when the volume was not set.
    bool SetMasterVolume(std::int32_t percent);

    // The volume control of the mixer opened last.
    MixerControl VolumeControlRecord;

private:
    Mixer &mixer_;
};

// Drops a keystroke that has no place in a number: `keyAscii` becomes 0.
void NumberKeyFilter(std::int16_t &keyAscii);

} // namespace tonvale
