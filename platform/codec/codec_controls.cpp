// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/codec/codec_controls.h"

#include "controls/Errors.h"
#include "platform/codec/Converter.h"
#include "platform/machine/base/Module.h"

#include <algorithm>
#include <thread>

namespace tonvale {

namespace {

CodecModule loadCodecModule() {
    CodecModule module;
    auto *fill = reinterpret_cast<CodecModuleFunction *>(symbolOfModule("tonvale-codec.so", kCodecModuleSymbol));
    if (fill == nullptr) throw RuntimeError(ErrorNumber::CantCreateObject);
    fill(module);
    return module;
}

// The file that the name is going to have: an existing one, or a new one in an existing directory.
std::string findTarget(const CodecFileFinder &find, const std::string &target) {
    const std::size_t name = target.rfind('/') + 1;
    if (name <= 1) return find(target);
    return find(find(target.substr(0, name - 1)) + target.substr(name - 1));
}

Converter::Open opener(CodecModule::Open *CodecModule::*open, const CodecFileFinder &find, Crew crew) {
    if (crew.threads == 0) crew.threads = std::max(1U, std::thread::hardware_concurrency());
    return [open, find, crew](const std::string &source, const std::string &target) {
        return (loadCodecModule().*open)(find(source), findTarget(find, target), crew);
    };
}

class CodecMp3Enc final : public Mp3Enc {
public:
    CodecMp3Enc(EventLoop &loop, const CodecFileFinder &find, Crew crew)
        : converter_(loop, opener(&CodecModule::openEncoding, find, crew), callbacks()) {}

    std::int16_t OpenEncoder(const std::string &source, const std::string &destination) override {
        return converter_.open(source, destination);
    }
    void StartEncoder() override { converter_.start(); }
    void StopEncoder() override { converter_.stop(); }
    [[nodiscard]] std::int32_t EncoderLength() const override { return converter_.length(); }

private:
    Converter::Callbacks callbacks() {
        return {[this](std::int32_t position) { EncoderProgress(position); }, [this] { EncoderDone(); },
                [this](const RuntimeError &error) { EncoderError(error.number(), error.description()); }};
    }
    Converter converter_;
};

class CodecMp3Play final : public Mp3Play {
public:
    CodecMp3Play(EventLoop &loop, const CodecFileFinder &find, Crew crew)
        : converter_(loop, opener(&CodecModule::openDecoding, find, crew), callbacks()) {}

    std::int16_t OpenDecoder(const std::string &source, const std::string &destination) override {
        return converter_.open(source, destination);
    }
    void StartDecoder() override { converter_.start(); }
    void StopDecoder() override { converter_.stop(); }
    [[nodiscard]] std::int32_t DecoderLength() const override { return converter_.length(); }

private:
    Converter::Callbacks callbacks() {
        return {[this](std::int32_t position) { DecoderProgress(position); }, [this] { DecoderDone(); },
                [this](const RuntimeError &) { DecoderDone(); }};
    }
    Converter converter_;
};

} // namespace

std::unique_ptr<Mp3Enc> makeMp3Enc(EventLoop &loop, const CodecFileFinder &find, Crew crew) {
    return std::make_unique<CodecMp3Enc>(loop, find, crew);
}

std::unique_ptr<Mp3Play> makeMp3Play(EventLoop &loop, const CodecFileFinder &find, Crew crew) {
    return std::make_unique<CodecMp3Play>(loop, find, crew);
}

} // namespace tonvale
