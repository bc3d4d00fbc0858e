// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Services.h"
#include "platform/machine/base/UniqueFd.h"

#include <cstddef>
#include <vector>

namespace tonvale {

inline constexpr std::size_t kLongestLine = 1024 * 1024;

// Reads a regular file in blocks; it never holds more than one block and one line.
class PosixLineReader : public LineReader {
public:
    explicit PosixLineReader(UniqueFd file) : file_(std::move(file)) {}
    std::optional<std::string> next() override;

private:
    bool fill();
    void take(std::size_t end, std::string &line);
    void skipLineEnd();

    UniqueFd file_;
    std::vector<char> block_;
    std::size_t position_ = 0;
    std::size_t taken_ = 0;
};

} // namespace tonvale
