// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <map>
#include <mutex>

namespace tonvale {

// Which parts of a whole are finished. For any thread.
class DoneRanges {
public:
    void add(std::int64_t begin, std::int64_t end);
    [[nodiscard]] std::int64_t total() const;
    // How much is finished without a gap from 0 on.
    [[nodiscard]] std::int64_t prefix() const;

private:
    mutable std::mutex mutex_;
    std::map<std::int64_t, std::int64_t> ranges_; // begin to end; they neither overlap nor touch
};

} // namespace tonvale
