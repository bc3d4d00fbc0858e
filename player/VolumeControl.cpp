// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "player/VolumeControl.h"

#include "controls/Numbers.h"

#include <algorithm>
#include <string_view>

namespace tonvale {

namespace {

constexpr double kFullPercent = 100;
constexpr std::int16_t kLastControlKey = 26;

double span(const MixerControl &control) { return static_cast<double>(control.Maximum) - control.Minimum; }

// Closes the mixer at the end of a call.
class OpenMixer {
public:
    explicit OpenMixer(Mixer &mixer) : mixer_(&mixer) {}
    OpenMixer(const OpenMixer &) = delete;
    OpenMixer &operator=(const OpenMixer &) = delete;
    ~OpenMixer() {
        if (mixer_ != nullptr) mixer_->close();
    }
    void leaveOpen() { mixer_ = nullptr; }

private:
    Mixer *mixer_;
};

} // namespace

bool VolumeControl::OpenMasterVolume() {
    if (!mixer_.open()) return false;
    OpenMixer open(mixer_);
    const auto line = mixer_.speakersLine();
    const auto control = line ? mixer_.volumeControl(*line) : std::nullopt;
    if (!control) return false;
    VolumeControlRecord = *control;
    open.leaveOpen();
    return true;
}

std::int32_t VolumeControl::GetMasterVolume() {
    if (!OpenMasterVolume()) return kFailed;
    const OpenMixer open(mixer_);
    const auto value = mixer_.value(VolumeControlRecord);
    if (!value || span(VolumeControlRecord) == 0) return kFailed;
    return toInt32(*value / span(VolumeControlRecord) * kFullPercent);
}

bool VolumeControl::SetMasterVolume(std::int32_t percent) {
    if (!OpenMasterVolume()) return false;
    const OpenMixer open(mixer_);
    const std::int32_t limited = std::clamp(percent, 0, 100);
    return mixer_.setValue(VolumeControlRecord, toInt32(span(VolumeControlRecord) / kFullPercent * limited));
}

void NumberKeyFilter(std::int16_t &keyAscii) {
    if (keyAscii <= kLastControlKey) return;
    constexpr std::string_view kAllowed = "0123456789.";
    const bool allowed = keyAscii < 128 && kAllowed.find(static_cast<char>(keyAscii)) != std::string_view::npos;
    if (!allowed) keyAscii = 0;
}

} // namespace tonvale
