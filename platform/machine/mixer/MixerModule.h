// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Services.h"

#include <cmath>

namespace tonvale {

// Full volume; what goes beyond is an amplification and reads as full.
inline constexpr std::int32_t kFullVolume = 65536;

[[nodiscard]] inline std::int32_t volumePercent(std::int32_t value) {
    return static_cast<std::int32_t>(std::lround(value * 100.0 / kFullVolume));
}

// A mixer in a module of its own.
class MixerModule : public Mixer {
public:
    // After a failed open: whether that is because there is nothing to be opened.
    [[nodiscard]] virtual bool isAbsent() const = 0;
};

// What the modules offer by this name. The caller owns the mixer.
using MixerModuleFunction = MixerModule *();
inline constexpr const char *kMixerModuleSymbol = "tonvaleMakeMixer";

} // namespace tonvale
