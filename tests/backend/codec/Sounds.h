// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tonvale::test {

// What a WAV file of a test is like.
struct Wave {
    int sampleRate = 44100;
    int channels = 2;
    int bits = 16;
    enum class Kind { Pcm, Float } kind = Kind::Pcm;
};

// One value for each sample and channel, -1 to 1.
using Sound = std::vector<double>;

// Something like music: tones and noises that come and go.
[[nodiscard]] Sound music(const Wave &wave, std::int64_t samples, unsigned seed = 1);
[[nodiscard]] Sound silence(const Wave &wave, std::int64_t samples);
[[nodiscard]] Sound operator+(Sound first, const Sound &second);

[[nodiscard]] std::string littleEndian(std::uint64_t value, int bytes);
[[nodiscard]] std::string formatChunk(const Wave &wave);
[[nodiscard]] std::string sampleBytes(const Wave &wave, const Sound &sound);
// With the size that the header states for the samples.
[[nodiscard]] std::string waveHeader(const Wave &wave, std::uint32_t dataSize);
[[nodiscard]] std::string waveBytes(const Wave &wave, const Sound &sound);

// What is in a 16-bit WAV file as the converters write it, without the header.
[[nodiscard]] std::string samplesOf(const std::string &wavFile);

} // namespace tonvale::test
