// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Whatever the decoder is given, it makes the samples of the library's plain decoding.

#include "platform/codec/engine/FrameMap.h"
#include "platform/codec/engine/FrameReader.h"
#include "platform/codec/engine/RangeDecoder.h"
#include "platform/codec/engine/WavHeader.h"
#include "tests/backend/codec/CodecTest.h"

#include <array>
#include <chrono>
#include <filesystem>
#include <fstream>

namespace tonvale::test {

namespace {

class Decoder : public CodecTest {
protected:
    // An MP3 file that a program with these options makes of some seconds of music.
    std::string lame(const std::string &options, const Wave &wave = {}, std::int64_t seconds = 4) {
        const std::string source = write("music.wav", waveBytes(wave, music(wave, wave.sampleRate * seconds)));
        (void)output("lame --quiet " + options + " '" + source + "' '" + path("music.mp3") + "'");
        return path("music.mp3");
    }
    void expectAsTheLibrary(const std::string &file) {
        const std::string expected = libraryDecode(file);
        EXPECT_FALSE(expected.empty());
        for (const unsigned threads : {1U, 3U})
            EXPECT_TRUE(samplesOf(decode(file, threads)) == expected) << threads << " threads";
        const std::string wav = readFile(path("out.wav"));
        EXPECT_EQ(wav.substr(40, 4), littleEndian(expected.size(), 4));
        EXPECT_EQ(wav.substr(4, 4), littleEndian(expected.size() + 36, 4));
    }
    enum class Ranges { None, Doubtful, Good };
    Ranges ranges(const std::string &file) {
        const UniqueFd source = openSource(file);
        const FileDecoder decoder(source.get());
        const auto map = FrameMap::make(source.get(), decoder.firstFrame(), {});
        if (!map) return Ranges::None;
        const OutputFile output(path("ranges.wav"));
        RangeDecoder decoding(
            {source.get(), *map, decoder.format(), 0, map->frames * map->header.samples(), output, 0});
        decoding.work({});
        return decoding.isDoubtful() ? Ranges::Doubtful : Ranges::Good;
    }
    // Music that becomes so faint that the decoder's samples are nothing but zeros now and then.
    std::string fading() {
        Wave wave;
        Sound sound = music(wave, 44100 * 20);
        for (std::size_t i = 0; i < sound.size(); ++i) sound[i] *= i < sound.size() / 2 ? 1 : 0.00006;
        wave.kind = Wave::Kind::Float;
        wave.bits = 32;
        (void)output("lame --quiet '" + write("music.wav", waveBytes(wave, sound)) + "' '" + path("music.mp3") + "'");
        return path("music.mp3");
    }
};

TEST_F(Decoder, DecodesInRangesWhatIsWhole) {
    for (const Wave wave : {Wave{44100, 2}, Wave{22050, 2}, Wave{11025, 1}, Wave{48000, 1}}) {
        const std::string file =
            lame("-b 64", wave, 3 * FrameMap::kRangeFrames * (wave.sampleRate < 32000 ? 576 : 1152) / wave.sampleRate);
        EXPECT_EQ(ranges(file), Ranges::Good);
        expectAsTheLibrary(file);
    }
}

TEST_F(Decoder, TakesAllKindsOfStreams) {
    for (const char *options : {"-b 320", "-b 32", "-V 2", "-V 9", "--abr 100", "-m m", "-m s", "-m j", "-m f", "-p",
                                "-t", "-t -V 4", "--nores", "--preset medium", "-b 8 --resample 8",
                                "-b 8 --resample 24", "-b 160 --resample 16", "--nohist -V 0 -k"}) {
        SCOPED_TRACE(options);
        expectAsTheLibrary(lame(options, {}, 15));
    }
}

TEST_F(Decoder, TakesLayers1And2) {
    const Wave wave;
    const std::string source = write("music.wav", waveBytes(wave, music(wave, 44100 * 5)));
    (void)output("ffmpeg -v error -i '" + source + "' -b:a 192k '" + path("music.mp2") + "'");
    expectAsTheLibrary(path("music.mp2"));
}

TEST_F(Decoder, IsNotKeptByTags) {
    const std::string music = readFile(lame("-b 128"));
    const std::string id3v1 = "TAG" + std::string(125, 'x');
    const std::string ape = "APETAGEX" + std::string(24, '\0');
    expectAsTheLibrary(write("a.mp3", music + id3v1));
    expectAsTheLibrary(write("b.mp3", music + ape));
    expectAsTheLibrary(lame("--tt Title --ta Artist --add-id3v2"));
}

TEST_F(Decoder, TakesATagWithoutTheLengthsOfTheEnds) {
    std::string music = readFile(lame("-b 128", {}, 30));
    const std::size_t extension = music.find("LAME");
    ASSERT_LT(extension, 200U);
    music.replace(extension, 36, 36, '\0');
    expectAsTheLibrary(write("short-tag.mp3", music));
    music[music.find("Info") + 7] = 3; // neither contents nor quality
    expectAsTheLibrary(write("shorter-tag.mp3", music));
}

TEST_F(Decoder, SkipsAnEnormousTag) {
    constexpr std::uint32_t kSize = 200 << 20;
    std::string header = "ID3\x04";
    header += std::string(2, '\0');
    for (int shift = 21; shift >= 0; shift -= 7) header += static_cast<char>(kSize >> shift & 0x7F);
    const std::string music = readFile(lame("-b 128"));
    const std::string file = write("big.mp3", header);
    std::filesystem::resize_file(file, kSize + 10);
    std::ofstream(file, std::ios::binary | std::ios::app) << music;
    EXPECT_TRUE(samplesOf(decode(file)) == libraryDecode(path("music.mp3")));
}

TEST_F(Decoder, SurvivesWhatIsNotMusic) {
    const std::string music = readFile(lame("-b 128", {}, 30));
    std::string garbage; // without anything that might pass for a frame
    for (int i = 0; i < 5000; ++i) garbage += static_cast<char>((i * 7919 >> 3) & 0x7F);
    const std::size_t middle = music.size() / 2;
    expectAsTheLibrary(write("before.mp3", garbage + music));
    expectAsTheLibrary(write("behind.mp3", music + garbage));
    expectAsTheLibrary(write("between.mp3", music.substr(0, middle) + garbage + music.substr(middle)));
    expectAsTheLibrary(write("twice.mp3", music + music));
    expectAsTheLibrary(write("cut.mp3", music.substr(0, middle)));
    expectAsTheLibrary(write("begins-late.mp3", music.substr(middle)));
    expectAsTheLibrary(write("hole.mp3", music.substr(0, middle) + music.substr(middle + 100000)));
}

TEST_F(Decoder, StopsSoonAmidWhatIsNotMusic) {
    const std::string file = lame("-b 128");
    const std::size_t length = samplesOf(decode(file)).size();
    std::filesystem::resize_file(file, 2'000'000'000);
    Converting converting(loop, Converting::Kind::Decoder, 2);
    ASSERT_EQ(converting.open(file, path("out.wav")), 0);
    converting.start();
    ASSERT_TRUE(loop.runUntil([&] { return converting.positions.size() > 4; }));
    const auto begin = std::chrono::steady_clock::now();
    converting.stop();
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(1));
    EXPECT_NEAR(static_cast<double>(samplesOf(readFile(path("out.wav"))).size()), static_cast<double>(length), 10000);
}

TEST_F(Decoder, LeavesThePartOfAFlawedFileAtAStop) {
    const std::string music = readFile(lame("--freeformat -b 600 -t", {}, 30));
    std::string flawed;
    for (int i = 0; i < 20; ++i) flawed += music + std::string(100, 'x');
    const std::string file = write("flawed.mp3", flawed), all = samplesOf(decode(file));
    for (const std::int32_t position : {1, 100, 200, 300, 500, 700, 1000, 1300, 1600, 2000}) {
        std::filesystem::remove(path("out.wav"));
        Converting converting(loop, Converting::Kind::Decoder, 2);
        ASSERT_EQ(converting.open(file, path("out.wav")), 0);
        converting.start();
        ASSERT_TRUE(loop.runUntil(
            [&] { return !converting.positions.empty() && converting.positions.back() >= position; }, 60s));
        converting.stop();
        ASSERT_TRUE(exists(path("out.wav"))) << position;
        const std::string part = samplesOf(readFile(path("out.wav")));
        EXPECT_GT(part.size(), 0U);
        EXPECT_LT(part.size(), all.size());
        EXPECT_TRUE(all.starts_with(part)) << position;
    }
}

TEST_F(Decoder, SurvivesDamagedFrames) {
    const std::string music = readFile(lame("-b 128", {}, 30));
    for (unsigned seed = 1; seed <= 6; ++seed) {
        std::string damaged = music;
        // In the slots, in the side information, or anywhere.
        for (std::size_t i = 2000 + seed * 13; i < damaged.size(); i += 30011 + seed * 977)
            damaged[i] = static_cast<char>(damaged[i] ^ static_cast<char>(1 + i % 255));
        SCOPED_TRACE(seed);
        expectAsTheLibrary(write("damaged.mp3", damaged));
    }
}

TEST_F(Decoder, DecodesInRangesWhatIsFaint) {
    const std::string file = fading();
    EXPECT_EQ(ranges(file), Ranges::Good);
    expectAsTheLibrary(file);
}

TEST_F(Decoder, FindsDamageAmidWhatIsFaint) {
    std::string damaged = readFile(fading());
    const UniqueFd source = openSource(path("music.mp3"));
    FrameReader reader(source.get(), 0);
    while (const auto frame = reader.next()) {
        const auto slot =
            static_cast<std::size_t>(reader.position() - frame->header.size() + frame->header.slotBegin());
        if (slot > damaged.size() * 2 / 3) damaged[slot] = static_cast<char>(damaged[slot] ^ '\x55');
    }
    write("damaged.mp3", damaged);
    EXPECT_EQ(ranges(path("damaged.mp3")), Ranges::Doubtful);
    expectAsTheLibrary(path("damaged.mp3"));
}

TEST_F(Decoder, TakesFreeFormat) { expectAsTheLibrary(lame("--freeformat -b 200", {}, 10)); }

TEST_F(Decoder, KeepsTheFormatOfTheFirstFrame) {
    const std::string first = readFile(lame("-b 128 -t", {44100, 2}, 10));
    const std::string second = readFile(lame("-b 64 -t", {22050, 1}, 10));
    const std::string wav = decode(write("changing.mp3", first + second));
    EXPECT_EQ(wav.substr(24, 4), littleEndian(44100, 4));
    EXPECT_NEAR(static_cast<double>(samplesOf(wav).size()), 20 * 44100 * 4, 44100);
}

TEST_F(Decoder, TakesSilence) {
    const Wave wave;
    const std::string source = write("music.wav", waveBytes(wave, silence(wave, 44100 * 30)));
    (void)output("lame --quiet '" + source + "' '" + path("music.mp3") + "'");
    expectAsTheLibrary(path("music.mp3"));
}

TEST_F(Decoder, GivesBackWhatTheEncoderTook) {
    for (const std::int64_t length : {1, 1151, 1152, 1153, 100000, 1500000}) {
        const Wave wave;
        ASSERT_FALSE(encodeSound(wave, music(wave, length)).empty());
        EXPECT_EQ(static_cast<std::int64_t>(samplesOf(decode(path("out.mp3"))).size()), length * 4);
    }
}

TEST_F(Decoder, LeavesNothingOfWhatIsNoMusic) {
    for (const std::string &content : {std::string(), std::string("Some text.\n"), std::string(100000, 't'),
                                       std::string(5 << 20, '\xFE'), std::string("\xFF\xFB\x90\x64")}) {
        const std::string file = write("text.mp3", content);
        Converting converting(loop, Converting::Kind::Decoder, 2);
        EXPECT_NE(converting.open(file, path("text.wav")), 0);
        converting.start();
        EXPECT_TRUE(loop.runUntil([&] { return converting.done == 1; }));
        EXPECT_EQ(files(), std::vector<std::string>{"text.mp3"});
    }
}

TEST(WavHeaderOfALongFile, IsThatOfRf64) {
    const WavHeader header({44100, 2}, WavHeader::Room::Long);
    const auto text = [&](std::int64_t size) {
        const auto bytes = header.bytes(size);
        return std::string(bytes.begin(), bytes.end());
    };
    constexpr std::int64_t kLong = 5'000'000'000;
    EXPECT_EQ(text(kLong).substr(0, 20), "RF64" + littleEndian(0xFFFFFFFF, 4) + "WAVEds64" + littleEndian(28, 4));
    EXPECT_EQ(text(kLong).substr(20, 24),
              littleEndian(kLong + 72, 8) + littleEndian(kLong, 8) + littleEndian(kLong / 4, 8));
    EXPECT_EQ(text(1000).substr(0, 16), "RIFF" + littleEndian(1072, 4) + "WAVEJUNK");
    EXPECT_EQ(text(1000).size(), static_cast<std::size_t>(header.size()));
    EXPECT_EQ(errorOf([] { (void)WavHeader({44100, 2}, WavHeader::Room::Usual).bytes(kLong); }), 6);
}

} // namespace

} // namespace tonvale::test
