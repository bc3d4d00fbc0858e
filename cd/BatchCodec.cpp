// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cd/BatchCodec.h"

#include <utility>

namespace tonvale {

namespace {

// What fails in the middle of a file is told to nobody: the run stands until it is stopped.
class BatchEncoder : public BatchCodec {
public:
    explicit BatchEncoder(std::unique_ptr<Mp3Enc> encoder) : Mp3Enc1(std::move(encoder)) {
        Mp3Enc1->EncoderProgress = [this](std::int32_t position) { progress(position); };
        Mp3Enc1->EncoderDone = [this] { done(); };
    }
    std::int16_t open(const std::string &source, const std::string &destination) override {
        return Mp3Enc1->OpenEncoder(source, destination);
    }
    void start() override { Mp3Enc1->StartEncoder(); }
    void stop() override { Mp3Enc1->StopEncoder(); }
    [[nodiscard]] std::int32_t length() const override { return Mp3Enc1->EncoderLength(); }

private:
    std::unique_ptr<Mp3Enc> Mp3Enc1;
};

class BatchDecoder : public BatchCodec {
public:
    explicit BatchDecoder(std::unique_ptr<Mp3Play> decoder) : Mp3Play1(std::move(decoder)) {
        Mp3Play1->DecoderProgress = [this](std::int32_t position) { progress(position); };
        Mp3Play1->DecoderDone = [this] { done(); };
    }
    std::int16_t open(const std::string &source, const std::string &destination) override {
        return Mp3Play1->OpenDecoder(source, destination);
    }
    void start() override { Mp3Play1->StartDecoder(); }
    void stop() override { Mp3Play1->StopDecoder(); }
    [[nodiscard]] std::int32_t length() const override { return Mp3Play1->DecoderLength(); }

private:
    std::unique_ptr<Mp3Play> Mp3Play1;
};

} // namespace

std::unique_ptr<BatchCodec> makeBatchEncoder(const Services &services) {
    return std::make_unique<BatchEncoder>(services.makeMp3Enc());
}

std::unique_ptr<BatchCodec> makeBatchDecoder(const Services &services) {
    return std::make_unique<BatchDecoder>(services.makeMp3Play());
}

} // namespace tonvale
