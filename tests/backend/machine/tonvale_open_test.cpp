// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/base/Directories.h"
#include "platform/machine/instances/InstanceServer.h"
#include "tests/backend/machine/Support.h"

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

namespace tonvale {
namespace {

using namespace test;

class TonvaleOpenTest : public testing::Test {
protected:
    TonvaleOpenTest() {
        std::filesystem::create_directory(home / "bin");
        std::filesystem::copy_file(programDirectory() + "/tonvale-open", home / "bin/tonvale-open");
    }
    // A player that notes its arguments, and appears with the whole of them.
    void installPlayer(const std::string &directory) {
        std::filesystem::create_directories(directory);
        writeFile(directory + "/tonvale", "#!/bin/sh\n"
                                          "{ printf '%s\\n' \"$#\"; printf '%s' \"$1\"; } >\"$HOME/part\"\n"
                                          "mv \"$HOME/part\" \"$HOME/started\"\n");
        std::filesystem::permissions(directory + "/tonvale", std::filesystem::perms(0755));
    }
    [[nodiscard]] std::string started() const {
        return waitUntil([this] { return exists(home / "started"); }) ? readFile(home / "started") : "nothing";
    }
    // Runs the program in the scratch directory.
    [[nodiscard]] std::unique_ptr<Child> open(std::vector<std::string> arguments) const {
        return std::make_unique<Child>([this, arguments]() mutable {
            const std::string program = home / "bin/tonvale-open";
            std::vector<char *> pointers{const_cast<char *>(program.c_str())};
            for (std::string &argument : arguments) pointers.push_back(argument.data());
            pointers.push_back(nullptr);
            const bool quiet = std::freopen((home / "out").c_str(), "w", stdout) != nullptr &&
                               std::freopen((home / "err").c_str(), "w", stderr) != nullptr;
            if (!quiet || ::chdir(home.path().c_str()) != 0) return 97;
            ::execv(program.c_str(), pointers.data());
            return 98;
        });
    }

    ScratchHome home;
};

TEST_F(TonvaleOpenTest, StartsThePlayerBesideItWithTheAbsolutePath) {
    installPlayer(home / "bin");
    EXPECT_EQ(open({"-odd \xFF\" $(x).mp3"})->exitCode(), 0);
    EXPECT_EQ(started(), "1\n" + (home / "-odd \xFF\" $(x).mp3"));
}

TEST_F(TonvaleOpenTest, StartsThePlayerThatPathFindsElse) {
    installPlayer(home / "elsewhere");
    const std::string path = home / "elsewhere" + ":" + std::getenv("PATH");
    ASSERT_EQ(::setenv("PATH", path.c_str(), 1), 0);
    EXPECT_EQ(open({"/a/b.mp3"})->exitCode(), 0);
    EXPECT_EQ(started(), "1\n/a/b.mp3");
}

TEST_F(TonvaleOpenTest, HandsThePathToARunningPlayer) {
    installPlayer(home / "bin");
    TestLoop loop;
    std::string got;
    InstanceServer server(loop, {[] { return std::vector<WindowInfo>(); },
                                 [&](const std::string &command) { got = command; }, [](WindowHandle) {}});
    const auto opening = open({"b c.mp3"});
    EXPECT_TRUE(loop.runUntil([&] { return opening->hasEnded(); }));
    EXPECT_EQ(opening->exitCode(), 0);
    EXPECT_EQ(got, "\"" + (home / "b c.mp3") + "\"");
    EXPECT_FALSE(exists(home / "started"));
}

TEST_F(TonvaleOpenTest, StartsThePlayerWhenTheRunningOneIsClosing) {
    installPlayer(home / "bin");
    TestLoop loop;
    auto server = std::make_unique<InstanceServer>(
        loop, InstanceServer::Handlers{[] { return std::vector<WindowInfo>(); }, [](const std::string &) {},
                                       [](WindowHandle) {}});
    const auto opening = open({"/a.mp3"});
    ASSERT_TRUE(waitUntil([&] { return loop.hasWaiting(); }));
    server.reset();
    EXPECT_EQ(opening->exitCode(), 0);
    EXPECT_EQ(started(), "1\n/a.mp3");
}

TEST_F(TonvaleOpenTest, TakesExactlyOnePath) {
    for (const std::vector<std::string> &arguments :
         {std::vector<std::string>{}, {"a", "b"}, {""}, {"/" + std::string(8192, 'x')}}) {
        EXPECT_EQ(open(arguments)->exitCode(), 2);
        EXPECT_EQ(readFile(home / "err"), "Usage: tonvale-open PATH\n");
    }
    EXPECT_FALSE(exists(home / "started"));
}

TEST_F(TonvaleOpenTest, HelpIsAPathWhenThereIsSuchAFile) {
    installPlayer(home / "bin");
    EXPECT_EQ(open({"--help"})->exitCode(), 0);
    EXPECT_EQ(readFile(home / "out"), "Usage: tonvale-open PATH\n");
    EXPECT_FALSE(exists(home / "started"));
    writeFile(home / "--help", "");
    EXPECT_EQ(open({"--help"})->exitCode(), 0);
    EXPECT_EQ(started(), "1\n" + (home / "--help"));
}

TEST_F(TonvaleOpenTest, SaysWhatItCannotStart) {
    ASSERT_EQ(::setenv("PATH", home.path().c_str(), 1), 0);
    EXPECT_EQ(open({"/a.mp3"})->exitCode(), 1);
    EXPECT_NE(readFile(home / "err").find("cannot start tonvale"), std::string::npos);
}

} // namespace
} // namespace tonvale
