// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/time/SystemClock.h"
#include "platform/machine/time/SystemRandom.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

namespace tonvale {
namespace {

TEST(SystemClock, CountsFromLocalMidnight) {
    ASSERT_EQ(::setenv("TZ", "UTC-5", 1), 0);
    ::tzset();
    SystemClock clock;
    const auto expected = static_cast<double>((std::time(nullptr) + 5 * 3600) % 86400);
    const double seconds = clock.secondsSinceMidnight();
    EXPECT_GE(seconds, 0);
    EXPECT_LT(seconds, 86400);
    // Midnight may fall between the two readings.
    const double difference = seconds - expected;
    EXPECT_TRUE((difference >= -1 && difference < 5) || difference < -86000) << difference;
}

TEST(SystemClock, BlockingTakesItsTime) {
    SystemClock clock;
    const std::int64_t before = clock.milliseconds();
    clock.block(20);
    EXPECT_GE(clock.milliseconds() - before, 20);
    clock.block(-5);
}

TEST(SystemRandom, StaysInRangeAndDiffersEachTime) {
    SystemRandom a, b;
    EXPECT_NE(a.next(), b.next());
    double low = 1, high = 0;
    for (int i = 0; i < 10000; ++i) {
        const double x = a.next();
        low = std::min(low, x);
        high = std::max(high, x);
    }
    EXPECT_GE(low, 0);
    EXPECT_LT(low, 0.01);
    EXPECT_LT(high, 1);
    EXPECT_GT(high, 0.99);
}

} // namespace
} // namespace tonvale
