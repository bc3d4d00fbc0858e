// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/codec/engine/WavSource.h"

#include "controls/Errors.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <exception>

namespace tonvale {

namespace {

constexpr std::int32_t kInvalidFileFormat = 321;
constexpr int kMostChannels = 8;
constexpr int kLowestRate = 4000, kHighestRate = 768000;
constexpr float kFullScale = 32768;
constexpr float kHalfPower = 0.70710678F;

constexpr std::array kContainers{SF_FORMAT_WAV, SF_FORMAT_WAVEX, SF_FORMAT_RF64};
constexpr std::array kEncodings{SF_FORMAT_PCM_U8, SF_FORMAT_PCM_16, SF_FORMAT_PCM_24, SF_FORMAT_PCM_32,
                                SF_FORMAT_FLOAT,  SF_FORMAT_DOUBLE, SF_FORMAT_ULAW,   SF_FORMAT_ALAW};

void check(sf_count_t count, std::size_t expected) {
    if (count != static_cast<sf_count_t>(expected)) throw RuntimeError(ErrorNumber::DeviceIOError);
}

std::array<float, 2> gainOf(int speaker) {
    switch (speaker) {
    case SF_CHANNEL_MAP_LEFT:
    case SF_CHANNEL_MAP_FRONT_LEFT:
    case SF_CHANNEL_MAP_FRONT_LEFT_OF_CENTER: return {1, 0};
    case SF_CHANNEL_MAP_RIGHT:
    case SF_CHANNEL_MAP_FRONT_RIGHT:
    case SF_CHANNEL_MAP_FRONT_RIGHT_OF_CENTER: return {0, 1};
    case SF_CHANNEL_MAP_REAR_LEFT:
    case SF_CHANNEL_MAP_SIDE_LEFT: return {kHalfPower, 0};
    case SF_CHANNEL_MAP_REAR_RIGHT:
    case SF_CHANNEL_MAP_SIDE_RIGHT: return {0, kHalfPower};
    case SF_CHANNEL_MAP_LFE: return {0, 0};
    default: return {kHalfPower, kHalfPower};
    }
}

// Where a file does not say where its channels belong, they are in the usual order.
std::vector<int> usualSpeakers(int channels) {
    constexpr int kLeft = SF_CHANNEL_MAP_LEFT, kRight = SF_CHANNEL_MAP_RIGHT, kCenter = SF_CHANNEL_MAP_CENTER,
                  kLow = SF_CHANNEL_MAP_LFE, kRearLeft = SF_CHANNEL_MAP_REAR_LEFT,
                  kRearRight = SF_CHANNEL_MAP_REAR_RIGHT, kSideLeft = SF_CHANNEL_MAP_SIDE_LEFT,
                  kSideRight = SF_CHANNEL_MAP_SIDE_RIGHT, kRear = SF_CHANNEL_MAP_REAR_CENTER;
    switch (channels) {
    case 3: return {kLeft, kRight, kCenter};
    case 4: return {kLeft, kRight, kRearLeft, kRearRight};
    case 5: return {kLeft, kRight, kCenter, kRearLeft, kRearRight};
    case 6: return {kLeft, kRight, kCenter, kLow, kRearLeft, kRearRight};
    case 7: return {kLeft, kRight, kCenter, kLow, kRear, kSideLeft, kSideRight};
    default: return {kLeft, kRight, kCenter, kLow, kRearLeft, kRearRight, kSideLeft, kSideRight};
    }
}

// Infinite samples and those that are none would never leave the encoder again.
float limited(float sample) {
    if (std::isnan(sample)) return 0;
    return std::clamp(sample * kFullScale, -kFullScale, kFullScale);
}

} // namespace

WavSource::WavSource(int file) : reader_(file) {
    SF_VIRTUAL_IO functions = access();
    file_.reset(sf_open_virtual(&functions, SFM_READ, &info_, &reader_));
    if (!file_) throw RuntimeError(kInvalidFileFormat, "Invalid file format");
    checkFormat();
    setMix();
}

SF_VIRTUAL_IO WavSource::access() {
    SF_VIRTUAL_IO functions{};
    functions.get_filelen = [](void *reader) -> sf_count_t { return static_cast<SourceReader *>(reader)->size(); };
    functions.tell = [](void *reader) -> sf_count_t { return static_cast<SourceReader *>(reader)->seek(0, SEEK_CUR); };
    functions.write = [](const void *, sf_count_t, void *) -> sf_count_t { return 0; };
    functions.seek = [](sf_count_t offset, int whence, void *reader) -> sf_count_t {
        return static_cast<SourceReader *>(reader)->seek(offset, whence);
    };
    functions.read = [](void *bytes, sf_count_t count, void *reader) -> sf_count_t {
        try {
            const auto size = static_cast<std::size_t>(std::max<sf_count_t>(0, count));
            return static_cast<sf_count_t>(
                static_cast<SourceReader *>(reader)->read({static_cast<std::uint8_t *>(bytes), size}));
        } catch (const std::exception &) {
            return 0; // too few, which is an error further up
        }
    };
    return functions;
}

void WavSource::checkFormat() const {
    const bool isWav = std::ranges::count(kContainers, info_.format & SF_FORMAT_TYPEMASK) != 0 &&
                       std::ranges::count(kEncodings, info_.format & SF_FORMAT_SUBMASK) != 0;
    const bool isSound = info_.channels >= 1 && info_.channels <= kMostChannels && info_.frames > 0 &&
                         info_.samplerate >= kLowestRate && info_.samplerate <= kHighestRate && info_.seekable != 0;
    if (!isWav || !isSound) throw RuntimeError(kInvalidFileFormat, "Invalid file format");
}

void WavSource::setMix() {
    if (info_.channels <= 2) return;
    std::vector<int> speakers(static_cast<std::size_t>(info_.channels));
    const int size = static_cast<int>(speakers.size() * sizeof(int));
    if (sf_command(file_.get(), SFC_GET_CHANNEL_MAP_INFO, speakers.data(), size) == 0)
        speakers = usualSpeakers(info_.channels);
    std::array<float, 2> sum{1e-9F, 1e-9F};
    for (const int speaker : speakers) {
        gains_.push_back(gainOf(speaker));
        for (std::size_t side = 0; side < sum.size(); ++side) sum[side] += gains_.back()[side];
    }
    // Full scale on all channels stays full scale.
    const float most = std::max(sum[0], sum[1]);
    for (auto &gain : gains_)
        for (float &side : gain) side /= most;
}

void WavSource::seek(std::int64_t sample) {
    if (sf_seek(file_.get(), sample, SEEK_SET) != sample) throw RuntimeError(ErrorNumber::DeviceIOError);
    next_ = sample;
}

void WavSource::mix(std::span<const float> samples, float &left, float &right) const {
    left = right = 0;
    for (std::size_t channel = 0; channel < gains_.size(); ++channel) {
        left += samples[channel] * gains_[channel][0];
        right += samples[channel] * gains_[channel][1];
    }
}

std::size_t WavSource::take(std::size_t most) {
    const auto count = std::min(static_cast<std::int64_t>(most), length() - next_);
    next_ += count;
    return static_cast<std::size_t>(count);
}

std::size_t WavSource::read(std::span<std::int16_t> samples) {
    const auto channels = static_cast<std::size_t>(info_.channels);
    const std::size_t count = take(samples.size() / channels);
    check(sf_readf_short(file_.get(), samples.data(), static_cast<sf_count_t>(count)), count);
    return count * channels;
}

std::size_t WavSource::read(std::span<float> left, std::span<float> right) {
    const auto channels = static_cast<std::size_t>(info_.channels);
    const std::size_t count = take(left.size());
    samples_.resize(count * channels);
    check(sf_readf_float(file_.get(), samples_.data(), static_cast<sf_count_t>(count)), count);
    const std::span<const float> samples(samples_);
    for (std::size_t i = 0; i < count; ++i) {
        const auto sample = samples.subspan(i * channels, channels);
        left[i] = sample.front();
        right[i] = sample.back();
        if (!gains_.empty()) mix(sample, left[i], right[i]);
        left[i] = limited(left[i]);
        right[i] = limited(right[i]);
    }
    return count;
}

} // namespace tonvale
