// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/Property.h"
#include "controls/Signal.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace tonvale::test {
namespace {

TEST(Signal, CallsItsListenersInTheOrderOfSubscription) {
    Signal<int> signal;
    std::string seen;
    const Connection first = signal.connect([&](int n) { seen += "a" + std::to_string(n); });
    const Connection second = signal.connect([&](int n) { seen += "b" + std::to_string(n); });
    signal(1);
    signal(2);
    EXPECT_EQ(seen, "a1b1a2b2");
}

TEST(Signal, ForgetsAListenerWhoseConnectionHasGone) {
    Signal<> signal;
    int calls = 0;
    {
        const Connection connection = signal.connect([&] { ++calls; });
        signal();
    }
    signal();
    EXPECT_EQ(calls, 1);
}

TEST(Signal, AConnectionMayOutliveIt) {
    Connection connection;
    {
        Signal<> signal;
        connection = signal.connect([] {});
    }
    connection.disconnect();
    connection.disconnect();
}

TEST(Signal, AListenerMayUnsubscribeItselfAndOthersWhileItIsCalled) {
    Signal<> signal;
    std::string seen;
    Connection first, second, third;
    first = signal.connect([&] {
        seen += "1";
        first.disconnect();
        second.disconnect();
    });
    second = signal.connect([&] { seen += "2"; });
    third = signal.connect([&] { seen += "3"; });
    signal();
    signal();
    EXPECT_EQ(seen, "133");
}

TEST(Signal, AListenerThatJoinsMeanwhileIsCalledFromTheNextTimeOn) {
    Signal<> signal;
    std::vector<Connection> connections;
    int late = 0;
    connections.push_back(signal.connect([&] {
        if (connections.size() == 1) connections.push_back(signal.connect([&] { ++late; }));
    }));
    signal();
    EXPECT_EQ(late, 0);
    signal();
    EXPECT_EQ(late, 1);
}

TEST(Signal, AListenerMayDestroyIt) {
    auto signal = std::make_unique<Signal<>>();
    bool second = false;
    const Connection a = signal->connect([&] { signal.reset(); });
    const Connection b = signal->connect([&] { second = true; });
    (*signal)();
    EXPECT_EQ(signal, nullptr);
    EXPECT_TRUE(second);
}

TEST(Signal, GoesOnWorkingAfterAListenerHasThrown) {
    Signal<> signal;
    int calls = 0;
    bool fail = true;
    const Connection connection = signal.connect([&] {
        ++calls;
        if (fail) throw std::runtime_error("no");
    });
    EXPECT_THROW(signal(), std::runtime_error);
    fail = false;
    signal();
    EXPECT_EQ(calls, 2);
}

TEST(Event, WithoutAHandlerDoesNothing) {
    const Event<int> event;
    event(1);
    EXPECT_FALSE(event);
}

TEST(Event, ItsHandlerMayReplaceItself) {
    Event<> event;
    std::string seen;
    event = [&] {
        seen += "1";
        event = [&] { seen += "2"; };
    };
    event();
    event();
    EXPECT_EQ(seen, "12");
}

TEST(Property, TellsOfRealChangesOnly) {
    Property<std::string> property{"a"};
    int changes = 0;
    const Connection connection = property.onChange([&] { ++changes; });
    property = "a";
    EXPECT_EQ(changes, 0);
    property = "b";
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(property, "b");
    EXPECT_FALSE(property.set("b"));
    EXPECT_TRUE(property.set("c"));
    EXPECT_EQ(changes, 2);
}

TEST(Property, ItsListenersSeeTheNewValue) {
    Property<int> property{1};
    int seen = 0;
    const Connection connection = property.onChange([&] { seen = property; });
    property = 5;
    EXPECT_EQ(seen, 5);
}

TEST(Property, TakesAnotherOnesValueButNotItsListeners) {
    Property<int> a{1}, b{2};
    int changesOfB = 0;
    const Connection connection = b.onChange([&] { ++changesOfB; });
    a = b;
    EXPECT_EQ(a, 2);
    a = 3;
    EXPECT_EQ(b, 2);
    EXPECT_EQ(changesOfB, 0);
}

} // namespace
} // namespace tonvale::test
