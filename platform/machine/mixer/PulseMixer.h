// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/machine/mixer/MixerModule.h"

#include <pulse/pulseaudio.h>

#include <chrono>
#include <memory>
#include <string>

namespace tonvale {

// The volume of the sound server's default output. The value is that of the loudest channel,
// which is what desktops show; setting it keeps the channels' relation. A connection lives from
// open to close; it is served only inside the calls, each of which ends after two seconds whatever
// the server does.
class PulseMixer : public MixerModule {
public:
    bool open() override;
    std::optional<MixerLine> speakersLine() override;
    std::optional<MixerControl> volumeControl(const MixerLine &line) override;
    std::optional<std::int32_t> value(const MixerControl &control) override;
    bool setValue(const MixerControl &control, std::int32_t value) override;
    void close() override;
    [[nodiscard]] bool isAbsent() const override { return absent_; }

private:
    struct FreeLoop {
        void operator()(pa_mainloop *loop) const { pa_mainloop_free(loop); }
    };
    struct FreeContext {
        void operator()(pa_context *context) const {
            pa_context_disconnect(context);
            pa_context_unref(context);
        }
    };
    struct CancelOperation {
        void operator()(pa_operation *operation) const {
            // A late answer must not reach what is gone by then.
            pa_operation_cancel(operation);
            pa_operation_unref(operation);
        }
    };
    using Operation = std::unique_ptr<pa_operation, CancelOperation>;
    using TimePoint = std::chrono::steady_clock::time_point;

    struct Sink {
        std::string name;
        pa_cvolume volume{};
        bool found = false;
    };

    [[nodiscard]] bool connect();
    [[nodiscard]] bool iterate(TimePoint end);
    [[nodiscard]] bool waitReady(TimePoint end);
    [[nodiscard]] bool finish(const Operation &operation);
    [[nodiscard]] bool readSink();
    [[nodiscard]] bool writeVolume(const pa_cvolume &volume);
    [[nodiscard]] pa_cvolume scaled(pa_volume_t volume);

    std::unique_ptr<pa_mainloop, FreeLoop> loop_;
    std::unique_ptr<pa_context, FreeContext> context_;
    bool absent_ = false;
    Sink sink_;
    Sink beforeSilence_; // silence forgets how the channels stood to each other
};

} // namespace tonvale
