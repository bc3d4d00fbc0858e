// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/unit/fakes/PlayerTest.h"

namespace tonvale::test {
namespace {

class Panel : public PlayerTest {
protected:
    Panel() {
        start();
        file("/m/a.mp3");
    }
    void play() {
        executeFromDesktop("/m/a.mp3");
        world.log.clear();
    }
    // Hours, minutes and seconds of a number of seconds, as texts.
    std::string converted(std::int32_t seconds) {
        form().ConvertSeconds(seconds, true, true, text);
        return form().HourText + ":" + form().MinuteText + ":" + form().SecondText;
    }
    std::string text;
};

TEST_F(Panel, ThePositionFollowsTheEngineTenTimesASecond) {
    play();
    world.media.position = 41.5;
    world.advance(99);
    EXPECT_EQ(form().slidTracker.Value(), 0);
    world.advance(1);
    EXPECT_EQ(form().slidTracker.Value(), 42) << "ties go to the even second";
    EXPECT_EQ(positionDigits(), "00:00:42");
    world.media.position = 42.4;
    world.advance(100);
    EXPECT_EQ(positionDigits(), "00:00:42");
    world.media.position = 75;
    world.advance(100);
    EXPECT_EQ(positionDigits(), "00:01:15");
}

TEST_F(Panel, FollowingTheEngineDoesNotSeek) {
    play();
    world.media.position = 41;
    world.advance(1000);
    EXPECT_TRUE(world.log.of({"engine.seek"}).empty());
}

TEST_F(Panel, TheGaugeDancesBetween30And100WhilePlaying) {
    play();
    for (const auto &[random, position] :
         std::vector<std::pair<double, int>>{{0, 30}, {0.5, 65}, {0.9999, 100}, {0.014, 30}, {0.0141, 31}}) {
        world.random.value = random;
        world.advance(100);
        EXPECT_EQ(form().MMLEDGaugeX1.Position, position) << random;
    }
}

TEST_F(Panel, ATickSwitchesTheCdTimerOff) {
    play();
    form().CDR_Timer.Enabled(true);
    world.advance(100);
    EXPECT_FALSE(form().CDR_Timer.Enabled());
}

TEST_F(Panel, Timer1HasNoVisibleEffect) {
    play();
    form().Timer3.Enabled(false);
    world.media.defaultDuration = 0;
    world.advance(5000);
    EXPECT_EQ(form().slidTracker.Value(), 0);
    EXPECT_TRUE(world.log.of({"engine"}).empty());
    EXPECT_TRUE(form().Timer1.Enabled());
}

TEST_F(Panel, MovingTheSliderSeeks) {
    play();
    form().slidTracker.Value(30);
    EXPECT_EQ(world.media.position, 30);
    EXPECT_EQ(positionDigits(), "00:00:30");
    world.advance(100);
    EXPECT_EQ(form().slidTracker.Value(), 30);
}

TEST_F(Panel, DraggingTheSliderSeeksAsWell) {
    play();
    form().slidTracker.scrollTo(95);
    EXPECT_EQ(world.media.position, 95);
    EXPECT_EQ(positionDigits(), "00:01:35");
}

TEST_F(Panel, TheNextTickOverwritesADragThatHasNotTaken) {
    play();
    form().slidTracker.scrollTo(95);
    world.media.position = 3;
    world.advance(100);
    EXPECT_EQ(form().slidTracker.Value(), 3);
}

TEST_F(Panel, AfterAStopThePositionIsZeroAndTheLengthStays) {
    play();
    world.media.position = 41;
    world.advance(100);
    click(form().playmenu.Click);
    EXPECT_EQ(positionDigits(), "00:00:00");
    EXPECT_EQ(totalDigits(), "00:01:40");
}

TEST_F(Panel, NothingMovesWhilePaused) {
    play();
    world.media.position = 41;
    world.advance(100);
    click(form().PauseMenu.Click);
    world.media.position = 60;
    world.random.value = 0;
    const std::int32_t gauge = form().MMLEDGaugeX1.Position;
    world.advance(5000);
    EXPECT_EQ(form().slidTracker.Value(), 41);
    EXPECT_EQ(form().MMLEDGaugeX1.Position, gauge);
}

TEST_F(Panel, AHundredHoursShowTheirFirstAndLastDigit) {
    world.media.durations["/m/a.mp3"] = 123 * 3600 + 45 * 60 + 6;
    play();
    EXPECT_EQ(totalDigits(), "13:45:06");
    form().slidTracker.Value(100 * 3600);
    EXPECT_EQ(positionDigits(), "10:00:00");
}

TEST_F(Panel, TheColonIsAColon) { EXPECT_EQ(form().MMLEDDigitX1.DisplayType, LedDigit::Kind::Colon); }

TEST_F(Panel, SplitsSecondsIntoTwoDigitTexts) {
    EXPECT_EQ(converted(0), "00:00:00");
    EXPECT_EQ(converted(59), "00:00:59");
    EXPECT_EQ(converted(60), "00:01:00");
    EXPECT_EQ(converted(3599), "00:59:59");
    EXPECT_EQ(converted(3600), "01:00:00");
    EXPECT_EQ(converted(3700), "01:01:40");
    EXPECT_EQ(converted(359999), "99:59:59");
    EXPECT_EQ(converted(360000), "100:00:00");
}

TEST_F(Panel, WritesTheClockForm) {
    converted(3700);
    EXPECT_EQ(text, "01:01:40");
}

TEST_F(Panel, ShowsSixtySecondsWhereTheFloatingPointFallsShort) {
    for (const auto &[seconds, shown] : std::vector<std::pair<std::int32_t, std::string>>{
             {3660, "01:00:60"}, {3840, "01:03:60"}, {3900, "01:04:60"}, {4080, "01:07:60"}, {5280, "01:27:60"}})
        EXPECT_EQ(converted(seconds), shown);
    world.media.durations["/m/a.mp3"] = 3660;
    play();
    EXPECT_EQ(totalDigits(), "01:00:60");
}

TEST_F(Panel, TheTextsOfEveryLengthAddUp) {
    int sixties = 0;
    for (std::int32_t seconds = 0; seconds < 40000; ++seconds) {
        const std::string shown = converted(seconds);
        const int hours = std::stoi(form().HourText), minutes = std::stoi(form().MinuteText);
        const int rest = std::stoi(form().SecondText);
        ASSERT_EQ(hours * 3600 + minutes * 60 + rest, seconds) << shown;
        ASSERT_LE(minutes, 59) << seconds;
        ASSERT_LE(rest, 60) << seconds;
        ASSERT_EQ(form().MinuteText.size(), 2U);
        ASSERT_EQ(form().SecondText.size(), 2U);
        if (rest == 60) ++sixties;
    }
    EXPECT_EQ(sixties, 262);
}

} // namespace
} // namespace tonvale::test
