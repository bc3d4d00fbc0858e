// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

// What the encoder makes of good sources.

#include "platform/codec/engine/FrameMap.h"
#include "platform/codec/engine/Segment.h"
#include "tests/backend/codec/CodecTest.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <random>

namespace tonvale::test {

namespace {

class Encoder : public CodecTest {
protected:
    // Decoders have nothing to say about the file, and find this many samples in it.
    void expectClean(const std::string &file, const Wave &wave, std::int64_t samples) {
        EXPECT_EQ(output("mpg123 -t -q '" + file + "'"), "");
        const std::string level = hasTag(file) ? "warning" : "error";
        EXPECT_EQ(output("ffmpeg -v " + level + " -i '" + file + "' -f null -"), "");
        const std::string sound = output("ffmpeg -v error -i '" + file + "' -f s16le -");
        expectLength(file, sound, wave, samples);
        expectLength(file, libraryDecode(file), wave, samples);
    }
    static bool hasTag(const std::string &file) {
        return readFile(file).substr(0, 100).find("Info") != std::string::npos;
    }
    // Small frames have no room for the tag; then some silence stays at both ends.
    static void expectLength(const std::string &file, const std::string &sound, const Wave &wave,
                             std::int64_t samples) {
        const auto length = static_cast<std::int64_t>(sound.size()) / 2 / wave.channels;
        if (hasTag(file))
            EXPECT_EQ(length, samples) << wave.sampleRate << " " << wave.channels;
        else
            EXPECT_LE(std::abs(length - samples - 1200), 1200) << wave.sampleRate << " " << wave.channels;
    }
    // What the library's one stream sounds like is what ours does.
    void expectLikeLibrary(const Wave &wave, const Sound &sound) {
        write("whole.mp3", libraryEncode(wave, sound));
        EXPECT_FALSE(encodeSound(wave, sound).empty());
        EXPECT_EQ(words(libraryDecode(path("out.mp3"))), words(libraryDecode(path("whole.mp3"))));
    }
};

// Root mean square of the difference, in each second.
std::vector<double> errorBySecond(const std::vector<std::int16_t> &one, const std::vector<std::int16_t> &other,
                                  std::size_t second) {
    std::vector<double> errors;
    for (std::size_t i = 0; i + second <= std::min(one.size(), other.size()); i += second) {
        double sum = 0;
        for (std::size_t j = i; j < i + second; ++j) sum += std::pow(one[j] - other[j], 2);
        errors.push_back(std::sqrt(sum / static_cast<double>(second)));
    }
    return errors;
}

TEST_F(Encoder, MakesACleanFile) {
    const Wave wave;
    ASSERT_FALSE(encodeSound(wave, music(wave, 441000)).empty());
    expectClean(path("out.mp3"), wave, 441000);
    EXPECT_NE(output("ffprobe -v error -show_entries stream=bit_rate '" + path("out.mp3") + "'").find("128000"),
              std::string::npos);
}

TEST_F(Encoder, TellsTheSizeAndTheChecksumsInTheTag) {
    const Wave wave;
    const Sound sound = music(wave, 200000);
    const std::string library = libraryEncode(wave, sound), ours = encodeSound(wave, sound);
    ASSERT_EQ(ours.size(), library.size());
    // All but the two checksums: cleared bits are part of what they are of.
    EXPECT_EQ(ours.substr(0, 36 + 16), library.substr(0, 36 + 16));
    EXPECT_EQ(ours.substr(36 + 116, 36), library.substr(36 + 116, 36));
    EXPECT_EQ(output("mpg123 -q -t --ignore-mime '" + path("out.mp3") + "'"), "");
}

TEST_F(Encoder, MakesTheSameBytesOnAnyNumberOfThreads) {
    for (const Wave wave : {Wave{16000, 1}, Wave{22050, 2}}) {
        const std::int64_t length = std::int64_t{wave.sampleRate} * 190;
        const Sound sound = music(wave, length);
        const std::string one = encodeSound(wave, sound, 1);
        ASSERT_GT(EncodingPlan(Mp3Shape(wave.sampleRate, wave.channels), length).segments.size(), 3U);
        for (const unsigned threads : {2U, 3U, 8U})
            if (threads == 3 || wave.channels == 1) {
                EXPECT_TRUE(encodeSound(wave, sound, threads) == one) << threads;
            }
        expectClean(path("out.mp3"), wave, length);
    }
}

TEST_F(Encoder, SoundsAsIfItWereOneStream) {
    const Wave stereo, mono{24000, 1};
    expectLikeLibrary(stereo, music(stereo, 44100 * 64));
    expectLikeLibrary(mono, music(mono, 24000 * 120));
}

TEST_F(Encoder, MeetsAfterSilenceAndNoise) {
    const Wave wave{32000, 2};
    const std::int64_t length = 32000 * 180;
    Sound sound = silence(wave, length);
    std::mt19937 random(7);
    for (std::int64_t i = 0; i < length; ++i) {
        const bool isLoud = i / 32000 % 3 == 0;
        for (std::size_t channel = 0; channel < 2 && isLoud; ++channel)
            sound[static_cast<std::size_t>(i) * 2 + channel] = std::uniform_real_distribution(-0.9, 0.9)(random);
    }
    const std::string one = encodeSound(wave, sound, 1);
    EXPECT_TRUE(encodeSound(wave, sound, 3) == one);
    expectClean(path("out.mp3"), wave, length);
}

TEST_F(Encoder, SplicesWhatDoesNotMeet) {
    // Two segments of different sounds never become the same.
    const Wave wave;
    const std::int64_t length = 44100 * 30, splicedBefore = 44100 * 20;
    const UniqueFd first = openSource(write("first.wav", waveBytes(wave, music(wave, length, 1))));
    const Sound otherSound = music(wave, length, 2);
    const UniqueFd other = openSource(write("other.wav", waveBytes(wave, otherSound)));
    const Mp3Shape shape(wave.sampleRate, wave.channels);
    EncodingPlan plan(shape, length);
    plan.segments = {{0, 0}, {147, 177}};
    EncodingBoard board(2);
    OutputFile output(path("spliced.mp3"));
    Segment leader({shape, plan, output, first.get(), board}, 0),
        follower({shape, plan, output, other.get(), board}, 1);
    leader.encode({});
    follower.encode({});
    EXPECT_EQ(board.done.prefix(), 176);
    leader.join({});
    EXPECT_EQ(board.done.prefix(), board.written(1).end);
    output.publish(shape.filePosition(board.written(1).end));

    const UniqueFd spliced = openSource(path("spliced.mp3"));
    EXPECT_TRUE(FrameMap::make(spliced.get(), shape.tagSize, {}));
    const std::string frames = readFile(path("spliced.mp3")).substr(static_cast<std::size_t>(shape.tagSize));
    const auto heard = words(libraryDecode(write("frames.mp3", frames)));
    const auto expected = words(libraryDecode(write("other.mp3", libraryEncode(wave, otherSound))));
    constexpr std::size_t kDelay = 1105;
    ASSERT_EQ(expected.size(), static_cast<std::size_t>(length) * 2);
    for (std::size_t i = splicedBefore * 2; i < expected.size(); ++i)
        ASSERT_EQ(heard[i + kDelay * 2], expected[i]) << i;
}

TEST_F(Encoder, IsNoWorseAtTheJointsThanElsewhere) {
    const Wave wave{44100, 2};
    const std::int64_t length = 44100 * 70;
    const Sound sound = music(wave, length, 3);
    ASSERT_FALSE(encodeSound(wave, sound).empty());
    write("whole.mp3", libraryEncode(wave, sound));
    const auto source = words(sampleBytes(wave, sound));
    const auto ours = errorBySecond(words(libraryDecode(path("out.mp3"))), source, 88200);
    const auto whole = errorBySecond(words(libraryDecode(path("whole.mp3"))), source, 88200);
    ASSERT_EQ(ours.size(), whole.size());
    for (std::size_t i = 0; i < ours.size(); ++i) EXPECT_LE(ours[i], whole[i] * 1.05 + 1) << "second " << i;
}

TEST_F(Encoder, TakesSilenceAlone) {
    const Wave wave{48000, 2};
    const std::int64_t length = 48000 * 70;
    EXPECT_TRUE(encodeSound(wave, silence(wave, length), 1) == encodeSound(wave, silence(wave, length), 2));
    expectClean(path("out.mp3"), wave, length);
    for (const std::int16_t word : words(libraryDecode(path("out.mp3")))) ASSERT_EQ(word, 0);
}

TEST_F(Encoder, TakesAnyLength) {
    std::mt19937 random(42);
    constexpr std::array kRates{8000, 11025, 16000, 22050, 32000, 44100, 48000};
    for (int i = 0; i < 30; ++i) {
        const Wave wave{kRates[random() % kRates.size()], 1 + static_cast<int>(random() % 2)};
        const int frame = wave.sampleRate < 32000 ? 576 : 1152;
        const int nearBorder = static_cast<int>(random() % 8) * frame + static_cast<int>(random() % 5) - 2;
        const auto anywhere = static_cast<int>(random() % static_cast<unsigned>(wave.sampleRate * 5));
        const std::int64_t length = std::max(1, i % 2 == 0 ? nearBorder : anywhere);
        ASSERT_FALSE(encodeSound(wave, music(wave, length, static_cast<unsigned>(i))).empty());
        expectLength(path("out.mp3"), libraryDecode(path("out.mp3")), wave, length);
        if (length > 20 * frame) expectClean(path("out.mp3"), wave, length);
    }
}

TEST_F(Encoder, ResamplesWhatMp3CannotHold) {
    for (const int rate : {4000, 37800, 96000, 192000}) {
        const Wave wave{rate, 2};
        ASSERT_FALSE(encodeSound(wave, music(wave, std::int64_t{rate} * 3)).empty()) << rate;
        EXPECT_EQ(output("mpg123 -t -q '" + path("out.mp3") + "'"), "");
        const double seconds = std::stod(output("soxi -D '" + path("out.mp3") + "'"));
        EXPECT_NEAR(seconds, 3, 0.3) << rate;
    }
}

} // namespace

} // namespace tonvale::test
