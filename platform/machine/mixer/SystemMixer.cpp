// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/mixer/SystemMixer.h"

#include "platform/machine/base/Module.h"

#include <utility>

namespace tonvale {

void SystemMixer::Backend::load() {
    if (loaded_) return;
    loaded_ = true;
    auto *make = reinterpret_cast<MixerModuleFunction *>(symbolOfModule(file_, kMixerModuleSymbol));
    if (make != nullptr) mixer_.reset(make());
}

bool SystemMixer::Backend::open() {
    load();
    return mixer_ && mixer_->open();
}

SystemMixer::SystemMixer() : pulse_("tonvale-pulse.so"), alsa_("tonvale-alsa.so") {}

SystemMixer::~SystemMixer() {
    endPreload();
    close();
}

void SystemMixer::preload() {
    connecting_ = std::async(std::launch::async, [this] { return pulse_.open(); });
}

void SystemMixer::endPreload() {
    if (connecting_.valid()) preloaded_ = connecting_.get();
    if (std::exchange(preloaded_, false)) pulse_.get()->close();
}

bool SystemMixer::open() {
    close();
    if (connecting_.valid()) preloaded_ = connecting_.get();
    if (preloaded_) {
        current_ = pulse_.get();
        return true;
    }
    for (Backend *backend : {&pulse_, &alsa_}) {
        if (backend->open()) current_ = backend->get();
        // A server that is there and does not answer is not gone around: ALSA may lead to it again.
        if (current_ != nullptr || !backend->isAbsent()) break;
    }
    return current_ != nullptr;
}

std::optional<MixerLine> SystemMixer::speakersLine() {
    return current_ != nullptr ? current_->speakersLine() : std::nullopt;
}

std::optional<MixerControl> SystemMixer::volumeControl(const MixerLine &line) {
    return current_ != nullptr ? current_->volumeControl(line) : std::nullopt;
}

std::optional<std::int32_t> SystemMixer::value(const MixerControl &control) {
    return current_ != nullptr ? current_->value(control) : std::nullopt;
}

bool SystemMixer::setValue(const MixerControl &control, std::int32_t value) {
    return current_ != nullptr && current_->setValue(control, value);
}

void SystemMixer::close() {
    if (current_ != nullptr && !preloaded_) current_->close();
    current_ = nullptr;
}

} // namespace tonvale
