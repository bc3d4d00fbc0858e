// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/desktop/LazyDesktop.h"
#include "platform/machine/files/PosixFileService.h"
#include "tests/backend/machine/Support.h"

#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

namespace tonvale {
namespace {

using namespace test;

// Libraries read the environment once, so each test runs in a process of its own.
class DesktopTest : public testing::Test {
protected:
    static void SetUpTestSuite() { (void)::unsetenv("DBUS_SESSION_BUS_ADDRESS"); }

    DesktopTest() {
        (void)::setenv("XDG_DATA_DIRS", "/usr/share", 1);
        (void)::setenv("XDG_CURRENT_DESKTOP", "scratch", 1);
        std::filesystem::create_directories(home / "data/applications");
        std::filesystem::create_directory(home / "bin");
        const std::string path = home / "bin" + ":/usr/bin:/bin";
        (void)::setenv("PATH", path.c_str(), 1);
        program("opener");
        handler("opener", "opener %u", "MimeType=text/x-scratch;inode/directory;x-scheme-handler/mailto;");
        handler("reader", "opener %f", "MimeType=text/html;");
        writeFile(home / "config/mimeapps.list", "[Default Applications]\ntext/html=reader.desktop\n"
                                                 "inode/directory=opener.desktop\n"
                                                 "x-scheme-handler/mailto=opener.desktop\n");
    }
    // A program that notes its arguments one a line, and where it ran.
    void program(const std::string &name, const std::string &more = "") {
        writeFile(home / "bin/" + name, "#!/bin/sh\n{ pwd; for a in \"$@\"; do printf '%s\\n' \"$a\"; done; } "
                                        ">\"$HOME/part\"\nmv \"$HOME/part\" \"$HOME/ran\"\n" +
                                            more);
        std::filesystem::permissions(home / "bin/" + name, std::filesystem::perms(0755));
    }
    void handler(const std::string &name, const std::string &command, const std::string &more) {
        writeFile(home / "data/applications/" + name + ".desktop",
                  "[Desktop Entry]\nType=Application\nName=" + name + "\nExec=" + command + "\n" + more + "\n");
    }
    Shell::Launch execute(const std::string &verb, const std::string &file, const std::string &parameters = "",
                          const std::string &directory = "") {
        return desktop.shell().execute(verb, file, parameters, directory, 1);
    }
    std::vector<std::string> ran() {
        std::vector<std::string> lines;
        if (!waitUntil([this] { return exists(home / "ran"); })) return lines;
        std::ifstream file(home / "ran");
        for (std::string line; std::getline(file, line);) lines.push_back(line);
        std::filesystem::remove(home / "ran");
        return lines;
    }
    std::string recent() const { return readFile(home / "data/recently-used.xbel"); }

    ScratchHome home;
    PosixFileService files;
    LazyDesktop desktop{files};
};

TEST_F(DesktopTest, NothingOfTheDesktopIsLoadedBeforeItsFirstUse) {
    EXPECT_EQ(readFile("/proc/self/maps").find("libgio"), std::string::npos);
    (void)execute("open", home / "none");
    EXPECT_NE(readFile("/proc/self/maps").find("libgio"), std::string::npos);
}

TEST_F(DesktopTest, AFileGoesToItsHandler) {
    writeFile(home / "A page & more.html", "<html></html>");
    const auto launch = execute("", home / "a PAGE & more.html");
    EXPECT_GT(launch.code, 32);
    const auto lines = ran();
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[1], home / "A page & more.html");
    EXPECT_NE(launch.process, 0u);
    EXPECT_TRUE(waitUntil([&] { return !desktop.shell().isRunning(launch.process); }));
}

TEST_F(DesktopTest, AnAddressGoesToItsSchemesHandler) {
    EXPECT_GT(execute("", "mailto:me@orvane.example?subject=Mail from Tonvale").code, 32);
    const auto lines = ran();
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[1], "mailto:me@orvane.example?subject=Mail%20from%20Tonvale");
    EXPECT_EQ(execute("", "nosuchscheme://orvane.example/").code, 31);
}

TEST_F(DesktopTest, AWebAddressNeedsABrowser) {
    // Whatever the machine itself has is out of sight.
    ASSERT_EQ(::setenv("XDG_DATA_DIRS", (home / "nothing").c_str(), 1), 0);
    EXPECT_EQ(execute("", "http://www.orvane.example/").code, 31);
    EXPECT_EQ(execute("", "https://www.orvane.example/").code, 31);
}

TEST_F(DesktopTest, AWebAddressGoesToTheBrowser) {
    handler("browser", "opener %u", "MimeType=x-scheme-handler/http;");
    writeFile(home / "config/mimeapps.list", "[Default Applications]\nx-scheme-handler/http=browser.desktop\n");
    EXPECT_GT(execute("", "http://www.orvane.example/").code, 32);
    EXPECT_EQ(ran().at(1), "http://www.orvane.example/");
}

TEST_F(DesktopTest, HelpPagesGoToTheBrowserWhereThereIsOne) {
    std::filesystem::create_directory(home / "Help");
    EXPECT_EQ(execute("", home / "Help/index.html").code, 2);
    EXPECT_EQ(execute("", home / "Hlp/index.html").code, 3);
    writeFile(home / "Help/index.html", "<html></html>");
    EXPECT_GT(execute("", home / "Help/index.html").code, 32);
    EXPECT_EQ(ran().at(1), home / "Help/index.html");
}

TEST_F(DesktopTest, RunningBatchConvertersAreKnown) {
    program("kzr", "while [ ! -e \"$HOME/end\" ]; do sleep 0.05; done\n");
    EXPECT_TRUE(desktop.batchConverters().empty());
    const auto launch = execute("Open", home / "bin/kzr");
    (void)execute("Open", home / "bin/opener");
    EXPECT_EQ(desktop.batchConverters(), std::vector<std::uint64_t>{launch.process});
    writeFile(home / "end", "");
    EXPECT_TRUE(waitUntil([this] { return desktop.batchConverters().empty(); }));
}

TEST_F(DesktopTest, WhatCannotBeOpenedHasItsCode) {
    EXPECT_EQ(execute("open", home / "none").code, 2);
    EXPECT_EQ(execute("open", home / "none/none").code, 3);
    EXPECT_EQ(execute("open", "").code, 2);
    EXPECT_EQ(execute("explore", home / "none").code, 2);
    writeFile(home / "x.unheardof", std::string("\0\1\2", 3));
    EXPECT_EQ(execute("open", home / "x.unheardof").code, 31);
    EXPECT_EQ(execute("print", home / "x.unheardof").code, 31);
    EXPECT_EQ(execute("open", "file://" + (home / "none")).code, 2);
}

TEST_F(DesktopTest, AFolderIsExplored) {
    EXPECT_GT(execute("explore", home / "data").code, 32);
    const auto lines = ran();
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[1], home / "data");
    writeFile(home / "file", "");
    EXPECT_EQ(execute("explore", home / "file").code, 3);
}

TEST_F(DesktopTest, AProgramRunsWithItsParametersAndIsWatched) {
    program("Kzr.exe", "while [ ! -e \"$HOME/end\" ]; do sleep 0.05; done\n");
    const auto launch = execute("Open", home / "bin/kzr.EXE", "a \"b  c\" $HOME;x ''", home / "data");
    ASSERT_GT(launch.code, 32);
    EXPECT_EQ(ran(), (std::vector<std::string>{home / "data", "a", "b  c", "$HOME;x", "''"}));
    EXPECT_TRUE(desktop.shell().isRunning(launch.process));
    writeFile(home / "end", "");
    EXPECT_TRUE(waitUntil([&] { return !desktop.shell().isRunning(launch.process); }));
    EXPECT_FALSE(desktop.shell().isRunning(0));
    EXPECT_FALSE(desktop.shell().isRunning(1));
}

TEST_F(DesktopTest, AProgramThatCannotStartHasItsCode) {
    writeFile(home / "bad", "#!/no/such/interpreter\n");
    std::filesystem::permissions(home / "bad", std::filesystem::perms(0755));
    EXPECT_EQ(execute("open", home / "bad").code, 2);
    program("good");
    EXPECT_LT(execute("open", home / "bin/good", "", home / "no/such").code, 33);
}

TEST_F(DesktopTest, ADocumentWithTheModeOfAProgramIsStillADocument) {
    writeFile(home / "index.html", "<html></html>");
    std::filesystem::permissions(home / "index.html", std::filesystem::perms(0777));
    EXPECT_GT(execute("open", home / "index.html").code, 32);
    EXPECT_EQ(ran().at(1), home / "index.html");
}

TEST_F(DesktopTest, WhatMayNotBeReadIsDenied) {
    writeFile(home / "secret.html", "x");
    std::filesystem::permissions(home / "secret.html", std::filesystem::perms(0));
    std::filesystem::permissions(home.path(), std::filesystem::perms(0755));
    EXPECT_EQ(asNobody([&] { return execute("open", home / "secret.html").code; }), 5);
}

TEST_F(DesktopTest, ARecentDocumentIsEnteredUnderItsRealName) {
    writeFile(home / "Song \xC3\x84.MP3", "");
    {
        LazyDesktop own(files);
        own.recentDocuments().add(home / "song \xC3\xA4.mp3");
    }
    EXPECT_NE(recent().find("Song%20%C3%84.MP3\""), std::string::npos) << recent();
    EXPECT_NE(recent().find("audio/mpeg"), std::string::npos);
    EXPECT_NE(recent().find("Orvane Tonvale"), std::string::npos);
    struct stat status {};
    ASSERT_EQ(::stat((home / "data/recently-used.xbel").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0600u);
}

TEST_F(DesktopTest, EntriesOfOthersStayUntilTheListIsCleared) {
    const std::string list = R"(<?xml version="1.0" encoding="UTF-8"?>
<xbel version="1.0" xmlns:bookmark="http://www.freedesktop.org/standards/desktop-bookmarks">
<bookmark href="file:///other" added="2026-01-01T00:00:00Z" modified="2026-01-01T00:00:00Z"
 visited="2026-01-01T00:00:00Z"><info><metadata owner="http://freedesktop.org"><bookmark:applications>
<bookmark:application name="other" exec="other" modified="2026-01-01T00:00:00Z" count="1"/>
</bookmark:applications></metadata></info></bookmark></xbel>)";
    writeFile(home / "data/recently-used.xbel", list);
    {
        LazyDesktop own(files);
        for (int i = 0; i < 5; ++i) own.recentDocuments().add(home / std::to_string(i) + ".wav");
    }
    EXPECT_NE(recent().find("file:///other"), std::string::npos);
    for (int i = 0; i < 5; ++i) EXPECT_NE(recent().find("/" + std::to_string(i) + ".wav\""), std::string::npos);
    {
        LazyDesktop own(files);
        own.recentDocuments().clear();
    }
    EXPECT_NE(recent().find("<xbel"), std::string::npos);
    EXPECT_EQ(recent().find("<bookmark "), std::string::npos);
}

TEST_F(DesktopTest, ADamagedListOfRecentDocumentsIsLeftAsItIs) {
    writeFile(home / "data/recently-used.xbel", "<xbel><bookmark");
    {
        LazyDesktop own(files);
        own.recentDocuments().add(home / "a.wav");
    }
    EXPECT_EQ(recent(), "<xbel><bookmark");
}

} // namespace
} // namespace tonvale
