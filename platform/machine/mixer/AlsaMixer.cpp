// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/mixer/AlsaMixer.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace tonvale {

namespace {

constexpr std::uint32_t kSpeakers = 1;
constexpr const char *kDefaultCard = "default";
constexpr std::string_view kMaster = "Master";

// A machine without a card is no error that belongs on the terminal.
void ignoreMessage(const char *, int, const char *, int, const char *, ...) {}

std::optional<long> channelVolume(snd_mixer_elem_t *element, snd_mixer_selem_channel_id_t channel) {
    long volume = 0;
    if (snd_mixer_selem_has_playback_channel(element, channel) == 0 ||
        snd_mixer_selem_get_playback_volume(element, channel, &volume) < 0)
        return std::nullopt;
    return volume;
}

template <class Function> void forEachChannel(const Function &function) {
    for (int channel = 0; channel <= SND_MIXER_SCHN_LAST; ++channel)
        function(static_cast<snd_mixer_selem_channel_id_t>(channel));
}

} // namespace

bool AlsaMixer::open() {
    close();
    if (load()) return true;
    close();
    return false;
}

std::optional<MixerLine> AlsaMixer::speakersLine() {
    return master_ != nullptr ? std::optional(MixerLine{kSpeakers}) : std::nullopt;
}

std::optional<MixerControl> AlsaMixer::volumeControl(const MixerLine &line) {
    if (master_ == nullptr || line.id != kSpeakers) return std::nullopt;
    return MixerControl{kSpeakers, 0, kFullVolume};
}

std::optional<std::int32_t> AlsaMixer::value(const MixerControl &control) {
    if (master_ == nullptr || control.id != kSpeakers) return std::nullopt;
    const auto volume = loudest();
    if (!volume) return std::nullopt;
    const double part = static_cast<double>(*volume - minimum_) / static_cast<double>(maximum_ - minimum_);
    return static_cast<std::int32_t>(std::lround(std::clamp(part, 0.0, 1.0) * kFullVolume));
}

bool AlsaMixer::setValue(const MixerControl &control, std::int32_t value) {
    const auto present = this->value(control);
    const auto before = loudest();
    if (!present || !before) return false;
    value = std::clamp(value, 0, kFullVolume);
    if (volumePercent(*present) == volumePercent(value)) return true;
    const double part = static_cast<double>(value) / kFullVolume;
    const long target = std::lround(part * static_cast<double>(maximum_ - minimum_));
    bool good = true;
    forEachChannel(
        [&](snd_mixer_selem_channel_id_t channel) { good = setChannel(channel, *before - minimum_, target) && good; });
    return good;
}

void AlsaMixer::close() {
    master_ = nullptr;
    mixer_.reset();
}

bool AlsaMixer::load() {
    if (snd_lib_error_set_handler(ignoreMessage) < 0) return false;
    snd_mixer_t *mixer = nullptr;
    if (snd_mixer_open(&mixer, 0) < 0) return false;
    mixer_.reset(mixer);
    if (snd_mixer_attach(mixer, kDefaultCard) < 0 || snd_mixer_selem_register(mixer, nullptr, nullptr) < 0 ||
        snd_mixer_load(mixer) < 0)
        return false;
    master_ = findMaster();
    return master_ != nullptr && snd_mixer_selem_get_playback_volume_range(master_, &minimum_, &maximum_) >= 0 &&
           maximum_ > minimum_;
}

// The element of that name; where a card has none, the first that has a volume.
snd_mixer_elem_t *AlsaMixer::findMaster() const {
    snd_mixer_elem_t *first = nullptr;
    for (auto *element = snd_mixer_first_elem(mixer_.get()); element != nullptr;
         element = snd_mixer_elem_next(element)) {
        if (snd_mixer_selem_has_playback_volume(element) == 0) continue;
        if (snd_mixer_selem_get_name(element) == kMaster) return element;
        if (first == nullptr) first = element;
    }
    return first;
}

std::optional<long> AlsaMixer::loudest() const {
    std::optional<long> result;
    forEachChannel([&](snd_mixer_selem_channel_id_t channel) {
        const auto volume = channelVolume(master_, channel);
        if (volume && (!result || *volume > *result)) result = volume;
    });
    return result;
}

// `loudest` and `target` count from the minimum.
bool AlsaMixer::setChannel(snd_mixer_selem_channel_id_t channel, long loudest, long target) {
    const auto volume = channelVolume(master_, channel);
    if (!volume) return true; // a channel that this card does not have
    const long scaled = loudest > 0 ? std::lround(static_cast<double>(*volume - minimum_) *
                                                  static_cast<double>(target) / static_cast<double>(loudest))
                                    : target;
    return snd_mixer_selem_set_playback_volume(master_, channel, minimum_ + scaled) >= 0;
}

} // namespace tonvale

extern "C" __attribute__((visibility("default"))) tonvale::MixerModule *tonvaleMakeMixer() {
    return std::make_unique<tonvale::AlsaMixer>().release();
}
