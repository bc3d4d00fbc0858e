// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/machine/mixer/MixerModule.h"

#include <future>
#include <memory>

namespace tonvale {

// The default output of the sound server; ALSA's where no server runs.
class SystemMixer : public Mixer {
public:
    SystemMixer();
    ~SystemMixer() override;

    // Loads the sound server's library and connects to it beside the program's own start. That
    // connection serves every use until endPreload().
    void preload();
    void endPreload();

    bool open() override;
    std::optional<MixerLine> speakersLine() override;
    std::optional<MixerControl> volumeControl(const MixerLine &line) override;
    std::optional<std::int32_t> value(const MixerControl &control) override;
    bool setValue(const MixerControl &control, std::int32_t value) override;
    void close() override;

private:
    // A mixer of a module that is loaded at its first use.
    class Backend {
    public:
        explicit Backend(const char *file) : file_(file) {}
        bool open();
        void load();
        [[nodiscard]] bool isAbsent() const { return !mixer_ || mixer_->isAbsent(); }
        [[nodiscard]] Mixer *get() const { return mixer_.get(); }

    private:
        const char *file_;
        bool loaded_ = false;
        std::unique_ptr<MixerModule> mixer_;
    };

    Backend pulse_, alsa_;
    Mixer *current_ = nullptr;
    std::future<bool> connecting_; // of the thread that preloads
    bool preloaded_ = false;       // the sound server's mixer is open between uses, too
};

} // namespace tonvale
