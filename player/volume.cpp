// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "player/Form1.h"

#include "controls/Numbers.h"
#include "core/setting_keys.h"

namespace tonvale {

namespace {

constexpr double kEngineRange = 10000; // the engine counts from -10000 (silent) to 0 (full)
constexpr double kPercent = 100;
constexpr std::int32_t kDefaultVolume = 100;

std::int32_t engineVolume(std::int32_t percent) {
    return toInt32(percent / kPercent * kEngineRange) - static_cast<std::int32_t>(kEngineRange);
}

std::int32_t spinValue(std::int32_t volume) { return toInt32(volume / kEngineRange * kPercent) + 100; }

} // namespace

void Form1::loadVolumes() {
    attempt([&] { MMLEDSpinX1.Value(textToInt32(app_.setting(setting::kVolume, std::to_string(kDefaultVolume)))); });
    attempt([&] { MMLEDSpinX2.Value(VolumeControl_.GetMasterVolume()); });
    attempt([&] { ActiveMovie1.Volume(engineVolume(MMLEDSpinX1.Value())); });
    attempt([&] { ActiveMovie1.Balance(0); });
    attempt([&] { MMLEDSpinX1.Value(spinValue(ActiveMovie1.Volume())); });
}

void Form1::MMLEDSpinX1_Change() {
    attempt([&] { ActiveMovie1.Volume(engineVolume(MMLEDSpinX1.Value())); });
}

void Form1::MMLEDSpinX2_Change() {
    attempt([&] { VolumeControl_.SetMasterVolume(MMLEDSpinX2.Value()); });
}

void Form1::slidBalance_Change() {
    attempt([&] { ActiveMovie1.Balance(slidBalance.Value()); });
}

void Form1::cmdBalance0_Click() { slidBalance.Value(0); }

} // namespace tonvale
