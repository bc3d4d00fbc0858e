// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/codec/engine/Lame.h"

#include "controls/Errors.h"

#include <numeric>
#include <string>

namespace tonvale {

namespace {

constexpr std::size_t kOutputSize = 1 << 16; // more than any call puts out
constexpr int kMostProbes = 64, kProbeFrames = 2;
constexpr std::size_t kProbeSamples = 1152;

[[noreturn]] void fail(int code) {
    if (code == LAME_NOMEM) throw RuntimeError(ErrorNumber::OutOfMemory);
    throw RuntimeError(ErrorNumber::InternalError, "The MP3 encoder fails (" + std::to_string(code) + ")");
}

void check(int result) {
    if (result < 0) fail(result);
}

void saysNothing(const char *, va_list) {}

} // namespace

Lame::Lame(int sampleRate, int channels) : handle_(lame_init()), buffer_(kOutputSize) {
    lame_global_flags *lame = handle_.get();
    if (lame == nullptr) throw RuntimeError(ErrorNumber::OutOfMemory);
    for (auto *set : {lame_set_errorf, lame_set_debugf, lame_set_msgf}) check(set(lame, saysNothing));
    check(lame_set_in_samplerate(lame, sampleRate));
    check(lame_set_num_channels(lame, channels));
    check(lame_init_params(lame));
}

void Lame::encode(std::span<std::int16_t> samples, std::vector<std::uint8_t> &mp3) {
    lame_global_flags *lame = handle_.get();
    const int size = static_cast<int>(buffer_.size()), count = static_cast<int>(samples.size());
    // The call for alternating samples reads pairs of them, and so beyond the end of a single channel.
    append(lame_get_num_channels(lame) == 1
               ? lame_encode_buffer(lame, samples.data(), samples.data(), count, buffer_.data(), size)
               : lame_encode_buffer_interleaved(lame, samples.data(), count / 2, buffer_.data(), size),
           mp3);
}

void Lame::encode(std::span<const float> left, std::span<const float> right, std::vector<std::uint8_t> &mp3) {
    append(lame_encode_buffer_float(handle_.get(), left.data(), right.data(), static_cast<int>(left.size()),
                                    buffer_.data(), static_cast<int>(buffer_.size())),
           mp3);
}

void Lame::flush(std::vector<std::uint8_t> &mp3) {
    append(lame_encode_flush(handle_.get(), buffer_.data(), static_cast<int>(buffer_.size())), mp3);
}

void Lame::append(int result, std::vector<std::uint8_t> &mp3) {
    check(result);
    mp3.insert(mp3.end(), buffer_.begin(), buffer_.begin() + result);
}

std::vector<std::uint8_t> Lame::tagFrame() const {
    std::vector<std::uint8_t> frame(lame_get_lametag_frame(handle_.get(), nullptr, 0));
    if (!frame.empty() && lame_get_lametag_frame(handle_.get(), frame.data(), frame.size()) != frame.size())
        fail(LAME_GENERICERROR);
    return frame;
}

Mp3Shape::Mp3Shape(int rate, int channelCount) : sourceRate(rate), channels(channelCount) {
    // Whether there is room for the tag frame shows when a frame is out.
    Lame lame(rate, channelCount);
    const std::vector<float> silence(kProbeSamples);
    std::vector<std::uint8_t> mp3;
    for (int i = 0; i < kMostProbes; ++i) {
        lame.encode(silence, silence, mp3);
        tagSize = static_cast<int>(lame.tagFrame().size());
        if (lame.frames() < kProbeFrames || mp3.size() < static_cast<std::size_t>(tagSize) + kMpegHeaderSize) continue;
        const auto first = MpegHeader::parse(Bytes(mp3).subspan(static_cast<std::size_t>(tagSize)));
        if (!first) break;
        header = *first;
        delay = lame.delay();
        isResampled = lame.outputRate() != rate;
        return;
    }
    fail(LAME_GENERICERROR);
}

std::int64_t Mp3Shape::remainder() const {
    return std::int64_t{header.samples()} / 8 * 1000 * header.bitRate % header.sampleRate;
}

std::int64_t Mp3Shape::paddingPeriod() const {
    return header.sampleRate / std::gcd(remainder(), std::int64_t{header.sampleRate});
}

std::int64_t Mp3Shape::offset(std::int64_t frame) const {
    // The first frame is never padded; then one is whenever the fractions make up a byte.
    const std::int64_t rate = header.sampleRate;
    const std::int64_t padded = frame == 0 ? 0 : ((frame - 1) * remainder() + rate - 1) / rate;
    return frame * header.unpaddedSize() + padded;
}

} // namespace tonvale
