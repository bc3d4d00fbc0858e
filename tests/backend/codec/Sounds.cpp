// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/backend/codec/Sounds.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <complex>
#include <numbers>
#include <random>

namespace tonvale::test {

namespace {

using Phasor = std::complex<double>;

struct Voice {
    Phasor step, value; // turns by step with each sample
};

} // namespace

Sound music(const Wave &wave, std::int64_t samples, unsigned seed) {
    std::mt19937 random(seed);
    const auto between = [&](double low, double high) {
        return low + (high - low) * static_cast<double>(random()) / 4294967296.0;
    };
    std::vector<Voice> voices(6);
    double noise = 0;
    Sound sound;
    sound.reserve(static_cast<std::size_t>(samples * wave.channels));
    for (std::int64_t i = 0; i < samples; ++i) {
        if (i % (wave.sampleRate / 5 + 1) == 0) {
            for (Voice &voice : voices)
                voice = {std::polar(1.0, between(60, 4000) * 2 * std::numbers::pi / wave.sampleRate), between(0, 0.12)};
            noise = between(0, 1) < 0.3 ? between(0, 0.15) : 0;
        }
        double both = noise * between(-1, 1);
        for (Voice &voice : voices) {
            voice.value *= voice.step;
            both += voice.value.imag();
        }
        const double difference = voices[0].value.imag();
        for (int channel = 0; channel < wave.channels; ++channel)
            sound.push_back(std::clamp(both + (channel % 2 == 0 ? difference : -difference), -1.0, 0.999));
    }
    return sound;
}

Sound silence(const Wave &wave, std::int64_t samples) {
    return Sound(static_cast<std::size_t>(samples * wave.channels), 0.0);
}

Sound operator+(Sound first, const Sound &second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

std::string littleEndian(std::uint64_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> 8 * i & 0xFF);
    return text;
}

std::string formatChunk(const Wave &wave) {
    const auto frame = static_cast<unsigned>(wave.channels * wave.bits / 8);
    return "fmt " + littleEndian(16, 4) + littleEndian(wave.kind == Wave::Kind::Pcm ? 1 : 3, 2) +
           littleEndian(static_cast<unsigned>(wave.channels), 2) +
           littleEndian(static_cast<unsigned>(wave.sampleRate), 4) +
           littleEndian(static_cast<unsigned>(wave.sampleRate) * std::uint64_t{frame}, 4) + littleEndian(frame, 2) +
           littleEndian(static_cast<unsigned>(wave.bits), 2);
}

std::string sampleBytes(const Wave &wave, const Sound &sound) {
    std::string bytes;
    bytes.reserve(sound.size() * static_cast<std::size_t>(wave.bits) / 8);
    for (const double value : sound) {
        if (wave.bits == 16) {
            const auto word = static_cast<std::uint16_t>(std::lround(value * 32765));
            bytes += static_cast<char>(word & 0xFF);
            bytes += static_cast<char>(word >> 8);
            continue;
        }
        if (wave.kind == Wave::Kind::Float && wave.bits == 64)
            bytes += littleEndian(std::bit_cast<std::uint64_t>(value), 8);
        else if (wave.kind == Wave::Kind::Float)
            bytes += littleEndian(std::bit_cast<std::uint32_t>(static_cast<float>(value)), 4);
        else if (wave.bits == 8)
            bytes += static_cast<char>(std::lround(value * 127) + 128);
        else
            bytes += littleEndian(static_cast<std::uint64_t>(std::llround(std::ldexp(value, wave.bits - 1) * 0.9999)),
                                  wave.bits / 8);
    }
    return bytes;
}

std::string waveHeader(const Wave &wave, std::uint32_t dataSize) {
    return "RIFF" + littleEndian(dataSize + 36ULL, 4) + "WAVE" + formatChunk(wave) + "data" + littleEndian(dataSize, 4);
}

std::string waveBytes(const Wave &wave, const Sound &sound) {
    const std::string samples = sampleBytes(wave, sound);
    return waveHeader(wave, static_cast<std::uint32_t>(samples.size())) + samples;
}

std::string samplesOf(const std::string &wavFile) {
    const std::size_t data = wavFile.find("data");
    return data == std::string::npos ? "" : wavFile.substr(data + 8);
}

} // namespace tonvale::test
