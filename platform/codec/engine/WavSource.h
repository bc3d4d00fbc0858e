// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/codec/engine/SourceReader.h"

#include <sndfile.h>

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace tonvale {

// Reads the samples of a WAV file (RF64 and extensible ones included) of any width as floats on
// the scale of 16 bits, so that nothing of a wider one is lost before the encoder. More than two
// channels are mixed down to two.
class WavSource {
public:
    // The file stays the caller's; several sources may read it at a time.
    explicit WavSource(int file);
    WavSource(const WavSource &) = delete;
    WavSource &operator=(const WavSource &) = delete;

    [[nodiscard]] int sampleRate() const { return info_.samplerate; }
    [[nodiscard]] int channels() const { return info_.channels == 1 ? 1 : 2; }
    [[nodiscard]] std::int64_t length() const { return info_.frames; }

    void seek(std::int64_t sample);
    // Whether nothing has to be done to the file's own samples.
    [[nodiscard]] bool isPlain() const {
        return (info_.format & SF_FORMAT_SUBMASK) == SF_FORMAT_PCM_16 && gains_.empty();
    }
    // The next samples, as many as fit and are there. A file that has become shorter is an error.
    // Those of a plain source come as they are, channel by channel in turns.
    [[nodiscard]] std::size_t read(std::span<std::int16_t> samples);
    [[nodiscard]] std::size_t read(std::span<float> left, std::span<float> right);

private:
    struct Closer {
        void operator()(SNDFILE *file) const { (void)sf_close(file); }
    };
    static SF_VIRTUAL_IO access();
    void checkFormat() const;
    void setMix();
    [[nodiscard]] std::size_t take(std::size_t most);
    void mix(std::span<const float> samples, float &left, float &right) const;

    SourceReader reader_;
    SF_INFO info_{};
    std::unique_ptr<SNDFILE, Closer> file_;
    std::int64_t next_ = 0;
    std::vector<std::array<float, 2>> gains_; // of each channel, to the left and to the right
    std::vector<float> samples_;
};

} // namespace tonvale
