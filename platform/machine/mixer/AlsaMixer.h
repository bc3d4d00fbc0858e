// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/machine/mixer/MixerModule.h"

#include <alsa/asoundlib.h>

#include <memory>

namespace tonvale {

// The master volume of ALSA's default card. The value is that of the loudest channel, scaled to
// the range of the other mixers; setting it keeps the channels' relation.
class AlsaMixer : public MixerModule {
public:
    bool open() override;
    std::optional<MixerLine> speakersLine() override;
    std::optional<MixerControl> volumeControl(const MixerLine &line) override;
    std::optional<std::int32_t> value(const MixerControl &control) override;
    bool setValue(const MixerControl &control, std::int32_t value) override;
    void close() override;
    [[nodiscard]] bool isAbsent() const override { return true; }

private:
    struct CloseMixer {
        void operator()(snd_mixer_t *mixer) const { (void)snd_mixer_close(mixer); }
    };

    [[nodiscard]] bool load();
    [[nodiscard]] snd_mixer_elem_t *findMaster() const;
    [[nodiscard]] std::optional<long> loudest() const;
    [[nodiscard]] bool setChannel(snd_mixer_selem_channel_id_t channel, long loudest, long target);

    std::unique_ptr<snd_mixer_t, CloseMixer> mixer_;
    snd_mixer_elem_t *master_ = nullptr; // the mixer's
    long minimum_ = 0, maximum_ = 0;
};

} // namespace tonvale
