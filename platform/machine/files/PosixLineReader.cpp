// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/files/PosixLineReader.h"

#include "platform/machine/base/SystemErrors.h"

#include <algorithm>
#include <cerrno>

namespace tonvale {

namespace {

constexpr std::size_t kBlockSize = 64 * 1024;

// What the lines of one file may take, each counted with what it costs to keep. A list of a
// million files fits in; a file that never was a list ends here and not with the memory.
constexpr std::size_t kMostText = 256 * 1024 * 1024;
constexpr std::size_t kCostOfLine = 64;

} // namespace

std::optional<std::string> PosixLineReader::next() {
    if (!fill()) return std::nullopt;
    std::string line;
    do {
        const auto end = std::find(block_.begin() + static_cast<std::ptrdiff_t>(position_), block_.end(), '\r');
        take(static_cast<std::size_t>(end - block_.begin()), line);
        if (end != block_.end()) {
            skipLineEnd();
            break;
        }
    } while (fill());
    taken_ += line.size() + kCostOfLine;
    if (taken_ > kMostText) throw RuntimeError(ErrorNumber::PathFileAccessError, "The file is too long for a list");
    return line;
}

// Returns false at the end of the file.
bool PosixLineReader::fill() {
    if (position_ < block_.size()) return true;
    block_.resize(kBlockSize);
    ssize_t count = 0;
    do {
        count = ::read(file_.get(), block_.data(), block_.size());
    } while (count < 0 && errno == EINTR);
    const int error = errno;
    block_.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    position_ = 0;
    if (count < 0) throw systemError(error);
    return count > 0;
}

void PosixLineReader::take(std::size_t end, std::string &line) {
    if (line.size() + (end - position_) > kLongestLine)
        throw RuntimeError(ErrorNumber::PathFileAccessError, "A line of the file is too long");
    line.append(block_.data() + position_, end - position_);
    position_ = end;
}

void PosixLineReader::skipLineEnd() {
    ++position_;
    if (fill() && block_[position_] == '\n') ++position_;
}

} // namespace tonvale
