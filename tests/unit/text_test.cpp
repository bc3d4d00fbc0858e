// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/Text.h"

#include <gtest/gtest.h>

#include <string>

namespace tonvale::test {
namespace {

using namespace std::string_literals;

TEST(CaseFolding, FoldsAsciiAndLeavesTheRest) {
    EXPECT_EQ(lowerCase("C:\\Music\\SONG-1.MP3"), "c:\\music\\song-1.mp3");
    EXPECT_EQ(upperCase("a[z]{`@"), "A[Z]{`@");
}

TEST(CaseFolding, KnowsLatinGreekAndCyrillicLetters) {
    EXPECT_EQ(lowerCase("ÄÖÜÉ"), "äöüé");
    EXPECT_EQ(upperCase("äöüé"), "ÄÖÜÉ");
    EXPECT_EQ(lowerCase("ŁŻŠ"), "łżš");
    EXPECT_EQ(upperCase("ωσ"), "ΩΣ");
    EXPECT_EQ(lowerCase("ПРИВЕТ Ё"), "привет ё");
    EXPECT_EQ(upperCase("привет ё"), "ПРИВЕТ Ё");
}

TEST(CaseFolding, LeavesSignsAndLettersWithoutAPartner) {
    for (const char *text : {"×", "÷", "ß", "ÿ", "ı", "ς"}) EXPECT_EQ(upperCase(text), text);
    for (const char *text : {"×", "÷", "ß", "ı"}) EXPECT_EQ(lowerCase(text), text);
}

TEST(CaseFolding, LeavesBytesThatAreNoUtf8AsTheyAre) {
    EXPECT_EQ(lowerCase("S\xC4NG.MP3"), "s\xC4ng.mp3"); // Windows-1252
    EXPECT_EQ(upperCase("\xFF\xC3"), "\xFF\xC3");
}

TEST(CaseFolding, NeverChangesTheLengthAndComesToRest) {
    for (unsigned letter = 0x80; letter < 0x800; ++letter) {
        const std::string text{static_cast<char>(0xC0 | letter >> 6), static_cast<char>(0x80 | (letter & 0x3F))};
        const std::string lower = lowerCase(text), upper = upperCase(text);
        ASSERT_EQ(lower.size(), 2U) << std::hex << letter;
        ASSERT_EQ(upper.size(), 2U) << std::hex << letter;
        ASSERT_EQ(lowerCase(lower), lower) << std::hex << letter;
        ASSERT_EQ(upperCase(upper), upper) << std::hex << letter;
        if (lower != text) {
            ASSERT_EQ(upperCase(lower), text) << std::hex << letter;
        }
        ASSERT_TRUE(equalFolded(lower, text)) << std::hex << letter;
        ASSERT_TRUE(equalFolded(upper, text)) << std::hex << letter;
    }
}

TEST(EqualFolded, ComparesWholeTexts) {
    EXPECT_TRUE(equalFolded("/Music/É.mp3", "/mUSIC/é.MP3"));
    EXPECT_FALSE(equalFolded("abc", "abcd"));
    EXPECT_TRUE(equalFolded("", ""));
}

TEST(TrimBlanks, TakesBlanksAtTheEndsOnly) {
    EXPECT_EQ(trimBlanks("  a b  "), "a b");
    EXPECT_EQ(trimBlanks("   "), "");
    EXPECT_EQ(trimBlanks("\ta\n"), "\ta\n");
}

TEST(OuterQuotes, GoOneAtEachEnd) {
    EXPECT_EQ(withoutOuterQuotes("\"a b\""), "a b");
    EXPECT_EQ(withoutOuterQuotes("\"\"a\"\""), "\"a\"");
    EXPECT_EQ(withoutOuterQuotes("\"a"), "a");
    EXPECT_EQ(withoutOuterQuotes("a\""), "a");
    EXPECT_EQ(withoutOuterQuotes("\""), "");
    EXPECT_EQ(withoutOuterQuotes("a\"b"), "a\"b");
    EXPECT_EQ(withoutOuterQuotes(""), "");
}

TEST(WildcardMatch, StarIsAnyRunOfCharacters) {
    EXPECT_TRUE(matchesPattern("ThunderRT6FormDC", "Thunder*Form*"));
    EXPECT_TRUE(matchesPattern("ThunderForm", "Thunder*Form*"));
    EXPECT_FALSE(matchesPattern("AThunderForm", "Thunder*Form*"));
    EXPECT_TRUE(matchesPattern("Orvane Tonvale", "*Orvane Tonvale*"));
    EXPECT_TRUE(matchesPattern("About Orvane Tonvale...", "*Orvane Tonvale*"));
    EXPECT_TRUE(matchesPattern("", "*"));
    EXPECT_FALSE(matchesPattern("", "a"));
    EXPECT_TRUE(matchesPattern("aXbXc", "a*X*c"));
    EXPECT_FALSE(matchesPattern("abc", "abcd*"));
}

TEST(WildcardMatch, MindsTheCase) { EXPECT_FALSE(matchesPattern("orvane tonvale", "*Orvane Tonvale*")); }

TEST(WildcardMatch, ManyStarsEndSoon) { EXPECT_FALSE(matchesPattern(std::string(20000, 'a'), "*a*a*a*a*a*a*a*a*b")); }

TEST(UntilZero, CutsAtTheFirstZero) {
    EXPECT_EQ(untilZero("ab\0cd"s), "ab");
    EXPECT_EQ(untilZero("ab"), "ab");
    EXPECT_EQ(untilZero("\0"s), "");
}

TEST(JoinPath, UsesTheSeparatorOfTheKindOfPath) {
    EXPECT_EQ(joinPath("/home/me", "song.mp3"), "/home/me/song.mp3");
    EXPECT_EQ(joinPath("C:\\Music", "song.mp3"), "C:\\Music\\song.mp3");
}

TEST(JoinPath, DoublesASeparatorThatIsThere) {
    EXPECT_EQ(joinPath("/tmp/", "track.wav"), "/tmp//track.wav");
    EXPECT_EQ(joinPath("C:\\", "track.wav"), "C:\\\\track.wav");
}

} // namespace
} // namespace tonvale::test
