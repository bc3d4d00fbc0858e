// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/codec/engine/DoneRanges.h"

#include <algorithm>
#include <iterator>

namespace tonvale {

void DoneRanges::add(std::int64_t begin, std::int64_t end) {
    if (begin >= end) return;
    const std::lock_guard lock(mutex_);
    auto next = ranges_.upper_bound(begin);
    if (next != ranges_.begin() && std::prev(next)->second >= begin) --next;
    while (next != ranges_.end() && next->first <= end) {
        begin = std::min(begin, next->first);
        end = std::max(end, next->second);
        next = ranges_.erase(next);
    }
    ranges_.emplace(begin, end);
}

std::int64_t DoneRanges::total() const {
    const std::lock_guard lock(mutex_);
    std::int64_t sum = 0;
    for (const auto &[begin, end] : ranges_) sum += end - begin;
    return sum;
}

std::int64_t DoneRanges::prefix() const {
    const std::lock_guard lock(mutex_);
    return ranges_.empty() || ranges_.begin()->first > 0 ? 0 : ranges_.begin()->second;
}

} // namespace tonvale
