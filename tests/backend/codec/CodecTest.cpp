// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/backend/codec/CodecTest.h"

#include <lame/lame.h>
#include <mpg123.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <stdexcept>

namespace tonvale::test {

namespace {

std::string asItIs(const std::string &path) { return path; }

void require(bool isGood, const char *what) {
    if (!isGood) throw std::runtime_error(what);
}

void keepFormat(mpg123_handle *mpg123) {
    long rate = 0;
    int channels = 0, encoding = 0;
    require(mpg123_getformat(mpg123, &rate, &channels, &encoding) == MPG123_OK, "format");
    require(mpg123_format_none(mpg123) == MPG123_OK && mpg123_param(mpg123, MPG123_FORCE_RATE, rate, 0) == MPG123_OK &&
                mpg123_format(mpg123, rate, channels, encoding) == MPG123_OK,
            "keep");
}

} // namespace

Converting::Converting(TestLoop &loop, Kind kind, unsigned threads) {
    if (kind == Kind::Encoder) {
        encoder_ = makeMp3Enc(loop, asItIs, Crew{threads});
        encoder_->EncoderProgress = [this](std::int32_t position) { positions.push_back(position); };
        encoder_->EncoderDone = [this] { ++done; };
        encoder_->EncoderError = [this](std::int32_t number, const std::string &) { errors.push_back(number); };
    } else {
        decoder_ = makeMp3Play(loop, asItIs, Crew{threads});
        decoder_->DecoderProgress = [this](std::int32_t position) { positions.push_back(position); };
        decoder_->DecoderDone = [this] { ++done; };
    }
}

std::int16_t Converting::open(const std::string &source, const std::string &target) {
    return encoder_ ? encoder_->OpenEncoder(source, target) : decoder_->OpenDecoder(source, target);
}

void Converting::start() { encoder_ ? encoder_->StartEncoder() : decoder_->StartDecoder(); }
void Converting::stop() { encoder_ ? encoder_->StopEncoder() : decoder_->StopDecoder(); }

std::int32_t Converting::length() const { return encoder_ ? encoder_->EncoderLength() : decoder_->DecoderLength(); }

bool CodecTest::makeDirectory() { return std::filesystem::create_directory(path("")); }

std::string CodecTest::write(const std::string &name, const std::string &bytes) const {
    writeFile(path(name), bytes);
    return path(name);
}

std::vector<std::string> CodecTest::files() const {
    std::vector<std::string> names;
    for (const auto &entry : std::filesystem::directory_iterator(path(""))) names.push_back(entry.path().filename());
    std::ranges::sort(names);
    return names;
}

std::string CodecTest::convert(Converting &converting, const std::string &source, const std::string &target) {
    std::filesystem::remove(target);
    (void)converting.open(source, target);
    converting.start();
    EXPECT_TRUE(loop.runUntil([&] { return converting.hasEnded(); }, 100s));
    return exists(target) ? readFile(target) : "";
}

std::string CodecTest::encode(const std::string &source, unsigned threads) {
    Converting converting(loop, Converting::Kind::Encoder, threads);
    return convert(converting, source, path("out.mp3"));
}

std::string CodecTest::decode(const std::string &source, unsigned threads) {
    Converting converting(loop, Converting::Kind::Decoder, threads);
    return convert(converting, source, path("out.wav"));
}

std::string CodecTest::encodeSound(const Wave &wave, const Sound &sound, unsigned threads) {
    return encode(write("sound.wav", waveBytes(wave, sound)), threads);
}

std::string CodecTest::output(const std::string &command) {
    std::FILE *pipe = ::popen((command + " 2>&1").c_str(), "r");
    require(pipe != nullptr, "no pipe");
    std::string text;
    std::array<char, 4096> part{};
    for (std::size_t count = 1; count > 0; text.append(part.data(), count))
        count = std::fread(part.data(), 1, part.size(), pipe);
    EXPECT_EQ(::pclose(pipe), 0) << command << "\n" << text;
    return text;
}

std::string libraryDecode(const std::string &mp3File) {
    const std::unique_ptr<mpg123_handle, void (*)(mpg123_handle *)> handle(mpg123_new(nullptr, nullptr), mpg123_delete);
    mpg123_handle *mpg123 = handle.get();
    require(mpg123_param(mpg123, MPG123_ADD_FLAGS, MPG123_QUIET, 0) == MPG123_OK, "flags");
    require(mpg123_param(mpg123, MPG123_RESYNC_LIMIT, -1, 0) == MPG123_OK, "limit");
    require(mpg123_open(mpg123, mp3File.c_str()) == MPG123_OK, "open");
    std::string sound;
    std::string buffer(100000, '\0');
    int formats = 0;
    for (int result = MPG123_OK; result == MPG123_OK || result == MPG123_NEW_FORMAT;) {
        std::size_t count = 0;
        result = mpg123_read(mpg123, buffer.data(), buffer.size(), &count);
        sound.append(buffer, 0, count);
        // Garbage may look like a frame of another kind: all is to come in the format of the first.
        if (result == MPG123_NEW_FORMAT && ++formats == 1) keepFormat(mpg123);
    }
    return sound;
}

std::string libraryEncode(const Wave &wave, const Sound &sound) {
    const std::unique_ptr<lame_global_flags, int (*)(lame_global_flags *)> handle(lame_init(), lame_close);
    lame_global_flags *lame = handle.get();
    lame_set_in_samplerate(lame, wave.sampleRate);
    lame_set_num_channels(lame, wave.channels);
    require(lame_init_params(lame) >= 0, "parameters");
    const std::vector<std::int16_t> samples = words(sampleBytes(wave, sound));
    std::vector<std::int16_t> left, right;
    for (std::size_t i = 0; i < samples.size(); i += static_cast<std::size_t>(wave.channels)) {
        left.push_back(samples[i]);
        right.push_back(samples[i + static_cast<std::size_t>(wave.channels) - 1]);
    }
    std::vector<unsigned char> mp3(left.size() * 5 / 4 + 20000);
    int size = lame_encode_buffer(lame, left.data(), right.data(), static_cast<int>(left.size()), mp3.data(),
                                  static_cast<int>(mp3.size()));
    require(size >= 0, "encode");
    const int rest = lame_encode_flush(lame, mp3.data() + size, static_cast<int>(mp3.size()) - size);
    require(rest >= 0, "flush");
    size += rest;
    const std::size_t tag = lame_get_lametag_frame(lame, mp3.data(), mp3.size());
    require(tag <= mp3.size(), "tag");
    return {reinterpret_cast<const char *>(mp3.data()), static_cast<std::size_t>(size)};
}

std::vector<std::int16_t> words(const std::string &bytes) {
    std::vector<std::int16_t> result(bytes.size() / 2);
    if (!result.empty()) std::memcpy(result.data(), bytes.data(), result.size() * 2);
    return result;
}

} // namespace tonvale::test
