// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/codec/engine/file_access.h"

#include <cstdint>
#include <stop_token>
#include <utility>
#include <vector>

namespace tonvale {

// Reads a file for a library, which in search of sound may ask for one byte after the other.
class SourceReader {
public:
    // The file stays the caller's.
    explicit SourceReader(int file) : file_(file), size_(fileSize(file)) {}

    // From now on the file is at its end when there is a stop.
    void endAt(std::stop_token stop) { stop_ = std::move(stop); }

    [[nodiscard]] std::int64_t size() const { return size_; }
    // As many bytes as are there.
    [[nodiscard]] std::size_t read(MutableBytes bytes);
    // The new place, counted as lseek() does; -1 where there is none.
    std::int64_t seek(std::int64_t offset, int whence);

private:
    [[nodiscard]] bool fill();

    int file_;
    std::int64_t size_;
    std::stop_token stop_;
    std::int64_t begin_ = 0; // of the buffer in the file
    std::vector<std::uint8_t> buffer_;
    std::size_t used_ = 0; // of the buffer
};

} // namespace tonvale
