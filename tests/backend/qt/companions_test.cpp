// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/WindowSearch.h"
#include "platform/qt/CompanionWindows.h"
#include "tests/backend/qt/Session.h"

namespace tonvale {
namespace {

using namespace test;

class NoInstances : public WindowSystem {
public:
    bool isAvailable() override { return true; }
    std::vector<WindowInfo> windows() override { return {{7, "ThunderFormWindow", "Orvane Tonvale"}}; }
    void sendClose(WindowHandle window) override { closed.push_back(window); }
    std::vector<WindowHandle> closed;
};

class Companions : public SessionTest<Display::X11> {
protected:
    std::vector<WindowInfo> found() {
        WindowSearch search(windows);
        search.FindWindowLike(kDesktopWindow, kFormClassPattern, "*WAV Batch Converter*", SearchFor::All);
        return search.found();
    }

    NoInstances instances;
    std::vector<CompanionWindows::Companion> running;
    CompanionWindows windows{instances, [this] { return running; }};
};

TEST_F(Companions, WindowsOfInstancesAreFoundAndClosedAsBefore) {
    ASSERT_EQ(windows.windows().size(), 1u);
    windows.sendClose(7);
    EXPECT_EQ(instances.closed, std::vector<WindowHandle>{7});
    EXPECT_TRUE(found().empty());
}

TEST_F(Companions, OneWithoutAWindowIsToldToEndWithAllThatItStarted) {
    Process converter({"sh", "-c", "sleep 1000 & wait"});
    running = {{static_cast<std::uint64_t>(converter.id()), "WAV Batch Converter"}};
    ASSERT_EQ(found().size(), 1u);
    EXPECT_TRUE(converter.isRunning());
    windows.sendClose(found().front().handle);
    EXPECT_TRUE(serveUntil([&] { return !converter.isRunning(); }));
    EXPECT_TRUE(instances.closed.empty());
}

TEST_F(Companions, AProcessThatLeadsNoGroupIsLeftAlone) {
    running = {{1, "WAV Batch Converter"}};
    windows.sendClose(found().front().handle); // asks nobody
    EXPECT_TRUE(instances.closed.empty());
}

} // namespace
} // namespace tonvale
