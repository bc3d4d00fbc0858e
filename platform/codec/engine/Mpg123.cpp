// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/codec/engine/Mpg123.h"

#include "controls/Errors.h"

#include <cstdio>
#include <exception>

namespace tonvale {

namespace {

constexpr std::int32_t kInvalidFileFormat = 321;
// So much that is no sound may precede it; between frames there may be anything.
constexpr long kMostBeforeSound = 1 << 20, kUnlimited = -1;
constexpr long kFlags = MPG123_QUIET | MPG123_SKIP_ID3V2;

[[noreturn]] void fail(mpg123_handle *handle) {
    const int code = mpg123_errcode(handle);
    if (code == MPG123_OUT_OF_MEM) throw RuntimeError(ErrorNumber::OutOfMemory);
    if (code == MPG123_ERR_READER) throw RuntimeError(ErrorNumber::DeviceIOError);
    throw RuntimeError(kInvalidFileFormat, "Invalid file format");
}

void check(mpg123_handle *handle, int result) {
    if (result != MPG123_OK) fail(handle);
}

Mpg123Handle makeHandle(long flags) {
    Mpg123Handle handle(mpg123_new(nullptr, nullptr));
    if (!handle) throw RuntimeError(ErrorNumber::OutOfMemory);
    check(handle.get(), mpg123_param(handle.get(), MPG123_ADD_FLAGS, flags, 0));
    check(handle.get(), mpg123_format_none(handle.get()));
    return handle;
}

ssize_t readSource(void *reader, void *bytes, std::size_t size) {
    try {
        return static_cast<ssize_t>(
            static_cast<SourceReader *>(reader)->read({static_cast<std::uint8_t *>(bytes), size}));
    } catch (const std::exception &) {
        return -1;
    }
}

off_t seekSource(void *reader, off_t offset, int whence) {
    return static_cast<SourceReader *>(reader)->seek(offset, whence);
}

} // namespace

FileDecoder::FileDecoder(int file) : reader_(file), handle_(makeHandle(kFlags)) {
    mpg123_handle *handle = handle_.get();
    check(handle, mpg123_replace_reader_handle(handle, readSource, seekSource, nullptr));
    check(handle, mpg123_format2(handle, 0, MPG123_MONO | MPG123_STEREO, MPG123_ENC_SIGNED_16));
    check(handle, mpg123_param(handle, MPG123_RESYNC_LIMIT, kMostBeforeSound, 0));
    // With the ends to be cut off, the library begins to count at a later frame.
    check(handle, mpg123_param(handle, MPG123_REMOVE_FLAGS, MPG123_GAPLESS, 0));
    open();
    firstFrame_ = mpg123_framepos(handle);
    if (firstFrame_ < 0) fail(handle);
    check(handle, mpg123_param(handle, MPG123_ADD_FLAGS, MPG123_GAPLESS, 0));
    open();
    // From now on it converts what has another format.
    check(handle, mpg123_format_none(handle));
    check(handle, mpg123_param(handle, MPG123_FORCE_RATE, format_.sampleRate, 0));
    check(handle, mpg123_format2(handle, format_.sampleRate, format_.channels, MPG123_ENC_SIGNED_16));
    check(handle, mpg123_param(handle, MPG123_RESYNC_LIMIT, kUnlimited, 0));
}

void FileDecoder::open() {
    (void)reader_.seek(0, SEEK_SET);
    check(handle_.get(), mpg123_open_handle(handle_.get(), &reader_));
    long rate = 0;
    int encoding = 0;
    if (mpg123_getformat(handle_.get(), &rate, &format_.channels, &encoding) != MPG123_OK)
        throw RuntimeError(kInvalidFileFormat, "Invalid file format");
    format_.sampleRate = static_cast<int>(rate);
}

std::optional<FileDecoder::Trim> FileDecoder::trim() const {
    long delay = -1, padding = -1, decoderDelay = 0;
    check(handle_.get(), mpg123_getstate(handle_.get(), MPG123_ENC_DELAY, &delay, nullptr));
    check(handle_.get(), mpg123_getstate(handle_.get(), MPG123_ENC_PADDING, &padding, nullptr));
    check(handle_.get(), mpg123_getstate(handle_.get(), MPG123_DEC_DELAY, &decoderDelay, nullptr));
    if (delay < 0 || padding < 0) return {};
    return Trim{delay + decoderDelay, padding - decoderDelay};
}

std::int64_t FileDecoder::length() const { return mpg123_length(handle_.get()); }

std::int64_t FileDecoder::position() const { return mpg123_framepos(handle_.get()); }

std::size_t FileDecoder::read(MutableBytes bytes, const std::stop_token &stop) {
    reader_.endAt(stop);
    std::size_t done = 0;
    while (done == 0) {
        const int result = mpg123_read(handle_.get(), bytes.data(), bytes.size(), &done);
        // A stop looks like a file that is too short, which is an error.
        if (result == MPG123_DONE || stop.stop_requested()) break;
        if (result != MPG123_OK && result != MPG123_NEW_FORMAT) fail(handle_.get());
    }
    return done;
}

FrameDecoder::FrameDecoder(SoundFormat format, Samples samples)
    : bytesPerSample_(format.bytesPerSample() * (samples == Samples::Floats ? 2 : 1)),
      handle_(makeHandle(kFlags | MPG123_IGNORE_INFOFRAME)) {
    mpg123_handle *handle = handle_.get();
    check(handle, mpg123_param(handle, MPG123_REMOVE_FLAGS, MPG123_GAPLESS, 0));
    const int encoding = samples == Samples::Floats ? MPG123_ENC_FLOAT_32 : MPG123_ENC_SIGNED_16;
    check(handle, mpg123_format2(handle, format.sampleRate, format.channels, encoding));
    restart();
}

void FrameDecoder::restart() { check(handle_.get(), mpg123_open_feed(handle_.get())); }

void FrameDecoder::feed(Bytes bytes) { check(handle_.get(), mpg123_feed(handle_.get(), bytes.data(), bytes.size())); }

Bytes FrameDecoder::next() {
    off_t number = 0;
    unsigned char *sound = nullptr;
    std::size_t size = 0;
    int result = MPG123_NEW_FORMAT;
    while (result == MPG123_NEW_FORMAT) result = mpg123_decode_frame(handle_.get(), &number, &sound, &size);
    if (result == MPG123_NEED_MORE) return {};
    check(handle_.get(), result);
    return {sound, size};
}

} // namespace tonvale
