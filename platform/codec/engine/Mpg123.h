// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/codec/engine/SourceReader.h"

#include <mpg123.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <stop_token>

namespace tonvale {

struct SoundFormat {
    int sampleRate = 0;
    int channels = 0;
    bool operator==(const SoundFormat &) const = default;
    [[nodiscard]] int bytesPerSample() const { return channels * 2; }
};

struct Mpg123Closer {
    void operator()(mpg123_handle *handle) const { mpg123_delete(handle); }
};
using Mpg123Handle = std::unique_ptr<mpg123_handle, Mpg123Closer>;

// The library decoding a whole file from its start, without what encoders have added at both ends.
// Everything comes out in the format of the first frame.
class FileDecoder {
public:
    // Throws when there is no sound in the file.
    explicit FileDecoder(int file);
    FileDecoder(const FileDecoder &) = delete;
    FileDecoder &operator=(const FileDecoder &) = delete;

    [[nodiscard]] SoundFormat format() const { return format_; }
    // Where the first frame with sound is in the file.
    [[nodiscard]] std::int64_t firstFrame() const { return firstFrame_; }
    // What is to be taken away, in samples; nothing if the file does not say.
    struct Trim {
        std::int64_t begin, end;
    };
    [[nodiscard]] std::optional<Trim> trim() const;
    // In samples. What the file says, or an estimate.
    [[nodiscard]] std::int64_t length() const;
    // How far in the file it has come, in bytes.
    [[nodiscard]] std::int64_t position() const;

    // The next samples; 0 at the end, and soon after a stop.
    [[nodiscard]] std::size_t read(MutableBytes bytes, const std::stop_token &stop);

private:
    void open();

    SourceReader reader_;
    Mpg123Handle handle_;
    SoundFormat format_;
    std::int64_t firstFrame_ = 0;
};

// The library decoding frames that it is given, each of them as a whole.
class FrameDecoder {
public:
    enum class Samples { Integers, Floats }; // of 16 and of 32 bits
    FrameDecoder(SoundFormat format, Samples samples);
    // Forgets what it has been given.
    void restart();
    [[nodiscard]] int bytesPerSample() const { return bytesPerSample_; }
    void feed(Bytes bytes);
    // The sound of the next frame; empty when more has to be fed first.
    [[nodiscard]] Bytes next();

private:
    int bytesPerSample_;
    Mpg123Handle handle_;
};

} // namespace tonvale
