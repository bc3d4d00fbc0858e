// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/files/PosixLineReader.h"

#include "platform/machine/base/SystemErrors.h"

#include <algorithm>
#include <cerrno>

namespace tonvale {

namespace {

constexpr std::size_t kBlockSize = 64 * 1024;

bool endsLine(char c) { return c == '\r' || c == '\n'; }

} // namespace

std::optional<std::string> PosixLineReader::next() {
    if (!fill()) return std::nullopt;
    std::string line;
    do {
        const auto end = std::find_if(block_.begin() + static_cast<std::ptrdiff_t>(position_), block_.end(), endsLine);
        take(static_cast<std::size_t>(end - block_.begin()), line);
        if (end != block_.end()) {
            skipLineEnd();
            break;
        }
    } while (fill());
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
    const bool carriageReturn = block_[position_++] == '\r';
    if (carriageReturn && fill() && block_[position_] == '\n') ++position_;
}

} // namespace tonvale
