// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/files/PosixFileService.h"
#include "tests/backend/machine/Support.h"

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

namespace tonvale {
namespace {

using namespace test;

class FilesTest : public testing::Test {
protected:
    std::vector<std::string> lines(const std::string &text) {
        writeFile(home / "lines.txt", text);
        const auto reader = files.openLines(home / "lines.txt");
        std::vector<std::string> result;
        while (auto line = reader->next()) result.push_back(*line);
        return result;
    }
    static std::string longest(char c) { return std::string(1024 * 1024, c); }

    ScratchHome home;
    PosixFileService files;
};

TEST_F(FilesTest, AnExactNameWins) {
    writeFile(home / "Song.mp3", "upper");
    writeFile(home / "song.mp3", "lower");
    EXPECT_EQ(files.find(home / "song.mp3"), home / "song.mp3");
    EXPECT_EQ(files.find(home / "Song.mp3"), home / "Song.mp3");
}

TEST_F(FilesTest, ElseTheFirstMatchInByteOrderIsFoundInEachDirectory) {
    std::filesystem::create_directories(home / "MUSIC/Pop");
    writeFile(home / "MUSIC/Pop/SoNG.mp3", "");
    writeFile(home / "MUSIC/Pop/SONG.MP3", "");
    writeFile(home / "MUSIC/Pop/\xC3\x84rger.WAV", "");
    EXPECT_EQ(files.find(home / "music/pop/song.mp3"), home / "MUSIC/Pop/SONG.MP3");
    EXPECT_EQ(files.find(home / "Music/POP/\xC3\xA4RGER.wav"), home / "MUSIC/Pop/\xC3\x84rger.WAV");
    EXPECT_EQ(files.find(home / "music/./pop/../POP/"), home / "MUSIC/./Pop/../Pop/");
    EXPECT_TRUE(files.fileExists(home / "music/pop/song.mp3"));
}

TEST_F(FilesTest, NamesAreBytes) {
    writeFile(home / "B\xE4r\n\".MP3", "x");
    EXPECT_EQ(files.find(home / "b\xE4R\n\".mp3"), home / "B\xE4r\n\".MP3");
    EXPECT_EQ(files.fileLength(home / "b\xE4R\n\".mp3"), 1);
}

TEST_F(FilesTest, WhatIsNotThereIsFoundAsItself) {
    EXPECT_EQ(files.find(home / "No/Such"), home / "No/Such");
    EXPECT_EQ(files.find(""), "");
    EXPECT_EQ(files.find("C:\\Music\\x.mp3"), "C:\\Music\\x.mp3");
    EXPECT_FALSE(files.fileExists(""));
}

TEST_F(FilesTest, ARelativeNameIsFoundToo) {
    writeFile(home / "Song.MP3", "");
    ASSERT_EQ(::chdir(home.path().c_str()), 0);
    EXPECT_EQ(files.find("song.mp3"), "Song.MP3");
    EXPECT_EQ(files.currentDirectory(), home.path());
    ASSERT_EQ(::chdir("/"), 0);
}

TEST_F(FilesTest, ADirectoryIsNoFile) {
    EXPECT_FALSE(files.fileExists(home.path()));
    EXPECT_EQ(errorOf([&] { (void)files.fileLength(home.path()); }), 75);
    EXPECT_EQ(errorOf([&] { files.deleteFile(home.path()); }), 75);
    EXPECT_EQ(errorOf([&] { (void)files.openLines(home.path()); }), 75);
}

TEST_F(FilesTest, MissingNamesAndMissingDirectoriesDiffer) {
    EXPECT_EQ(errorOf([&] { (void)files.fileLength(home / "none"); }), 53);
    EXPECT_EQ(errorOf([&] { files.deleteFile(home / "none"); }), 53);
    EXPECT_EQ(errorOf([&] { (void)files.openLines(home / "none"); }), 53);
    EXPECT_EQ(errorOf([&] { files.rename(home / "none", home / "b"); }), 53);
    EXPECT_EQ(errorOf([&] { (void)files.fileLength(home / "none/none"); }), 76);
    EXPECT_EQ(errorOf([&] { files.deleteFile(home / "none/none"); }), 76);
    EXPECT_EQ(errorOf([&] { (void)files.openLines(home / "none/none"); }), 76);
    writeFile(home / "file", "");
    EXPECT_EQ(errorOf([&] { files.rename(home / "file", home / "none/b"); }), 76);
    EXPECT_EQ(errorOf([&] { (void)files.fileLength(home / "file/below"); }), 76);
}

TEST_F(FilesTest, RenamingNeverReplaces) {
    writeFile(home / "A.ram", "a");
    writeFile(home / "a.ra", "old");
    EXPECT_EQ(errorOf([&] { files.rename(home / "a.RAM", home / "a.ra"); }), 58);
    EXPECT_EQ(readFile(home / "a.ra"), "old");
    files.rename(home / "a.RAM", home / "b.ra");
    EXPECT_EQ(readFile(home / "b.ra"), "a");
    EXPECT_FALSE(exists(home / "A.ram"));
    std::filesystem::create_directory(home / "Music");
    files.rename(home / "b.ra", home / "music/c.ra");
    EXPECT_EQ(readFile(home / "Music/c.ra"), "a");
}

TEST_F(FilesTest, DeletesTheNameThatIsFoundReadOnlyOrNot) {
    writeFile(home / "Song.MP3", "");
    std::filesystem::permissions(home / "Song.MP3", std::filesystem::perms(0444));
    files.deleteFile(home / "song.mp3");
    EXPECT_FALSE(exists(home / "Song.MP3"));
}

TEST_F(FilesTest, WhatIsForbiddenIsErrorSeventy) {
    if (::geteuid() != 0) GTEST_SKIP() << "needs to become another user";
    writeFile(home / "secret", "");
    std::filesystem::permissions(home / "secret", std::filesystem::perms(0600));
    std::filesystem::permissions(home.path(), std::filesystem::perms(0755));
    EXPECT_EQ(Child([&] {
                  if (::setuid(65534) != 0) return 1;
                  if (errorOf([&] { (void)files.openLines(home / "secret"); }) != 70) return 2;
                  if (errorOf([&] { files.deleteFile(home / "secret"); }) != 70) return 3;
                  if (errorOf([&] { files.rename(home / "secret", home / "b"); }) != 70) return 4;
                  return errorOf([&] { (void)files.temporaryDirectory(); }) == 70 ? 0 : 5;
              }).exitCode(),
              0);
}

TEST_F(FilesTest, AZeroCharacterDoesNotShortenAName) {
    writeFile(home / "a", "");
    const std::string name = home / std::string("a\0b", 3);
    EXPECT_FALSE(files.fileExists(name));
    EXPECT_EQ(errorOf([&] { files.deleteFile(name); }), 52);
    EXPECT_EQ(errorOf([&] { files.rename(home / "a", name); }), 52);
    EXPECT_TRUE(exists(home / "a"));
}

TEST_F(FilesTest, ALongPathIsFoundAndATooLongOneIsAnError) {
    std::string path = home.path();
    while (path.size() < 3800) path += "/" + std::string(100, 'd');
    std::filesystem::create_directories(path);
    path += "/" + std::string(200, 'n');
    writeFile(path, "x");
    ASSERT_GT(path.size(), 4000u);
    EXPECT_EQ(files.fileLength(path), 1);
    std::string upper = path;
    for (char &c : upper) c = c == 'n' ? 'N' : c;
    // The letter stands in the scratch directory's name as well.
    upper.replace(0, home.path().size(), home.path());
    EXPECT_EQ(files.find(upper), path);
    EXPECT_EQ(errorOf([&] { (void)files.fileLength(path + std::string(5000, 'x')); }), 52);
}

TEST_F(FilesTest, LinesEndAtEveryKindOfLineEnd) {
    EXPECT_EQ(lines("a\r\nb\nc\rd"), (std::vector<std::string>{"a", "b", "c", "d"}));
    EXPECT_EQ(lines("a\n\r\n\r\r"), (std::vector<std::string>{"a", "", "", ""}));
    EXPECT_EQ(lines(""), std::vector<std::string>{});
    EXPECT_EQ(lines("\n"), std::vector<std::string>{""});
    const std::string bytes("\xFF\0z", 3);
    EXPECT_EQ(lines(bytes + "\n"), std::vector<std::string>{bytes});
}

TEST_F(FilesTest, ALineEndMayLieAcrossTwoBlocks) {
    const std::string start(64 * 1024 - 1, 'a');
    EXPECT_EQ(lines(start + "\r\nb"), (std::vector<std::string>{start, "b"}));
    EXPECT_EQ(lines(start + "\r"), std::vector<std::string>{start});
}

TEST_F(FilesTest, ALineOfAMebibyteIsReadAndALongerOneIsAnError) {
    EXPECT_EQ(lines(longest('x') + "\nb"), (std::vector<std::string>{longest('x'), "b"}));
    EXPECT_EQ(errorOf([&] { lines(longest('x') + "x\nb"); }), 75);
}

TEST_F(FilesTest, OnlyRegularFilesAreRead) {
    ASSERT_EQ(::mkfifo((home / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(errorOf([&] { (void)files.openLines(home / "pipe"); }), 75);
    EXPECT_EQ(errorOf([&] { (void)files.openLines("/dev/zero"); }), 75);
}

TEST_F(FilesTest, TheTemporaryDirectoryIsOfThisUserAlone) {
    const std::string path = files.temporaryDirectory();
    EXPECT_EQ(path, home / "cache/orvane-tonvale/tmp/");
    struct stat status {};
    ASSERT_EQ(::stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0700u);
    std::filesystem::permissions(path, std::filesystem::perms(0777));
    EXPECT_EQ(files.temporaryDirectory(), path);
    ASSERT_EQ(::stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0700u);
}

TEST_F(FilesTest, ALinkIsNotTakenForTheTemporaryDirectory) {
    std::filesystem::create_directories(home / "cache/orvane-tonvale");
    std::filesystem::create_directory_symlink("/tmp", home / "cache/orvane-tonvale/tmp");
    EXPECT_EQ(errorOf([&] { (void)files.temporaryDirectory(); }), 70);
}

} // namespace
} // namespace tonvale
