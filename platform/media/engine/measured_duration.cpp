// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/media/engine/measured_duration.h"

#include <mpg123.h>
#include <sys/types.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace tonvale {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds kPatience{2};
constexpr std::size_t kBlock = 256 * 1024;

// Reads a file from its start, until the time is up.
class TimedReader {
public:
    explicit TimedReader(int file) : file_(file) {}

    ssize_t read(void *buffer, std::size_t length) {
        if (Clock::now() > end_) {
            errno = ETIMEDOUT;
            return -1;
        }
        const ssize_t count = ::pread(file_, buffer, length, offset_);
        if (count > 0) offset_ += count;
        return count;
    }
    off_t seek(off_t offset, int origin) {
        const off_t base = origin == SEEK_SET ? 0 : origin == SEEK_CUR ? offset_ : ::lseek(file_, 0, SEEK_END);
        return offset_ = std::max<off_t>(0, base + offset);
    }

private:
    int file_;
    off_t offset_ = 0;
    Clock::time_point end_ = Clock::now() + kPatience;
};

// --- MPEG audio

struct DecoderDeleter {
    void operator()(mpg123_handle *decoder) const { mpg123_delete(decoder); }
};

// Where a frame count stands, the decoder has taken the length from it. The lengths of its tag's
// neighbours (stereo, mono, low sampling rate) all lie within the first frame.
bool hasFrameCount(int file) {
    constexpr std::size_t kId3HeaderLength = 10;
    std::array<char, kId3HeaderLength> id3{};
    off_t start = 0;
    if (::pread(file, id3.data(), id3.size(), 0) == static_cast<ssize_t>(id3.size()) &&
        std::string_view(id3.data(), 3) == "ID3") {
        const auto digit = [&](std::size_t i) { return static_cast<off_t>(id3.at(i) & 0x7F); };
        start = static_cast<off_t>(kId3HeaderLength) + (digit(6) << 21 | digit(7) << 14 | digit(8) << 7 | digit(9));
    }
    std::array<char, 192> frame{};
    const ssize_t count = ::pread(file, frame.data(), frame.size(), start);
    const std::string_view text(frame.data(), static_cast<std::size_t>(std::max<ssize_t>(0, count)));
    const auto has = [&](const char *tag) { return text.find(tag) != std::string_view::npos; };
    return has("Xing") || has("Info") || has("VBRI");
}

double audioDuration(int file) {
    if (hasFrameCount(file)) return 0;
    TimedReader reader(file);
    const std::unique_ptr<mpg123_handle, DecoderDeleter> decoder(mpg123_new(nullptr, nullptr));
    if (!decoder) return 0;
    const auto read = [](void *self, void *buffer, std::size_t length) {
        return static_cast<TimedReader *>(self)->read(buffer, length);
    };
    const auto seek = [](void *self, off_t offset, int origin) {
        return static_cast<TimedReader *>(self)->seek(offset, origin);
    };
    long rate = 0;
    int channels = 0, encoding = 0;
    if (mpg123_param(decoder.get(), MPG123_ADD_FLAGS, MPG123_QUIET, 0) != MPG123_OK ||
        mpg123_replace_reader_handle(decoder.get(), read, seek, nullptr) != MPG123_OK ||
        mpg123_open_handle(decoder.get(), &reader) != MPG123_OK ||
        mpg123_getformat(decoder.get(), &rate, &channels, &encoding) != MPG123_OK ||
        mpg123_scan(decoder.get()) != MPG123_OK)
        return 0;
    const off_t samples = mpg123_length(decoder.get());
    return samples > 0 && rate > 0 ? static_cast<double>(samples) / static_cast<double>(rate) : 0;
}

// --- MPEG video

// The pictures per second, by the code in a sequence header.
constexpr std::array<double, 9> kPictureRates{0, 24000 / 1001.0, 24, 25, 30000 / 1001.0, 30, 50, 60000 / 1001.0, 60};

class PictureCounter {
public:
    // `block` overlaps its successor, so that no start code is lost between them.
    void count(std::basic_string_view<unsigned char> block) {
        constexpr unsigned char kPrefix[] = {0, 0, 1};
        const std::basic_string_view<unsigned char> prefix(kPrefix, 3);
        for (std::size_t at = block.find(prefix); at != block.npos && at + kOverlap < block.size();
             at = block.find(prefix, at + 3)) {
            if (block[at + 3] == 0x00) ++pictures_;
            if (block[at + 3] == 0xB3 && rate_ == 0) rate_ = rateOf(block[at + 7] & 0x0F);
        }
    }
    [[nodiscard]] double duration() const { return rate_ > 0 ? static_cast<double>(pictures_) / rate_ : 0; }

    static constexpr std::size_t kOverlap = 8;

private:
    static double rateOf(std::size_t code) { return code < kPictureRates.size() ? kPictureRates.at(code) : 0; }

    std::int64_t pictures_ = 0;
    double rate_ = 0;
};

double videoDuration(int file) {
    TimedReader reader(file);
    PictureCounter counter;
    std::vector<unsigned char> block(kBlock + PictureCounter::kOverlap);
    std::size_t kept = 0;
    while (true) {
        const ssize_t count = reader.read(block.data() + kept, kBlock);
        if (count < 0) return 0;
        const std::size_t length = kept + static_cast<std::size_t>(count);
        counter.count({block.data(), length});
        if (count == 0) return counter.duration();
        kept = std::min(length, PictureCounter::kOverlap);
        std::copy(block.begin() + static_cast<std::ptrdiff_t>(length - kept),
                  block.begin() + static_cast<std::ptrdiff_t>(length), block.begin());
    }
}

} // namespace

double measuredDuration(int file, const std::string &format) {
    if (format == "mp3") return audioDuration(file);
    if (format == "mpegvideo") return videoDuration(file);
    return 0;
}

} // namespace tonvale
