// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/CShellExecute.h"
#include "tests/unit/fakes/PlayerTest.h"

#include <gtest/gtest.h>

#include <functional>

namespace tonvale::test {
namespace {

using Call = FakeShell::Call;

class ShellExecute : public PlayerTest {
protected:
    ShellExecute() : shell(world.app()) {}

    struct Member {
        std::string name;
        std::function<std::int32_t()> run;
        Call call;
    };
    std::vector<Member> members() {
        return {
            {"Explore", [this] { return shell.Explore("/music", 1); }, {"explore", "/music", "", "", 1}},
            {"LaunchDocument",
             [this] { return shell.LaunchDocument("/a.txt", "/d", 3); },
             {"Open", "/a.txt", "", "/d", 3}},
            {"LaunchEmail",
             [this] { return shell.LaunchEmail("a@b.example", 5); },
             {"", "mailto:a@b.example", "", "", 5}},
            {"LaunchFolder", [this] { return shell.LaunchFolder("/music", 1); }, {"open", "/music", "", "", 1}},
            {"LaunchProgram",
             [this] { return shell.LaunchProgram("/kzr", "-x", "/d", 2); },
             {"Open", "/kzr", "-x", "/d", 2}},
            {"LaunchURL",
             [this] { return shell.LaunchURL("http://a.example/", 10); },
             {"", "http://a.example/", "", "", 10}},
            {"PrintDocument", [this] { return shell.PrintDocument("/a.txt"); }, {"print", "/a.txt", "", "", 0}},
        };
    }
    CShellExecute shell;
};

TEST_F(ShellExecute, EachMemberMakesItsCall) {
    for (const Member &member : members()) {
        world.shell.calls.clear();
        EXPECT_EQ(member.run(), -1) << member.name;
        EXPECT_EQ(world.shell.calls, std::vector<Call>{member.call}) << member.name;
    }
    EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(ShellExecute, ALaunchSucceedsFrom33On) {
    for (const auto &[code, result] :
         std::vector<std::pair<int, int>>{{2, 2}, {31, 31}, {32, 32}, {33, -1}, {42, -1}}) {
        world.shell.next = {code, 0};
        for (const Member &member : members()) EXPECT_EQ(member.run(), result) << member.name << " " << code;
    }
    EXPECT_TRUE(world.boxes.shown.empty()) << "launch errors never reach the user";
}

TEST_F(ShellExecute, AnUnexpectedErrorShowsTheMembersName) {
    world.shell.failure = ErrorNumber::OutOfMemory;
    for (const Member &member : members()) {
        member.run();
        expectBox("Error: 7. Out of memory", BoxIcon::None, BoxPlace::Normal, BoxButtons::Ok, member.name);
    }
}

TEST_F(ShellExecute, KnowsWhetherItsLastProgramRunsStill) {
    EXPECT_FALSE(shell.StillExecuting());
    world.shell.next = {42, 77};
    world.shell.running.insert(77);
    shell.LaunchProgram("/kzr", "", "", 1);
    EXPECT_TRUE(shell.StillExecuting());
    world.shell.running.clear();
    EXPECT_FALSE(shell.StillExecuting());
    world.shell.running.insert(77);
    shell.LaunchDocument("/a.txt", "", 1);
    EXPECT_TRUE(shell.StillExecuting());
}

TEST_F(ShellExecute, AnyLaunchForgetsTheProgramBefore) {
    world.shell.next = {42, 77};
    world.shell.running.insert(77);
    shell.LaunchProgram("/kzr", "", "", 1);
    shell.LaunchURL("http://a.example/", 1);
    EXPECT_FALSE(shell.StillExecuting());
    shell.LaunchProgram("/kzr", "", "", 1);
    world.shell.next = {2, 0};
    shell.LaunchProgram("/gone", "", "", 1);
    EXPECT_FALSE(shell.StillExecuting());
}

} // namespace
} // namespace tonvale::test
