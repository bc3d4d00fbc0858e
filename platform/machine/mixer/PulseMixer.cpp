// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/mixer/PulseMixer.h"

#include <algorithm>

namespace tonvale {

namespace {

using Steady = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kLongestCall{2000};
constexpr std::uint32_t kSpeakers = 1;
constexpr const char *kDefaultSink = "@DEFAULT_SINK@";

} // namespace

bool PulseMixer::open() {
    if (connect() && readSink()) return true;
    absent_ = context_ && pa_context_errno(context_.get()) == PA_ERR_CONNECTIONREFUSED;
    close();
    return false;
}

std::optional<MixerLine> PulseMixer::speakersLine() {
    return sink_.found ? std::optional(MixerLine{kSpeakers}) : std::nullopt;
}

std::optional<MixerControl> PulseMixer::volumeControl(const MixerLine &line) {
    if (!sink_.found || line.id != kSpeakers) return std::nullopt;
    return MixerControl{kSpeakers, 0, kFullVolume};
}

std::optional<std::int32_t> PulseMixer::value(const MixerControl &control) {
    if (!sink_.found || control.id != kSpeakers) return std::nullopt;
    return static_cast<std::int32_t>(std::min<pa_volume_t>(pa_cvolume_max(&sink_.volume), kFullVolume));
}

bool PulseMixer::setValue(const MixerControl &control, std::int32_t value) {
    const auto present = this->value(control);
    if (!present) return false;
    value = std::clamp(value, 0, kFullVolume);
    // The shown per cent is written back as it was read; that must not move a volume that lies
    // between two of them, or beyond the full one.
    if (volumePercent(*present) == volumePercent(value)) return true;
    if (!pa_cvolume_is_muted(&sink_.volume)) beforeSilence_ = sink_;
    return writeVolume(scaled(static_cast<pa_volume_t>(value)));
}

void PulseMixer::close() {
    sink_ = {};
    context_.reset();
    loop_.reset();
}

bool PulseMixer::connect() {
    close();
    loop_.reset(pa_mainloop_new());
    if (!loop_) return false;
    context_.reset(pa_context_new(pa_mainloop_get_api(loop_.get()), "Orvane Tonvale"));
    return context_ && pa_context_connect(context_.get(), nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) >= 0 &&
           waitReady(Steady::now() + kLongestCall);
}

// One round of the connection's loop; false when the time is over or the loop has failed.
bool PulseMixer::iterate(TimePoint end) {
    const auto left = std::chrono::ceil<std::chrono::microseconds>(end - Steady::now()).count();
    return left > 0 && pa_mainloop_prepare(loop_.get(), static_cast<int>(left)) >= 0 &&
           pa_mainloop_poll(loop_.get()) >= 0 && pa_mainloop_dispatch(loop_.get()) >= 0;
}

bool PulseMixer::waitReady(TimePoint end) {
    while (true) {
        const pa_context_state_t state = pa_context_get_state(context_.get());
        if (state == PA_CONTEXT_READY) return true;
        if (!PA_CONTEXT_IS_GOOD(state) || !iterate(end)) return false;
    }
}

bool PulseMixer::finish(const Operation &operation) {
    const TimePoint end = Steady::now() + kLongestCall;
    while (operation && pa_operation_get_state(operation.get()) == PA_OPERATION_RUNNING)
        if (!iterate(end)) return false;
    return operation && pa_operation_get_state(operation.get()) == PA_OPERATION_DONE;
}

bool PulseMixer::readSink() {
    sink_ = {};
    const auto keep = [](pa_context *, const pa_sink_info *info, int, void *user) {
        if (info != nullptr) *static_cast<Sink *>(user) = {info->name, info->volume, true};
    };
    const Operation asked(pa_context_get_sink_info_by_name(context_.get(), kDefaultSink, keep, &sink_));
    return finish(asked) && sink_.found;
}

bool PulseMixer::writeVolume(const pa_cvolume &volume) {
    bool good = false;
    const auto keep = [](pa_context *, int success, void *user) { *static_cast<bool *>(user) = success != 0; };
    const Operation asked(pa_context_set_sink_volume_by_name(context_.get(), sink_.name.c_str(), &volume, keep, &good));
    if (!finish(asked) || !good) return false;
    sink_.volume = volume;
    return true;
}

pa_cvolume PulseMixer::scaled(pa_volume_t volume) {
    const bool known = beforeSilence_.found && beforeSilence_.name == sink_.name &&
                       beforeSilence_.volume.channels == sink_.volume.channels;
    pa_cvolume result = known && pa_cvolume_is_muted(&sink_.volume) ? beforeSilence_.volume : sink_.volume;
    // Fails for an invalid volume only, and the server has just sent this one.
    if (pa_cvolume_scale(&result, volume) == nullptr) return sink_.volume;
    return result;
}

} // namespace tonvale

extern "C" __attribute__((visibility("default"))) tonvale::MixerModule *tonvaleMakeMixer() {
    return std::make_unique<tonvale::PulseMixer>().release();
}
