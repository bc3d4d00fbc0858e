// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/codec/engine/FrameReader.h"

#include <algorithm>

namespace tonvale {

namespace {
constexpr std::size_t kBufferSize = 1 << 16;
} // namespace

MutableBytes FrameReader::ahead(std::size_t size) {
    if (buffer_.size() - used_ < size) {
        buffer_.erase(buffer_.begin(), buffer_.begin() + static_cast<std::ptrdiff_t>(used_));
        used_ = 0;
        const std::size_t kept = buffer_.size();
        buffer_.resize(kBufferSize);
        const auto from = position_ + static_cast<std::int64_t>(kept);
        buffer_.resize(kept + readAt(file_, from, MutableBytes(buffer_).subspan(kept)));
    }
    return MutableBytes(buffer_).subspan(used_, std::min(size, buffer_.size() - used_));
}

std::optional<FrameReader::Frame> FrameReader::next() {
    const auto header = MpegHeader::parse(ahead(kMpegHeaderSize));
    if (!header || header->size() < header->slotBegin()) return {};
    const auto size = static_cast<std::size_t>(header->size());
    const MutableBytes bytes = ahead(size);
    if (bytes.size() < size) return {};
    used_ += size;
    position_ += header->size();
    return Frame{*header, bytes};
}

} // namespace tonvale
