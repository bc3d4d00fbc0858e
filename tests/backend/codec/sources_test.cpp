// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Sources of the encoder that are not quite the usual ones.

#include "tests/backend/codec/CodecTest.h"

#include <sys/stat.h>

#include <array>
#include <cmath>
#include <filesystem>
#include <limits>

namespace tonvale::test {

namespace {

class Sources : public CodecTest {
protected:
    const Wave wave_{22050, 2};
    const Sound sound_ = music(wave_, 22050 * 3);

    std::int16_t openError(const std::string &source) {
        Converting converting(loop, Converting::Kind::Encoder, 2);
        return converting.open(source, path("out.mp3"));
    }
    void expectRefused(const std::string &bytes) {
        std::filesystem::remove(path("out.mp3"));
        EXPECT_NE(openError(write("odd.wav", bytes)), 0);
        EXPECT_EQ(files(), std::vector<std::string>{"odd.wav"});
    }
    // The same MP3 as from the usual header.
    void expectUsual(const std::string &bytes) {
        const std::string usual = encodeSound(wave_, sound_);
        EXPECT_TRUE(encode(write("odd.wav", bytes)) == usual);
    }
    std::vector<std::int16_t> heard(const std::string &bytes) {
        EXPECT_FALSE(encode(write("odd.wav", bytes)).empty());
        return words(libraryDecode(path("out.mp3")));
    }
};

double loudness(const std::vector<std::int16_t> &sound, std::size_t channel) {
    double sum = 0;
    for (std::size_t i = channel; i < sound.size(); i += 2) sum += std::pow(sound[i], 2);
    return std::sqrt(sum / static_cast<double>(sound.size() / 2 + 1));
}

TEST_F(Sources, OfOtherWidthsSoundTheSame) {
    const auto source = words(sampleBytes(wave_, sound_));
    const auto error = [&](const Wave &wave) {
        const auto sound = heard(waveBytes(wave, sound_));
        EXPECT_EQ(sound.size(), source.size());
        double sum = 0;
        for (std::size_t i = 0; i < std::min(sound.size(), source.size()); ++i)
            sum += std::pow(sound[i] - source[i], 2);
        return std::sqrt(sum / static_cast<double>(source.size()));
    };
    const double usual = error(wave_);
    EXPECT_LT(error({22050, 2, 8}), usual * 1.5);
    EXPECT_LT(error({22050, 2, 24}), usual * 1.1);
    EXPECT_LT(error({22050, 2, 32}), usual * 1.1);
    EXPECT_LT(error({22050, 2, 32, Wave::Kind::Float}), usual * 1.1);
    EXPECT_LT(error({22050, 2, 64, Wave::Kind::Float}), usual * 1.1);
}

TEST_F(Sources, OfSixChannelsAreMixedDown) {
    const Wave six{44100, 6};
    // Front left, then front centre, then the low frequencies alone.
    for (const auto &[channel, left, right] :
         {std::array{0, 1, 0}, std::array{2, 1, 1}, std::array{3, 0, 0}, std::array{5, 0, 1}}) {
        Sound sound = silence(six, 44100);
        for (std::size_t i = 0; i < sound.size() / 6; ++i)
            sound[i * 6 + static_cast<std::size_t>(channel)] = 0.5 * std::sin(static_cast<double>(i) * 0.05);
        const auto stereo = heard(waveBytes(six, sound));
        EXPECT_EQ(stereo.size(), 88200U);
        EXPECT_EQ(loudness(stereo, 0) > 1000, left == 1) << channel;
        EXPECT_EQ(loudness(stereo, 1) > 1000, right == 1) << channel;
    }
}

TEST_F(Sources, OfNumbersThatAreNoneDoNoHarm) {
    const Wave wave{44100, 2, 32, Wave::Kind::Float};
    Sound sound = music(wave, 44100);
    for (std::size_t i = 1000; i < sound.size(); i += 997)
        sound[i] = i % 2 ? std::numeric_limits<double>::quiet_NaN()
                         : std::numeric_limits<double>::infinity() * (i % 4 ? 1 : -1);
    EXPECT_EQ(heard(waveBytes(wave, sound)).size(), 88200U);
}

TEST_F(Sources, WithSizesThatAreNotTrue) {
    const std::string samples = sampleBytes(wave_, sound_);
    expectRefused(waveHeader(wave_, 0) + samples);
    expectUsual(waveHeader(wave_, 0xFFFFFFFF) + samples);
    expectUsual(waveHeader(wave_, static_cast<std::uint32_t>(samples.size() + 1001)) + samples);
    std::string noRiffSize = waveHeader(wave_, static_cast<std::uint32_t>(samples.size())) + samples;
    noRiffSize.replace(4, 4, 4, '\0');
    expectUsual(noRiffSize);
    expectUsual(waveBytes(wave_, sound_) + "x"); // half a sample more
}

TEST_F(Sources, WithChunksAroundTheSamples) {
    const std::string samples = sampleBytes(wave_, sound_);
    const std::string list = "LIST" + littleEndian(26, 4) + "INFOINAM" + littleEndian(13, 4) + "Some title ..";
    const auto riff = [&](const std::string &chunks) {
        return "RIFF" + littleEndian(chunks.size() + 4, 4) + "WAVE" + chunks;
    };
    const std::string data = "data" + littleEndian(samples.size(), 4) + samples;
    expectUsual(riff(list + std::string(1, '\0') + formatChunk(wave_) + list + std::string(1, '\0') + data));
    expectUsual(riff(formatChunk(wave_) + data + list));
}

TEST_F(Sources, OfRf64AndExtensible) {
    const std::string samples = sampleBytes(wave_, sound_);
    const std::string sizes = "ds64" + littleEndian(28, 4) + littleEndian(samples.size() + 72, 8) +
                              littleEndian(samples.size(), 8) + littleEndian(samples.size() / 4, 8) +
                              littleEndian(0, 4);
    expectUsual("RF64" + littleEndian(0xFFFFFFFF, 4) + "WAVE" + sizes + formatChunk(wave_) + "data" +
                littleEndian(0xFFFFFFFF, 4) + samples);
    write("plain.wav", waveBytes(wave_, sound_));
    (void)output("ffmpeg -v error -i '" + path("plain.wav") + "' -rf64 always '" + path("rf64.wav") + "'");
    expectUsual(readFile(path("rf64.wav")));
    std::string extensible = formatChunk(wave_);
    extensible.replace(4, 4, littleEndian(40, 4)).replace(8, 2, littleEndian(0xFFFE, 2));
    extensible += littleEndian(22, 2) + littleEndian(16, 2) + littleEndian(3, 4) + littleEndian(1, 2) +
                  std::string("\0\0\0\0\x10\0\x80\0\0\xAA\0\x38\x9B\x71", 14);
    expectUsual("RIFF" + littleEndian(samples.size() + 60, 4) + "WAVE" + extensible + "data" +
                littleEndian(samples.size(), 4) + samples);
}

TEST_F(Sources, OfRf64WithSizesThatAreNotTrueDoNoHarm) {
    const std::string samples = sampleBytes(wave_, sound_);
    constexpr std::uint64_t kMost = std::numeric_limits<std::int64_t>::max();
    for (const std::uint64_t size : {std::uint64_t{0}, kMost, kMost - 7, kMost + 1, ~std::uint64_t{0}}) {
        const std::string sizes = "ds64" + littleEndian(28, 4) + littleEndian(size, 8) + littleEndian(size, 8) +
                                  littleEndian(size, 8) + littleEndian(0xFFFFFFFF, 4);
        (void)encode(write("odd.wav", "RF64" + littleEndian(0xFFFFFFFF, 4) + "WAVE" + sizes + formatChunk(wave_) +
                                          "data" + littleEndian(0xFFFFFFFF, 4) + samples));
        std::filesystem::remove(path("out.mp3"));
        ASSERT_EQ(files(), std::vector<std::string>{"odd.wav"}) << size;
    }
}

TEST_F(Sources, CutOffAreEncodedAsFarAsTheyGo) {
    const std::string whole = waveBytes(wave_, sound_);
    EXPECT_EQ(heard(whole.substr(0, 44 + 4 * 30000 + 3)).size(), 60000U);
}

TEST_F(Sources, ThatAreNoWaveAreRefused) {
    const std::string whole = waveBytes(wave_, sound_);
    for (const std::size_t size : {0, 1, 12, 20, 36, 43, 44}) expectRefused(whole.substr(0, size));
    expectRefused(std::string(100000, 'x'));
    expectRefused("RIFF" + std::string(5000, '\xFF'));
    expectRefused(waveHeader({22050, 0}, 1000) + std::string(1000, 'x'));
    expectRefused(waveHeader({0, 2}, 1000) + std::string(1000, 'x'));
    expectRefused(waveHeader({22050, 300}, 100000) + std::string(100000, 'x'));
    write("plain.wav", whole);
    (void)output("ffmpeg -v error -i '" + path("plain.wav") + "' -f flac '" + path("flac.wav") + "'");
    const std::string flac = readFile(path("flac.wav"));
    for (const char *name : {"plain.wav", "flac.wav"}) std::filesystem::remove(path(name));
    expectRefused(flac);
}

TEST_F(Sources, ThatAreNoFilesAreRefused) {
    EXPECT_EQ(openError(path("missing.wav")), 53);
    EXPECT_EQ(openError(path("")), 75);
    ASSERT_EQ(::mkfifo(path("pipe.wav").c_str(), 0600), 0);
    EXPECT_EQ(openError(path("pipe.wav")), 75);
}

TEST_F(Sources, WithEveryByteOfTheHeaderDamagedDoNoHarm) {
    const std::string whole = waveBytes(wave_, music(wave_, 3000));
    for (std::size_t i = 0; i < 44; ++i)
        for (const char value : {'\0', '\x01', '\x7F', '\xFF'}) {
            std::string damaged = whole;
            damaged[i] = value;
            (void)encode(write("odd.wav", damaged));
            std::filesystem::remove(path("out.mp3"));
            ASSERT_EQ(files(), std::vector<std::string>{"odd.wav"});
        }
}

} // namespace

} // namespace tonvale::test
