// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/Loop.h"

#include "tests/unit/fakes/FakeLoop.h"

#include <gtest/gtest.h>

#include <string>

namespace tonvale::test {
namespace {

class TimerModel : public testing::Test {
protected:
    TimerModel() {
        timer.Tick = [this] { ++ticks; };
    }
    FakeLoop loop;
    Timer timer{loop, 100};
    int ticks = 0;
};

TEST_F(TimerModel, IsOffAtDesign) {
    loop.advance(1000);
    EXPECT_FALSE(timer.Enabled());
    EXPECT_EQ(ticks, 0);
}

TEST_F(TimerModel, TicksOnceInEachInterval) {
    timer.Enabled(true);
    loop.advance(99);
    EXPECT_EQ(ticks, 0);
    loop.advance(1);
    EXPECT_EQ(ticks, 1);
    loop.advance(1000);
    EXPECT_EQ(ticks, 11);
    timer.Enabled(false);
    loop.advance(1000);
    EXPECT_EQ(ticks, 11);
}

TEST_F(TimerModel, EnablingItAgainDoesNotPutItOff) {
    timer.Enabled(true);
    loop.advance(60);
    timer.Enabled(true);
    loop.advance(40);
    EXPECT_EQ(ticks, 1);
}

TEST_F(TimerModel, ANewIntervalCountsFromNow) {
    timer.Enabled(true);
    loop.advance(90);
    timer.Interval(500);
    loop.advance(499);
    EXPECT_EQ(ticks, 0);
    loop.advance(1);
    EXPECT_EQ(ticks, 1);
}

TEST_F(TimerModel, AnIntervalOfZeroStopsItWithoutDisablingIt) {
    timer.Enabled(true);
    timer.Interval(0);
    loop.advance(1000);
    EXPECT_EQ(ticks, 0);
    EXPECT_TRUE(timer.Enabled());
    timer.Interval(10);
    loop.advance(10);
    EXPECT_EQ(ticks, 1);
}

TEST_F(TimerModel, MayDisableItselfInItsTick) {
    timer.Tick = [this] {
        ++ticks;
        timer.Enabled(false);
    };
    timer.Enabled(true);
    loop.advance(1000);
    EXPECT_EQ(ticks, 1);
}

TEST(TimerLife, ADestroyedTimerTicksNoMore) {
    FakeLoop loop;
    int ticks = 0;
    {
        Timer timer{loop, 10};
        timer.Tick = [&] { ++ticks; };
        timer.Enabled(true);
    }
    loop.advance(100);
    EXPECT_EQ(ticks, 0);
    EXPECT_EQ(loop.timerCount(), 0U);
}

TEST(VirtualTime, TimersOfDifferentIntervalsComeInTheOrderOfTime) {
    FakeLoop loop;
    std::string seen;
    Timer slow{loop, 30}, quick{loop, 20};
    slow.Tick = [&] { seen += "S"; };
    quick.Tick = [&] { seen += "q"; };
    slow.Enabled(true);
    quick.Enabled(true);
    loop.advance(50);
    EXPECT_EQ(seen, "qSq");
}

TEST(VirtualTime, ATimerThatWasKeptWaitingComesOnce) {
    FakeLoop loop;
    FakeClock clock{loop};
    int ticks = 0;
    Timer timer{loop, 10};
    timer.Tick = [&] { ++ticks; };
    timer.Enabled(true);
    clock.block(1000);
    EXPECT_EQ(ticks, 0);
    loop.doEvents();
    EXPECT_EQ(ticks, 1);
}

TEST(VirtualTime, TheClockOfTheDayWrapsAtMidnight) {
    FakeLoop loop;
    FakeClock clock{loop};
    clock.setSecondsSinceMidnight(86399);
    EXPECT_NEAR(clock.secondsSinceMidnight(), 86399, 0.001);
    clock.block(2500);
    EXPECT_NEAR(clock.secondsSinceMidnight(), 1.5, 0.001);
    EXPECT_EQ(clock.milliseconds(), loop.now());
}

TEST(VirtualTime, PostedCallsRunInTheirOrder) {
    FakeLoop loop;
    std::string seen;
    loop.post([&] {
        seen += "1";
        loop.post([&] { seen += "3"; });
    });
    loop.post([&] { seen += "2"; });
    EXPECT_EQ(seen, "");
    loop.runUntilIdle();
    EXPECT_EQ(seen, "123");
}

} // namespace
} // namespace tonvale::test
