// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Services.h"
#include "tests/unit/fakes/CallLog.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tonvale::test {

enum class MixerStep { None, Open, Line, Control, Get, Set };

// The speakers' volume. One step can be made to fail.
class FakeMixer : public Mixer {
public:
    explicit FakeMixer(CallLog &log) : log_(log) {}

    MixerStep failing = MixerStep::None;
    std::int32_t minimum = 0, maximum = 65535, level = 65535;
    int opened = 0, closed = 0;

    bool open() override {
        if (failing == MixerStep::Open) return false;
        ++opened;
        return true;
    }
    std::optional<MixerLine> speakersLine() override {
        if (failing == MixerStep::Line) return std::nullopt;
        return MixerLine{7};
    }
    std::optional<MixerControl> volumeControl(const MixerLine &line) override {
        if (failing == MixerStep::Control || line.id != 7) return std::nullopt;
        return MixerControl{9, minimum, maximum};
    }
    std::optional<std::int32_t> value(const MixerControl &control) override {
        if (failing == MixerStep::Get || control.id != 9) return std::nullopt;
        return level;
    }
    bool setValue(const MixerControl &control, std::int32_t newLevel) override {
        if (failing == MixerStep::Set || control.id != 9) return false;
        log_.add("mixer.set " + std::to_string(newLevel));
        level = newLevel;
        return true;
    }
    void close() override { ++closed; }

private:
    CallLog &log_;
};

} // namespace tonvale::test
