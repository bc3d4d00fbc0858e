// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tonvale::test {

// What the fakes were asked to do, in one order, so that a test can say that one service was used
// before another.
class CallLog {
public:
    void add(std::string call) { calls_.push_back(std::move(call)); }
    void clear() { calls_.clear(); }
    [[nodiscard]] const std::vector<std::string> &all() const { return calls_; }

    [[nodiscard]] std::ptrdiff_t count(std::string_view call) const { return std::ranges::count(calls_, call); }
    [[nodiscard]] bool has(std::string_view call) const { return count(call) > 0; }

    // The calls that begin with one of the words, in their order.
    [[nodiscard]] std::vector<std::string> of(const std::vector<std::string> &beginnings) const {
        std::vector<std::string> result;
        for (const std::string &call : calls_)
            if (std::ranges::any_of(beginnings, [&](const auto &word) { return call.starts_with(word); }))
                result.push_back(call);
        return result;
    }

private:
    std::vector<std::string> calls_;
};

} // namespace tonvale::test
