// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/base/UniqueFd.h"
#include "platform/machine/files/PosixFileService.h"
#include "tests/backend/machine/Support.h"

#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <filesystem>
#include <iterator>

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
    writeFile(home / "secret", "");
    std::filesystem::permissions(home / "secret", std::filesystem::perms(0));
    std::filesystem::permissions(home / "cache", std::filesystem::perms(0));
    std::filesystem::permissions(home.path(), std::filesystem::perms(0555));
    EXPECT_EQ(asNobody([&] {
                  if (errorOf([&] { (void)files.openLines(home / "secret"); }) != 70) return 2;
                  if (errorOf([&] { files.deleteFile(home / "secret"); }) != 70) return 3;
                  if (errorOf([&] { files.rename(home / "secret", home / "b"); }) != 70) return 4;
                  return errorOf([&] { (void)files.temporaryDirectory(); }) == 70 ? 0 : 5;
              }),
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

TEST_F(FilesTest, LinesEndAtACarriageReturnWithOrWithoutALineFeed) {
    EXPECT_EQ(lines("a\r\nb\rc"), (std::vector<std::string>{"a", "b", "c"}));
    EXPECT_EQ(lines("a\nb\r\n"), std::vector<std::string>{"a\nb"}) << "a line feed alone is part of the line";
    EXPECT_EQ(lines("a\r\n\r\r\r\n"), (std::vector<std::string>{"a", "", "", ""}));
    EXPECT_EQ(lines("\r\n\n"), (std::vector<std::string>{"", "\n"}));
    EXPECT_EQ(lines(""), std::vector<std::string>{});
    EXPECT_EQ(lines("\r"), std::vector<std::string>{""});
    const std::string bytes("\xFF\0z", 3);
    EXPECT_EQ(lines(bytes + "\r\n"), std::vector<std::string>{bytes});
}

TEST_F(FilesTest, ALineEndMayLieAcrossTwoBlocks) {
    const std::string start(64 * 1024 - 1, 'a');
    EXPECT_EQ(lines(start + "\r\nb"), (std::vector<std::string>{start, "b"}));
    EXPECT_EQ(lines(start + "\r"), std::vector<std::string>{start});
}

TEST_F(FilesTest, ALineOfAMebibyteIsReadAndALongerOneIsAnError) {
    EXPECT_EQ(lines(longest('x') + "\rb"), (std::vector<std::string>{longest('x'), "b"}));
    EXPECT_EQ(errorOf([&] { lines(longest('x') + "x\rb"); }), 75);
}

TEST_F(FilesTest, AMillionRowsAreReadAndAFileThatNeverWasAListIsNot) {
    std::string text;
    for (int i = 0; i < 1000000; ++i) text += "/music/some folder/a song number " + std::to_string(i) + ".mp3\r\n";
    EXPECT_EQ(lines(text).size(), 1000000U);
    writeFile(home / "lines.txt", std::string(5000000, '\r'));
    const auto reader = files.openLines(home / "lines.txt");
    std::size_t count = 0;
    EXPECT_EQ(errorOf([&] {
                  while (reader->next()) ++count;
              }),
              75);
    EXPECT_GT(count, 4000000U);
}

TEST_F(FilesTest, AGibibyteOfZerosIsGivenUpAtOnce) {
    writeFile(home / "zeros", "");
    ASSERT_EQ(::truncate((home / "zeros").c_str(), 1024 * 1024 * 1024), 0);
    const auto reader = files.openLines(home / "zeros");
    EXPECT_EQ(errorOf([&] { (void)reader->next(); }), 75);
}

TEST_F(FilesTest, OnlyRegularFilesAreRead) {
    ASSERT_EQ(::mkfifo((home / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(errorOf([&] { (void)files.openLines(home / "pipe"); }), 75);
    EXPECT_EQ(errorOf([&] { (void)files.openLines("/dev/zero"); }), 75);
}

TEST_F(FilesTest, WhoeverWritesToAPipeDoesNotNoticeThatItIsRefused) {
    ASSERT_EQ(::mkfifo((home / "pipe").c_str(), 0600), 0);
    const UniqueFd watch(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    ASSERT_GE(::inotify_add_watch(watch.get(), (home / "pipe").c_str(), IN_OPEN), 0);
    EXPECT_EQ(errorOf([&] { (void)files.openLines(home / "pipe"); }), 75);
    std::array<char, 1024> events{};
    EXPECT_LT(::read(watch.get(), events.data(), events.size()), 0) << "it was opened";
    UniqueFd opened(::open((home / "pipe").c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    EXPECT_GT(::read(watch.get(), events.data(), events.size()), 0) << "nothing is seen here at all";
}

TEST_F(FilesTest, APathIsAFileOrADirectory) {
    std::filesystem::create_directory(home / "Music");
    writeFile(home / "Music/Song.MP3", "");
    EXPECT_TRUE(files.pathExists(home / "music"));
    EXPECT_TRUE(files.pathExists(home / "music/song.mp3"));
    EXPECT_FALSE(files.pathExists(home / "music/none"));
    EXPECT_FALSE(files.pathExists(""));
    EXPECT_FALSE(files.pathExists(home / std::string("Music\0", 6)));
}

TEST_F(FilesTest, ListsTheFilesOfADirectoryInOrderOfName) {
    std::filesystem::create_directories(home / "Music/folder.mp3");
    for (const char *name : {"b.mp3", "A.mp3", "\xFF.mp3", "a.MP3", ".hidden.mp3", "c\n.mp3", "10.mp3"})
        writeFile(home / "Music" + "/" + name, "");
    std::filesystem::create_symlink("b.mp3", home / "Music/link.mp3");
    std::filesystem::create_symlink("none", home / "Music/dangling.mp3");
    ASSERT_EQ(::mkfifo((home / "Music/pipe.mp3").c_str(), 0600), 0);
    EXPECT_EQ(files.filesIn(home / "music"),
              (std::vector<std::string>{"10.mp3", "A.mp3", "a.MP3", "b.mp3", "c\n.mp3", "link.mp3", "\xFF.mp3"}));
}

TEST_F(FilesTest, OnlyADirectoryHasFiles) {
    writeFile(home / "file", "");
    EXPECT_EQ(errorOf([&] { (void)files.filesIn(home / "file"); }), 76);
    EXPECT_EQ(errorOf([&] { (void)files.filesIn(home / "none/none"); }), 76);
    EXPECT_NE(errorOf([&] { (void)files.filesIn(""); }), 0);
}

class ReplacingTest : public FilesTest {
protected:
    [[nodiscard]] static std::size_t entries(const std::string &directory) {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(directory), {}));
    }
    static mode_t permissions(const std::string &path) {
        struct stat status {};
        EXPECT_EQ(::lstat(path.c_str(), &status), 0);
        return status.st_mode & 07777;
    }
};

TEST_F(ReplacingTest, MakesAFileAndReplacesIt) {
    std::filesystem::create_directory(home / "Lists");
    const std::string bytes("\xFF\0\r\n", 4);
    const mode_t mask = ::umask(027);
    files.replaceFile(home / "lists/A.ply", bytes);
    ::umask(mask);
    EXPECT_EQ(readFile(home / "Lists/A.ply"), bytes);
    EXPECT_EQ(permissions(home / "Lists/A.ply"), 0640U);
    files.replaceFile(home / "lists/a.PLY", "");
    EXPECT_EQ(readFile(home / "Lists/A.ply"), "");
    EXPECT_EQ(entries(home / "Lists"), 1U) << "the name that is found is replaced, and nothing is left beside";
}

TEST_F(ReplacingTest, KeepsThePermissionsOfTheOldFile) {
    writeFile(home / "a.ply", "old");
    std::filesystem::permissions(home / "a.ply", std::filesystem::perms(0604));
    files.replaceFile(home / "a.ply", "new");
    EXPECT_EQ(permissions(home / "a.ply"), 0604U);
    EXPECT_EQ(readFile(home / "a.ply"), "new");
}

TEST_F(ReplacingTest, ALinkStaysALink) {
    std::filesystem::create_directory(home / "real");
    writeFile(home / "real/a.ply", "old");
    std::filesystem::create_symlink("real/a.ply", home / "link.ply");
    std::filesystem::create_symlink("link.ply", home / "second.ply");
    std::filesystem::create_symlink(home / "real/new.ply", home / "dangling.ply");
    std::filesystem::create_symlink("loop.ply", home / "loop.ply");
    files.replaceFile(home / "second.ply", "new");
    EXPECT_TRUE(std::filesystem::is_symlink(home / "link.ply"));
    EXPECT_TRUE(std::filesystem::is_symlink(home / "second.ply"));
    EXPECT_EQ(readFile(home / "real/a.ply"), "new");
    files.replaceFile(home / "dangling.ply", "made");
    EXPECT_EQ(readFile(home / "real/new.ply"), "made");
    EXPECT_NE(errorOf([&] { files.replaceFile(home / "loop.ply", "x"); }), 0);
}

TEST_F(ReplacingTest, OnlyAPlainFileIsReplaced) {
    ASSERT_EQ(::mkfifo((home / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(errorOf([&] { files.replaceFile(home / "pipe", "x"); }), 75);
    EXPECT_EQ(errorOf([&] { files.replaceFile("/dev/null", "x"); }), 75);
    EXPECT_EQ(errorOf([&] { files.replaceFile(home.path(), "x"); }), 75);
    EXPECT_EQ(errorOf([&] { files.replaceFile(home / "none/a.ply", "x"); }), 76);
    EXPECT_EQ(errorOf([&] { files.replaceFile(home / std::string("a\0b", 3), "x"); }), 52);
    EXPECT_TRUE(std::filesystem::is_fifo(home / "pipe"));
}

TEST_F(ReplacingTest, AFileThatMayNotBeWrittenStaysAsItIs) {
    std::filesystem::create_directories(home / "open");
    std::filesystem::create_directories(home / "closed");
    for (const char *path : {"open/a.ply", "closed/a.ply"}) writeFile(home / path, "old");
    for (const char *path : {"", "open"}) std::filesystem::permissions(home / path, std::filesystem::perms(0777));
    std::filesystem::permissions(home / "open/a.ply", std::filesystem::perms(0444));
    std::filesystem::permissions(home / "closed/a.ply", std::filesystem::perms(0666));
    std::filesystem::permissions(home / "closed", std::filesystem::perms(0555));
    EXPECT_EQ(asNobody([&] {
                  if (errorOf([&] { files.replaceFile(home / "open/a.ply", "x"); }) != 70) return 2;
                  return errorOf([&] { files.replaceFile(home / "closed/a.ply", "x"); }) == 70 ? 0 : 3;
              }),
              0);
    EXPECT_EQ(readFile(home / "open/a.ply"), "old");
    EXPECT_EQ(readFile(home / "closed/a.ply"), "old");
    EXPECT_EQ(entries(home / "open"), 1U);
}

// A limit on the size of files fails the write as a full disk does.
TEST_F(ReplacingTest, AFullDiskLeavesTheOldFile) {
    writeFile(home / "a.ply", "old");
    const std::size_t before = entries(home.path());
    EXPECT_EQ(Child([&] {
                  const rlimit limit{1000, 1000};
                  if (::signal(SIGXFSZ, SIG_IGN) == SIG_ERR || ::setrlimit(RLIMIT_FSIZE, &limit) != 0) return 1;
                  return errorOf([&] { files.replaceFile(home / "a.ply", std::string(100000, 'x')); }) == 61 ? 0 : 2;
              }).exitCode(),
              0);
    EXPECT_EQ(readFile(home / "a.ply"), "old");
    EXPECT_EQ(entries(home.path()), before) << "nothing is left beside";
}

TEST_F(ReplacingTest, AKillAtAnyMomentLeavesTheOldFileOrTheNewOne) {
    const std::string contents[] = {std::string(3000000, 'a'), std::string(2000000, 'b')};
    writeFile(home / "a.ply", contents[0]);
    int kills = 0;
    for (int delay = 0; delay < 40; ++delay) {
        Child writer([&] {
            for (int i = 0;; ++i) files.replaceFile(home / "a.ply", contents[i % 2]);
            return 0;
        });
        ASSERT_EQ(::usleep(static_cast<useconds_t>(delay) * 500), 0);
        kills += writer.hasEnded() ? 0 : 1;
        writer.kill();
        const std::string text = readFile(home / "a.ply");
        ASSERT_TRUE(text == contents[0] || text == contents[1]) << text.size() << " bytes";
    }
    EXPECT_EQ(kills, 40);
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
