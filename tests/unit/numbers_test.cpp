// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/Numbers.h"

#include "controls/Errors.h"
#include "tests/unit/expectations.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

namespace tonvale::test {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(Rounding, TiesGoToTheEvenNeighbour) {
    EXPECT_EQ(roundEven(0.5), 0);
    EXPECT_EQ(roundEven(1.5), 2);
    EXPECT_EQ(roundEven(2.5), 2);
    EXPECT_EQ(roundEven(3.5), 4);
    EXPECT_EQ(roundEven(-0.5), 0);
    EXPECT_EQ(roundEven(-1.5), -2);
    EXPECT_EQ(roundEven(-2.5), -2);
}

TEST(Rounding, OtherValuesGoToTheNearest) {
    EXPECT_EQ(roundEven(2.4999), 2);
    EXPECT_EQ(roundEven(2.5001), 3);
    EXPECT_EQ(roundEven(-2.5001), -3);
    EXPECT_EQ(roundEven(7), 7);
}

TEST(Rounding, KeepsTheEndsOfTheWholeNumberRanges) {
    EXPECT_EQ(toInt16(32767.4), 32767);
    EXPECT_EQ(toInt16(-32768.5), -32768);
    EXPECT_EQ(toInt32(2147483647.25), 2147483647);
    EXPECT_EQ(toInt32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
}

TEST(Rounding, OverflowsBeyondThem) {
    EXPECT_RUNTIME_ERROR(toInt16(32767.5), 6);
    EXPECT_RUNTIME_ERROR(toInt16(-32769), 6);
    EXPECT_RUNTIME_ERROR(toInt32(2147483647.5), 6);
    EXPECT_RUNTIME_ERROR(toInt32(-2147483649.0), 6);
    EXPECT_RUNTIME_ERROR(toInt32(kNaN), 6);
    EXPECT_RUNTIME_ERROR(toInt32(kInfinity), 6);
    EXPECT_RUNTIME_ERROR(toInt16(-kInfinity), 6);
}

TEST(Arithmetic, RaisesOverflowInsteadOfWrapping) {
    EXPECT_EQ(add32(2147483646, 1), 2147483647);
    EXPECT_RUNTIME_ERROR(add32(2147483647, 1), 6);
    EXPECT_EQ(subtract32(-2147483647, 1), std::numeric_limits<std::int32_t>::min());
    EXPECT_RUNTIME_ERROR(subtract32(std::numeric_limits<std::int32_t>::min(), 1), 6);
    EXPECT_EQ(multiply32(65536, 32767), 2147418112);
    EXPECT_RUNTIME_ERROR(multiply32(65536, 32768), 6);
    EXPECT_EQ(add16(32766, 1), 32767);
    EXPECT_RUNTIME_ERROR(add16(32767, 1), 6);
    EXPECT_EQ(multiply16(-256, 128), -32768);
    EXPECT_RUNTIME_ERROR(multiply16(256, 128), 6);
}

TEST(NumericPrefix, TakesTheNumberThatTheTextBeginsWith) {
    EXPECT_EQ(numericPrefix("12abc"), 12);
    EXPECT_EQ(numericPrefix("-4.5e2z"), -450);
    EXPECT_EQ(numericPrefix("1d3"), 1000);
    EXPECT_EQ(numericPrefix("+7"), 7);
    EXPECT_EQ(numericPrefix(".5"), 0.5);
    EXPECT_EQ(numericPrefix("1.2.3"), 1.2);
    EXPECT_EQ(numericPrefix("5-3"), 5);
    EXPECT_EQ(numericPrefix("1e"), 1);
    EXPECT_EQ(numericPrefix("01"), 1);
}

TEST(NumericPrefix, IsZeroWhereTheTextBeginsWithNone) {
    for (const char *text : {"", "abc", "-", ".", "e5", "/music/1.cda", "\"1\""})
        EXPECT_EQ(numericPrefix(text), 0) << text;
}

TEST(NumericPrefix, PassesOverBlanksTabsAndLineFeeds) {
    EXPECT_EQ(numericPrefix("  1 2\t3x"), 123);
    EXPECT_EQ(numericPrefix("1\n6"), 16);
}

TEST(NumericPrefix, ReadsHexadecimalAndOctalNumbers) {
    EXPECT_EQ(numericPrefix("&H1F"), 31);
    EXPECT_EQ(numericPrefix("&HFFFF"), -1);
    EXPECT_EQ(numericPrefix("&H10000"), 65536);
    EXPECT_EQ(numericPrefix("&O17"), 15);
}

TEST(NumericPrefix, TooLargeANumberOverflows) {
    EXPECT_RUNTIME_ERROR(static_cast<void>(numericPrefix("1e999")), 6);
    EXPECT_EQ(numericPrefix("1e-999"), 0);
}

TEST(TextToNumber, TakesTheWholeText) {
    EXPECT_EQ(textToDouble(" 1.5 "), 1.5);
    EXPECT_EQ(textToInt16("2.5"), 2);
    EXPECT_EQ(textToInt32("-70000"), -70000);
}

TEST(TextToNumber, RefusesWhatIsNoNumber) {
    for (const char *text : {"", " ", "abc", "1x", "1 2", "--1"})
        EXPECT_RUNTIME_ERROR(static_cast<void>(textToDouble(text)), 13);
    EXPECT_RUNTIME_ERROR(static_cast<void>(textToInt16("40000")), 6);
}

TEST(TextToBoolean, KnowsTheWordsInAnyCaseAndNumbers) {
    EXPECT_TRUE(textToBoolean("True"));
    EXPECT_TRUE(textToBoolean("TRUE"));
    EXPECT_FALSE(textToBoolean("False"));
    EXPECT_FALSE(textToBoolean("false"));
    EXPECT_TRUE(textToBoolean("-1"));
    EXPECT_FALSE(textToBoolean("0"));
    EXPECT_RUNTIME_ERROR(static_cast<void>(textToBoolean("yes")), 13);
}

TEST(TextToBoolean, RefusesWordsThatOnlyLookLikeThem) {
    for (const char *text : {"", "Tru", "Truee", "\x54\x52\x55\x01", "F\x01lse"})
        EXPECT_RUNTIME_ERROR(static_cast<void>(textToBoolean(text)), 13);
}

TEST(BooleanToText, GivesTheWordsOfTheStore) {
    EXPECT_EQ(booleanToText(true), "True");
    EXPECT_EQ(booleanToText(false), "False");
}

TEST(FormatDigits, PadsWithZeros) {
    EXPECT_EQ(formatDigits(0, 2), "00");
    EXPECT_EQ(formatDigits(7, 2), "07");
    EXPECT_EQ(formatDigits(60, 2), "60");
    EXPECT_EQ(formatDigits(123, 2), "123");
    EXPECT_EQ(formatDigits(5, 3), "005");
}

TEST(FormatDigits, RoundsHalvesAwayFromZero) {
    EXPECT_EQ(formatDigits(2.5, 1), "3");
    EXPECT_EQ(formatDigits(0.5, 2), "01");
    EXPECT_EQ(formatDigits(-2.5, 1), "-3");
}

TEST(FormatOneDecimal, ShowsOneDigitBehindThePoint) {
    EXPECT_EQ(formatOneDecimal(12), "12.0");
    EXPECT_EQ(formatOneDecimal(12.34), "12.3");
    EXPECT_EQ(formatOneDecimal(0.25), "0.3");
    EXPECT_EQ(formatOneDecimal(-1.26), "-1.3");
}

TEST(FormatGeneral, IsAsShortAsItsDigitsAllow) {
    EXPECT_EQ(formatGeneral(3, 15), "3");
    EXPECT_EQ(formatGeneral(24000 / 1001.0, 5), "23.976");
    EXPECT_EQ(formatGeneral(-0.5, 7), "-0.5");
    EXPECT_EQ(formatGeneral(1e20, 15), "1E+20");
}

} // namespace
} // namespace tonvale::test
