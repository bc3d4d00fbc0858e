// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/codec/codec_controls.h"
#include "tests/backend/codec/Sounds.h"
#include "tests/backend/machine/Support.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tonvale::test {

// A converter of either kind, and what it has told.
class Converting {
public:
    enum class Kind { Encoder, Decoder };
    Converting(TestLoop &loop, Kind kind, unsigned threads);

    std::int16_t open(const std::string &source, const std::string &target);
    void start();
    void stop();
    [[nodiscard]] std::int32_t length() const;
    [[nodiscard]] bool hasEnded() const { return done + static_cast<int>(errors.size()) > 0; }

    int done = 0;
    std::vector<std::int32_t> errors;
    std::vector<std::int32_t> positions;

private:
    std::unique_ptr<Mp3Enc> encoder_;
    std::unique_ptr<Mp3Play> decoder_;
};

// Files of its own, and converters.
class CodecTest : public testing::Test {
protected:
    [[nodiscard]] std::string path(const std::string &name) const { return home_ / ("files/" + name); }
    std::string write(const std::string &name, const std::string &bytes) const;
    // The names of what is there, hidden files included.
    [[nodiscard]] std::vector<std::string> files() const;

    // Opens, runs to the end and returns the file that came of it; empty if none.
    std::string encode(const std::string &source, unsigned threads = 2);
    std::string decode(const std::string &source, unsigned threads = 2);
    // Runs the sound through the encoder.
    std::string encodeSound(const Wave &wave, const Sound &sound, unsigned threads = 2);
    // What a program has written while it ran without a failure.
    static std::string output(const std::string &command);

    TestLoop loop;

private:
    std::string convert(Converting &converting, const std::string &source, const std::string &target);
    ScratchHome home_;
    bool isMade_ = makeDirectory();
    bool makeDirectory();
};

// The samples that the library makes of an MP3 file in one go, as 16-bit words.
[[nodiscard]] std::string libraryDecode(const std::string &mp3File);
// What the encoder library makes of a 16-bit sound in one go, with the tag.
[[nodiscard]] std::string libraryEncode(const Wave &wave, const Sound &sound);
[[nodiscard]] std::vector<std::int16_t> words(const std::string &bytes);

} // namespace tonvale::test
