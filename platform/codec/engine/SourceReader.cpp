// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/codec/engine/SourceReader.h"

#include <algorithm>
#include <cstdio>

namespace tonvale {

namespace {
constexpr std::size_t kBufferSize = 1 << 16;
} // namespace

std::size_t SourceReader::read(MutableBytes bytes) {
    std::size_t done = 0;
    while (done < bytes.size() && (used_ < buffer_.size() || fill())) {
        const MutableBytes part =
            MutableBytes(buffer_).subspan(used_).first(std::min(bytes.size() - done, buffer_.size() - used_));
        std::ranges::copy(part, bytes.begin() + static_cast<std::ptrdiff_t>(done));
        used_ += part.size();
        done += part.size();
    }
    return done;
}

bool SourceReader::fill() {
    if (stop_.stop_requested()) return false;
    begin_ += static_cast<std::int64_t>(buffer_.size());
    used_ = 0;
    buffer_.resize(kBufferSize);
    buffer_.resize(readAt(file_, begin_, buffer_));
    return !buffer_.empty();
}

std::int64_t SourceReader::seek(std::int64_t offset, int whence) {
    std::int64_t from = 0;
    if (whence == SEEK_CUR) from = begin_ + static_cast<std::int64_t>(used_);
    if (whence == SEEK_END) from = size_;
    // A damaged header may lead anywhere.
    if (__builtin_add_overflow(from, offset, &offset) || offset < 0) return -1;
    const bool isInBuffer = offset >= begin_ && offset - begin_ <= static_cast<std::int64_t>(buffer_.size());
    if (!isInBuffer) {
        begin_ = offset;
        buffer_.clear();
    }
    used_ = static_cast<std::size_t>(offset - begin_);
    return offset;
}

} // namespace tonvale
