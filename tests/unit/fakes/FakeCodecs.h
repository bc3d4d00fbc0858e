// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Errors.h"
#include "controls/Mp3Enc.h"
#include "controls/Mp3Play.h"
#include "tests/unit/fakes/CallLog.h"
#include "tests/unit/fakes/FakeFiles.h"
#include "tests/unit/fakes/FakeLoop.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>

namespace tonvale::test {

// The encoder and the decoder as a test sees them. A test says how far the file in work is, and
// the notifications arrive from the loop. What comes out are files with the text "of SOURCE".
class FakeCodecs {
public:
    FakeCodecs(CallLog &log, FakeLoop &loop, FakeFiles &files) : log_(log), loop_(loop), files_(files) {}

    std::int32_t length = 100;
    std::set<std::string> refused; // sources that cannot be opened
    std::optional<ErrorNumber> openError, startError, stopError;
    std::string source, destination; // of the last file opened
    bool running = false;
    int made = 0, alive = 0;

    void progress(std::int32_t position) {
        notify([position](const Listener &listener) { listener.progress(position); });
    }
    // The file in work is complete.
    void finish() {
        files_.addText(destination, "of " + source);
        finishWithout();
    }
    // The same, with nothing to show for it.
    void finishWithout() {
        running = false;
        notify([](const Listener &listener) { listener.done(); });
    }
    // The file in work cannot be converted to its end.
    void fail() {
        running = false;
        notify([](const Listener &listener) { listener.failed(); });
    }

    [[nodiscard]] std::function<std::unique_ptr<Mp3Enc>()> encoderFactory() {
        return [this] { return std::make_unique<Encoder>(*this); };
    }
    [[nodiscard]] std::function<std::unique_ptr<Mp3Play>()> decoderFactory() {
        return [this] { return std::make_unique<Decoder>(*this); };
    }

private:
    struct Listener {
        std::function<void(std::int32_t)> progress;
        std::function<void()> done, failed;
    };

    // What both have in common.
    class Control {
    public:
        Control(FakeCodecs &codecs, Listener listener)
            : codecs_(codecs), listener_(std::make_shared<Listener>(std::move(listener))) {
            ++codecs_.made;
            ++codecs_.alive;
        }
        ~Control() {
            stopQuietly();
            --codecs_.alive;
        }
        Control(const Control &) = delete;
        Control &operator=(const Control &) = delete;

        std::int16_t open(const std::string &source, const std::string &destination) {
            codecs_.log_.add("codec.open " + source + " -> " + destination);
            if (codecs_.openError) throw RuntimeError(*codecs_.openError);
            codecs_.listener_ = listener_;
            codecs_.source = source;
            codecs_.destination = destination;
            return codecs_.refused.contains(source) ? static_cast<std::int16_t>(ErrorNumber::InvalidProcedureCall) : 0;
        }
        void start() {
            codecs_.log_.add("codec.start");
            if (codecs_.startError) throw RuntimeError(*codecs_.startError);
            codecs_.running = !codecs_.refused.contains(codecs_.source);
        }
        void stop() {
            codecs_.log_.add("codec.stop");
            stopQuietly();
            if (codecs_.stopError) throw RuntimeError(*codecs_.stopError);
        }
        [[nodiscard]] std::int32_t length() const { return codecs_.length; }

    private:
        void stopQuietly() {
            if (codecs_.listener_.lock() != listener_) return;
            if (std::exchange(codecs_.running, false))
                codecs_.files_.addText(codecs_.destination, "part of " + codecs_.source);
        }
        FakeCodecs &codecs_;
        std::shared_ptr<Listener> listener_;
    };

    class Encoder : public Mp3Enc {
    public:
        explicit Encoder(FakeCodecs &codecs)
            : control_(codecs,
                       {[this](std::int32_t position) { EncoderProgress(position); }, [this] { EncoderDone(); },
                        [this] { EncoderError(static_cast<std::int32_t>(ErrorNumber::DiskFull), "Disk full"); }}) {}
        std::int16_t OpenEncoder(const std::string &from, const std::string &to) override {
            return control_.open(from, to);
        }
        void StartEncoder() override { control_.start(); }
        void StopEncoder() override { control_.stop(); }
        [[nodiscard]] std::int32_t EncoderLength() const override { return control_.length(); }

    private:
        Control control_;
    };

    class Decoder : public Mp3Play {
    public:
        explicit Decoder(FakeCodecs &codecs)
            : control_(codecs, {[this](std::int32_t position) { DecoderProgress(position); }, [this] { DecoderDone(); },
                                [this] { DecoderDone(); }}) {}
        std::int16_t OpenDecoder(const std::string &from, const std::string &to) override {
            return control_.open(from, to);
        }
        void StartDecoder() override { control_.start(); }
        void StopDecoder() override { control_.stop(); }
        [[nodiscard]] std::int32_t DecoderLength() const override { return control_.length(); }

    private:
        Control control_;
    };

    // A control that is gone by then hears nothing any more. One that has been stopped does: the
    // window must bear what was on its way already.
    void notify(std::function<void(const Listener &)> call) {
        loop_.post([weak = listener_, call = std::move(call)] {
            if (const auto listener = weak.lock()) call(*listener);
        });
    }

    CallLog &log_;
    FakeLoop &loop_;
    FakeFiles &files_;
    std::weak_ptr<Listener> listener_;
};

} // namespace tonvale::test
