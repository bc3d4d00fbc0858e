// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/PathParser.h"

#include <gtest/gtest.h>

#include <string>

namespace tonvale::test {
namespace {

class Paths : public testing::Test {
protected:
    void split(const std::string &path) { result = parser.ParsePath(path, ""); }
    // All parts in one text: drive|directory|folder|file|base|extension.
    [[nodiscard]] std::string parts() const {
        return parser.ParsedDrive + "|" + parser.ParsedDirectory + "|" + parser.ParsedFolder + "|" +
               parser.ParsedFileName + "|" + parser.ParsedBaseName + "|" + parser.ParsedExtension;
    }
    PathParser parser;
    std::string result;
};

TEST_F(Paths, SplitsAPathIntoItsParts) {
    split("C:\\music\\pop\\song.live.mp3");
    EXPECT_EQ(parts(), "C:|C:\\music\\pop|pop|song.live.mp3|song.live|.mp3");
    EXPECT_EQ(parser.ParsedPath, "C:\\music\\pop\\song.live.mp3");
    EXPECT_EQ(result, "C:\\music\\pop");
}

TEST_F(Paths, TheSelectorNamesThePartInEitherCase) {
    const std::string path = "C:\\music\\pop\\song.live.mp3";
    EXPECT_EQ(parser.ParsePath(path, "d"), "C:");
    EXPECT_EQ(parser.ParsePath(path, "D"), "C:");
    EXPECT_EQ(parser.ParsePath(path, "l"), "pop");
    EXPECT_EQ(parser.ParsePath(path, "F"), "song.live.mp3");
    EXPECT_EQ(parser.ParsePath(path, "b"), "song.live");
    EXPECT_EQ(parser.ParsePath(path, "E"), ".mp3");
    EXPECT_EQ(parser.ParsePath(path, "x"), "C:\\music\\pop");
    EXPECT_EQ(parser.ParsePath(path, ""), "C:\\music\\pop");
}

TEST_F(Paths, QuotesMakeNoDifferenceButToTheOriginal) {
    split("\"C:\\a b\\c.mp3\"");
    EXPECT_EQ(parts(), "C:|C:\\a b|a b|c.mp3|c|.mp3");
    EXPECT_EQ(parser.ParsedPath, "\"C:\\a b\\c.mp3\"");
}

TEST_F(Paths, QuotesAndBlanksGoAgainAndAgain) {
    split("  \" \"\"C:\\a\\b.wav\" \" ");
    EXPECT_EQ(parts(), "C:|C:\\a|a|b.wav|b|.wav");
}

TEST_F(Paths, ADriveAloneIsItsRoot) {
    split("C:");
    EXPECT_EQ(parts(), "C:|C:\\||||");
}

TEST_F(Paths, AFileInADrivesRootHasTheRootAsDirectory) {
    split("C:\\song.mp3");
    EXPECT_EQ(parts(), "C:|C:\\||song.mp3|song|.mp3");
}

TEST_F(Paths, AFileBehindADriveWithoutADirectoryKeepsItsName) {
    split("C:song.mp3");
    EXPECT_EQ(parts(), "C:|||song.mp3|song|.mp3");
}

TEST_F(Paths, ANameAloneHasNoDirectory) {
    split("song.mp3");
    EXPECT_EQ(parts(), "|||song.mp3|song|.mp3");
}

TEST_F(Paths, AnExtensionOfTheDotAloneIsEmpty) {
    split("name.");
    EXPECT_EQ(parts(), "|||name.|name|");
}

TEST_F(Paths, ANameWithoutAPointHasNoExtension) {
    split("C:\\music.old\\name");
    EXPECT_EQ(parts(), "C:|C:\\music.old|music.old|name|name|");
}

TEST_F(Paths, ANameOfPointAndExtensionHasAnEmptyBase) {
    split("/home/me/.mp3");
    EXPECT_EQ(parts(), "|/home/me|me|.mp3||.mp3");
}

TEST_F(Paths, EmptyAndBlankTextsClearAllParts) {
    for (const char *text : {"", "   ", "\"\"", "\" \""}) {
        split("C:\\music\\pop\\song.mp3");
        split(text);
        EXPECT_EQ(parts(), "|||||") << text;
        EXPECT_EQ(parser.ParsedPath, text);
        EXPECT_EQ(result, "");
    }
}

TEST_F(Paths, APathWithSlashesHasNoDrive) {
    split("/home/me/a:b/Song.Live.MP3");
    EXPECT_EQ(parts(), "|/home/me/a:b|a:b|Song.Live.MP3|Song.Live|.MP3");
}

TEST_F(Paths, AFileInTheRootHasTheRootAsDirectory) {
    split("/song.mp3");
    EXPECT_EQ(parts(), "|/||song.mp3|song|.mp3");
    EXPECT_EQ(result, "/");
}

TEST_F(Paths, ABackslashIsAPartOfANameBetweenSlashes) {
    split("/music/AC\\DC.mp3");
    EXPECT_EQ(parts(), "|/music|music|AC\\DC.mp3|AC\\DC|.mp3");
}

TEST_F(Paths, ASlashPathThatEndsInAColonIsAnOrdinaryName) {
    split("/music/a:");
    EXPECT_EQ(parts(), "|/music|music|a:|a:|");
}

TEST_F(Paths, TheTrailingSlashStaysOnDemand) {
    EXPECT_EQ(parser.ParsePath("C:\\a\\b.mp3", "", TrailingSlash::Keep), "C:\\a\\");
    EXPECT_EQ(parser.ParsePath("C:\\b.mp3", "", TrailingSlash::Keep), "C:\\");
    EXPECT_EQ(parser.ParsePath("/a/b.mp3", "", TrailingSlash::Keep), "/a/");
}

TEST_F(Paths, TheDotGoesOnDemand) {
    EXPECT_EQ(parser.ParsePath("C:\\a\\b.mp3", "e", TrailingSlash::Drop, ExtensionDot::Drop), "mp3");
    EXPECT_EQ(parser.ParsePath("name.", "e", TrailingSlash::Drop, ExtensionDot::Drop), "");
}

TEST_F(Paths, ADirectoryIsTakenAsOneOnDemand) {
    parser.ParsePath("C:\\music\\pop", "", TrailingSlash::Drop, ExtensionDot::Keep, Assume::Directory);
    EXPECT_EQ(parts(), "C:|C:\\music\\pop|pop|||");
    parser.ParsePath("C:\\music\\pop\\", "", TrailingSlash::Drop, ExtensionDot::Keep, Assume::Directory);
    EXPECT_EQ(parts(), "C:|C:\\music\\pop|pop|||");
}

TEST_F(Paths, APartOfTheLastCallMayBeSplitAgain) {
    split("C:\\music\\pop\\song.mp3");
    EXPECT_EQ(parser.ParsePath(parser.ParsedFileName, "b"), "song");
    EXPECT_EQ(parser.ParsePath(parser.ParsedPath, "e"), ".mp3");
}

TEST_F(Paths, BytesOfAnyKindComeThroughAsTheyAre) {
    split("/m\xFF\xE4/s\xC3\xB6ng.mp3");
    EXPECT_EQ(parts(), "|/m\xFF\xE4|m\xFF\xE4|s\xC3\xB6ng.mp3|s\xC3\xB6ng|.mp3");
}

} // namespace
} // namespace tonvale::test
