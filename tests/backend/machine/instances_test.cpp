// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/WindowSearch.h"
#include "platform/machine/instances/InstanceClient.h"
#include "platform/machine/instances/InstanceServer.h"
#include "platform/machine/registry/SqliteRegistry.h"
#include "tests/backend/machine/Support.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

namespace tonvale {
namespace {

using namespace test;
using instances::Kind;

// A process like the player: a main window that ends the process when it closes.
class Player {
public:
    std::string title = "Orvane Tonvale";
    std::function<void()> unload = [] {};
    std::function<void(const std::string &)> execute = [](const std::string &) {};

    int run(const Pipe &started) {
        InstanceServer server(loop, handlers());
        started.send();
        return loop.runUntil([this] { return !open; }) ? 0 : 1;
    }
    InstanceServer::Handlers handlers() {
        return {[this] { return windows(); }, [this](const std::string &command) { execute(command); },
                [this](WindowHandle window) { close(window); }};
    }
    std::vector<WindowInfo> windows() const {
        if (!open) return {};
        return {{1, kFormClass, title}, {2, kFormClass, "Playlist"}};
    }
    void close(WindowHandle window) {
        if (window != 1) return;
        unload();
        open = false;
    }

    TestLoop loop;
    bool open = true;
};

class InstancesTest : public testing::Test {
protected:
    static void waitFor(const Pipe &started) { ASSERT_EQ(started.receive(), '!'); }
    static std::vector<std::string> titles(InstanceClient &client) {
        std::vector<std::string> result;
        for (const WindowInfo &window : client.windows()) result.push_back(window.title);
        return result;
    }
    std::string socketPath() {
        for (const auto &entry : std::filesystem::directory_iterator(directory)) return entry.path();
        return {};
    }
    UniqueFd connectTo(const std::string &path) {
        UniqueFd socket(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0));
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        path.copy(address.sun_path, sizeof address.sun_path - 1);
        if (::connect(socket.get(), reinterpret_cast<sockaddr *>(&address), sizeof address) != 0) socket.reset();
        return socket;
    }
    static bool isDropped(int socket) {
        pollfd state{socket, POLLIN, 0};
        char byte = 0;
        return ::poll(&state, 1, 15000) == 1 && ::recv(socket, &byte, 1, MSG_DONTWAIT) <= 0;
    }
    bool isDroppedAfter(const std::string &packet) {
        const UniqueFd socket = connectTo(socketPath());
        if (!socket) return false;
        // Fails where the server was quicker to hang up.
        const bool sent = ::send(socket.get(), packet.data(), packet.size(), MSG_NOSIGNAL) >= 0;
        return (sent || errno == EPIPE) && isDropped(socket.get());
    }

    ScratchHome home;
    std::string directory = home / "run/orvane-tonvale";
};

TEST_F(InstancesTest, AloneThereIsNoWindow) {
    InstanceClient client;
    EXPECT_TRUE(client.isAvailable());
    EXPECT_TRUE(client.windows().empty());
    client.sendClose(0x1234500000001);
    EXPECT_FALSE(client.execute("/a.mp3"));
}

TEST_F(InstancesTest, ListsTheWindowsOfAllOtherInstances) {
    const Pipe started;
    Child a([&] { return Player().run(started); });
    waitFor(started);
    Child b([&] {
        Player player;
        player.title = std::string("T\xFF ") + std::string(3000, 't');
        return player.run(started);
    });
    waitFor(started);
    InstanceClient client;
    const auto windows = client.windows();
    ASSERT_EQ(windows.size(), 4u);
    EXPECT_EQ(windows[0].title, "Orvane Tonvale");
    EXPECT_EQ(windows[0].className, "ThunderFormWindow");
    EXPECT_EQ(windows[1].title, "Playlist");
    EXPECT_TRUE(windows[2].title.starts_with("T\xFF ttt"));
    EXPECT_NE(windows[0].handle, windows[2].handle);
}

TEST_F(InstancesTest, TheOwnWindowsAreNotListed) {
    Player player;
    InstanceServer server(player.loop, player.handlers());
    InstanceClient client(&server);
    EXPECT_TRUE(client.windows().empty());
}

TEST_F(InstancesTest, TheDirectoryAndItsSocketAreOfThisUserAlone) {
    Player player;
    std::filesystem::create_directory(directory);
    std::filesystem::permissions(directory, std::filesystem::perms(0777));
    {
        InstanceServer server(player.loop, player.handlers());
        struct stat status {};
        ASSERT_EQ(::stat(directory.c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777, 0700u);
        EXPECT_NE(socketPath(), "");
    }
    EXPECT_EQ(socketPath(), "");
}

TEST_F(InstancesTest, WithoutARuntimeDirectoryOfOursThePrivateCacheIsUsed) {
    ASSERT_EQ(::unsetenv("XDG_RUNTIME_DIR"), 0);
    Player player;
    InstanceServer server(player.loop, player.handlers());
    const bool systemHasOne = exists("/run/user/" + std::to_string(::geteuid()));
    EXPECT_EQ(exists(home / "cache/orvane-tonvale/run"), !systemHasOne);
}

TEST_F(InstancesTest, ALongRuntimePathIsNoObstacle) {
    const std::string deep = home / std::string(150, 'r');
    std::filesystem::create_directory(deep);
    ASSERT_EQ(::setenv("XDG_RUNTIME_DIR", deep.c_str(), 1), 0);
    const Pipe started;
    Child other([&] { return Player().run(started); });
    waitFor(started);
    InstanceClient client;
    EXPECT_EQ(client.windows().size(), 2u);
}

TEST_F(InstancesTest, ExecuteDeliversThePathInQuotesToTheNewest) {
    const Pipe started, got;
    Child older([&] { return Player().run(started); });
    waitFor(started);
    Child newer([&] {
        Player player;
        player.execute = [&](const std::string &command) {
            for (const char c : command) got.send(c);
            player.open = false;
        };
        return player.run(started);
    });
    waitFor(started);
    const std::string path = "/music/\xFF \"odd\"\n.mp3";
    EXPECT_TRUE(InstanceClient().execute(path));
    std::string command;
    for (std::size_t i = 0; i < path.size() + 2; ++i) command += got.receive();
    EXPECT_EQ(command, "\"" + path + "\"");
    EXPECT_EQ(newer.exitCode(), 0);
    EXPECT_FALSE(older.hasEnded());
}

TEST_F(InstancesTest, TheLongestPathIsTakenAndALongerOneIsNot) {
    Player player;
    std::string got;
    player.execute = [&](const std::string &command) { got = command; };
    InstanceServer server(player.loop, player.handlers());
    const auto offer = [&](std::size_t length) {
        Child client([length] { return InstanceClient().execute(std::string(length, 'p')) ? 0 : 7; });
        EXPECT_TRUE(player.loop.runUntil([&] { return client.hasEnded(); }));
        return client.exitCode();
    };
    EXPECT_EQ(offer(8192), 0);
    EXPECT_EQ(got.size(), 8194u);
    EXPECT_EQ(offer(8193), 7);
    EXPECT_EQ(got.size(), 8194u);
}

TEST_F(InstancesTest, CloseWaitsForTheEndOfTheProcessAndItsLastWrites) {
    const Pipe started;
    const std::string store = home / "registry.db";
    Child old([&] {
        Player player;
        player.unload = [&] {
            SqliteRegistry registry(store, [](const std::string &) {});
            for (int i = 0; i < 20; ++i)
                registry.set(RootKey::CurrentUser, "k", std::to_string(i), {ValueType::String, "x"});
        };
        return player.run(started);
    });
    waitFor(started);
    InstanceClient client;
    const auto windows = client.windows();
    ASSERT_EQ(windows.size(), 2u);
    client.sendClose(windows[0].handle);
    EXPECT_TRUE(SqliteRegistry(store, [](const std::string &) {}).query(RootKey::CurrentUser, "k", "19"));
    // A killed wait would leave it running; the parent alone may still have to collect it.
    EXPECT_TRUE(waitUntil([&] { return old.hasEnded(); }, 1));
    EXPECT_EQ(old.exitCode(), 0);
    EXPECT_TRUE(client.windows().empty());
    client.sendClose(windows[1].handle);
}

TEST_F(InstancesTest, ClosingAnotherWindowLeavesTheProcess) {
    const Pipe started;
    Child other([&] { return Player().run(started); });
    waitFor(started);
    InstanceClient client;
    client.sendClose(client.windows()[1].handle);
    EXPECT_EQ(client.windows().size(), 2u);
    EXPECT_FALSE(other.hasEnded());
}

TEST_F(InstancesTest, TheSocketOfAKilledInstanceIsRemoved) {
    const Pipe started;
    Child other([&] { return Player().run(started); });
    waitFor(started);
    const std::string stale = socketPath();
    other.kill();
    ASSERT_TRUE(exists(stale));
    InstanceClient client;
    EXPECT_TRUE(client.windows().empty());
    EXPECT_FALSE(exists(stale));
    EXPECT_FALSE(client.execute("/a"));
}

TEST_F(InstancesTest, AnInstanceThatIsKilledWhileWeWaitIsGone) {
    const Pipe started, closing;
    Child other([&] {
        Player player;
        player.unload = [&] {
            closing.send();
            ::pause();
        };
        return player.run(started);
    });
    waitFor(started);
    const auto handle = InstanceClient().windows().at(0).handle;
    Child newcomer([&] {
        InstanceClient().sendClose(handle);
        return 0;
    });
    waitFor(closing);
    EXPECT_FALSE(newcomer.hasEnded());
    other.kill();
    EXPECT_EQ(newcomer.exitCode(), 0);
}

TEST_F(InstancesTest, AnInstanceThatDoesNotAnswerIsWaitedForNoLongerThanTheBound) {
    Player hung; // its loop is never turned
    InstanceServer server(hung.loop, hung.handlers());
    InstanceClient client(nullptr, std::chrono::milliseconds(300));
    EXPECT_TRUE(client.windows().empty());
    EXPECT_FALSE(client.execute("/given-up.mp3"));
    std::string late;
    hung.execute = [&](const std::string &command) { late = command; };
    hung.loop.doEvents();
    EXPECT_EQ(late, "") << "whoever gave up has opened the path elsewhere";
}

TEST_F(InstancesTest, AnInstanceThatIsBeingClosedCanListTheWindowsOfTheNewcomer) {
    const Pipe started;
    Child old([&] {
        Player player;
        InstanceServer server(player.loop, player.handlers());
        player.unload = [&] { (void)InstanceClient(&server).windows(); };
        started.send();
        return player.loop.runUntil([&] { return !player.open; }) ? 0 : 1;
    });
    waitFor(started);
    Player newcomer;
    InstanceServer server(newcomer.loop, newcomer.handlers());
    InstanceClient client(&server, std::chrono::seconds(10));
    const auto begin = std::chrono::steady_clock::now();
    client.sendClose(client.windows().at(0).handle);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
    EXPECT_EQ(old.exitCode(), 0);
}

TEST_F(InstancesTest, TwoThatCloseEachOtherDoNotWaitForEver) {
    const Pipe ready, go;
    const auto newcomer = [&] {
        Player player;
        InstanceServer server(player.loop, player.handlers());
        ready.send();
        if (go.receive() != '!') return 1;
        InstanceClient client(&server);
        for (const WindowInfo &window : client.windows()) client.sendClose(window.handle);
        (void)player.loop.runUntil([&] { return !player.open; }, 3s);
        return 0;
    };
    Child a(newcomer), b(newcomer);
    waitFor(ready);
    waitFor(ready);
    go.send();
    go.send();
    EXPECT_TRUE(waitUntil([&] { return a.hasEnded() && b.hasEnded(); }, 12));
}

TEST_F(InstancesTest, GarbageIsDropped) {
    Player player;
    std::string executed;
    player.execute = [&](const std::string &command) { executed += command; };
    InstanceServer server(player.loop, player.handlers());
    for (const std::string &packet :
         {std::string("?"), std::string("X"), std::string("Xa\0b", 4), "X" + std::string(8195, 'p'), std::string("Lx"),
          std::string("C"), std::string("C-1"), std::string("C1x"), std::string("C99999999999999999999999"),
          "X" + std::string(100000, 'p'), std::string("\xFF\xFE"), std::string(1, '\0')})
        EXPECT_TRUE(isDroppedAfter(packet)) << packet.substr(0, 20);
    player.loop.doEvents();
    EXPECT_EQ(executed, "");
}

TEST_F(InstancesTest, WhoSaysNothingIsDropped) {
    Player player;
    InstanceServer server(player.loop, player.handlers());
    const UniqueFd silent = connectTo(socketPath());
    ASSERT_TRUE(silent);
    EXPECT_TRUE(isDropped(silent.get()));
}

TEST_F(InstancesTest, TwoHundredClientsAreServedThoughSomeAreSilent) {
    Player player;
    InstanceServer server(player.loop, player.handlers());
    std::vector<UniqueFd> silent;
    for (int i = 0; i < 20; ++i) silent.push_back(connectTo(socketPath()));
    Child crowd([&] {
        InstanceClient client;
        for (int i = 0; i < 200; ++i)
            if (client.windows().size() != 2) return 1;
        return 0;
    });
    EXPECT_TRUE(player.loop.runUntil([&] { return crowd.hasEnded(); }, 60s));
    EXPECT_EQ(crowd.exitCode(), 0);
}

TEST_F(InstancesTest, TwoHundredClientsAtOnceAreServed) {
    Player player;
    InstanceServer server(player.loop, player.handlers());
    int executed = 0;
    player.execute = [&](const std::string &) { ++executed; };
    const Pipe delivered;
    Child crowd([&] {
        std::vector<std::unique_ptr<Child>> clients;
        for (int i = 0; i < 200; ++i)
            clients.push_back(std::make_unique<Child>([] { return InstanceClient().execute("/a") ? 0 : 1; }));
        int failed = 0;
        for (auto &client : clients) failed += client->exitCode();
        return failed == 0 ? 0 : 1;
    });
    EXPECT_TRUE(player.loop.runUntil([&] { return crowd.hasEnded(); }, 60s));
    EXPECT_EQ(crowd.exitCode(), 0);
    EXPECT_EQ(executed, 200);
}

TEST_F(InstancesTest, AnotherUserIsDropped) {
    if (::geteuid() != 0) GTEST_SKIP() << "needs to become another user";
    Player player;
    InstanceServer server(player.loop, player.handlers());
    const std::string path = socketPath();
    Child stranger([&] {
        if (::setuid(65534) != 0) return 1;
        return connectTo(path) ? 2 : 0;
    });
    EXPECT_EQ(stranger.exitCode(), 0);
    // Even one that the directory would let in.
    for (const std::string &open : {home.path(), home / "run", directory})
        std::filesystem::permissions(open, std::filesystem::perms(0755));
    std::filesystem::permissions(path, std::filesystem::perms(0777));
    Child insider([&] {
        if (::setuid(65534) != 0) return 1;
        return isDroppedAfter("X/a") ? 0 : 2;
    });
    EXPECT_EQ(insider.exitCode(), 0);
    EXPECT_FALSE(player.loop.hasWaiting());
}

TEST_F(InstancesTest, StopsAtOnceWithClientsConnectedAndRequestsWaiting) {
    Player player;
    auto server = std::make_unique<InstanceServer>(player.loop, player.handlers());
    std::string executed;
    player.execute = [&](const std::string &command) { executed = command; };
    const UniqueFd silent = connectTo(socketPath());
    const UniqueFd asking = connectTo(socketPath());
    ASSERT_EQ(::send(asking.get(), "X/a", 3, 0), 3);
    ASSERT_TRUE(waitUntil([&] { return player.loop.hasWaiting(); }));
    const auto begin = std::chrono::steady_clock::now();
    server.reset();
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(1)) << "a silent client is given 2";
    EXPECT_TRUE(isDropped(asking.get()));
    player.loop.doEvents();
    EXPECT_EQ(executed, "");
}

} // namespace
} // namespace tonvale
