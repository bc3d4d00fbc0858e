// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/qt/DesktopScreenSaver.h"
#include "platform/qt/xcb.h"
#include "tests/backend/qt/FakeService.h"
#include "tests/backend/qt/Session.h"

#include <QDBusObjectPath>

#include <xcb/screensaver.h>

namespace tonvale {
namespace {

using namespace test;

constexpr const char *kSaver = "org.freedesktop.ScreenSaver", *kSaverPath = "/org/freedesktop/ScreenSaver";
constexpr const char *kPortal = "org.freedesktop.portal.Desktop", *kPortalPath = "/org/freedesktop/portal/desktop";

FakeService::Answer answerWith(const QVariantList &arguments) {
    return [arguments](const QDBusMessage &call) { return call.createReply(arguments); };
}

using OnBus = SessionTest<Display::None>;
using OnX11 = SessionTest<Display::X11>;

TEST_F(OnBus, TheDesktopsScreenSaverIsActivated) {
    FakeService service(kSaver, kSaverPath, answerWith({true}));
    DesktopScreenSaver saver;
    saver.activate();
    ASSERT_TRUE(serveUntil([&] { return service.count("SetActive") == 1; }));
    EXPECT_EQ(service.last("SetActive"), QVariantList{true});
    serveBus();
    EXPECT_EQ(service.count("Lock"), 0);
}

TEST_F(OnBus, OneThatRefusesIsLocked) {
    FakeService service(kSaver, kSaverPath, answerWith({false}));
    FakeService gnome("org.gnome.ScreenSaver", "/org/gnome/ScreenSaver", {});
    DesktopScreenSaver saver;
    saver.activate();
    EXPECT_TRUE(serveUntil([&] { return service.count("Lock") == 1; }));
    EXPECT_EQ(gnome.count("SetActive"), 1);
}

TEST_F(OnBus, AHoldIsAnInhibitionUntilItGoes) {
    FakeService service(kSaver, kSaverPath, answerWith({77u}));
    DesktopScreenSaver saver;
    auto hold = saver.holdOff();
    ASSERT_TRUE(serveUntil([&] { return service.count("Inhibit") == 1; }));
    serveBus();
    EXPECT_EQ(service.count("UnInhibit"), 0);
    hold.reset();
    ASSERT_TRUE(serveUntil([&] { return service.count("UnInhibit") == 1; }));
    EXPECT_EQ(service.last("UnInhibit"), QVariantList{77u});
}

TEST_F(OnBus, AHoldThatGoesBeforeItsAnswerIsTakenBackAfterIt) {
    QDBusMessage question;
    FakeService service(kSaver, kSaverPath, [&](const QDBusMessage &call) {
        if (call.member() == QLatin1String("Inhibit")) question = call;
        return QDBusMessage();
    });
    DesktopScreenSaver saver;
    saver.holdOff().reset();
    ASSERT_TRUE(serveUntil([&] { return service.count("Inhibit") == 1; }));
    EXPECT_EQ(service.count("UnInhibit"), 0);
    ASSERT_TRUE(service.bus().send(question.createReply(5u)));
    ASSERT_TRUE(serveUntil([&] { return service.count("UnInhibit") == 1; }));
    EXPECT_EQ(service.last("UnInhibit"), QVariantList{5u});
}

TEST_F(OnBus, WhereThereIsNoServiceThePortalHoldsOff) {
    const QDBusObjectPath handle(QStringLiteral("/org/freedesktop/portal/desktop/request/1"));
    FakeService portal(kPortal, kPortalPath, answerWith({QVariant::fromValue(handle)}));
    DesktopScreenSaver saver;
    auto hold = saver.holdOff();
    ASSERT_TRUE(serveUntil([&] { return portal.count("Inhibit") == 1; }));
    EXPECT_EQ(portal.last("Inhibit").at(1), 8u);
    serveBus();
    hold.reset();
    ASSERT_TRUE(serveUntil([&] { return portal.count("Close") == 1; }));
    EXPECT_EQ(portal.lastPath("Close"), handle.path());
}

TEST_F(OnBus, AnAnswerOfTheWrongKindIsNone) {
    FakeService service(kSaver, kSaverPath, answerWith({QStringLiteral("seventy-seven")}));
    FakeService portal(kPortal, kPortalPath, {});
    DesktopScreenSaver saver;
    auto hold = saver.holdOff();
    ASSERT_TRUE(serveUntil([&] { return portal.count("Inhibit") == 1; }));
    hold.reset();
    serveBus();
    EXPECT_EQ(service.count("UnInhibit"), 0);
}

TEST_F(OnBus, TheBusMayEndAtAnyTime) {
    auto service = std::make_unique<FakeService>(kSaver, kSaverPath, answerWith({77u}));
    DesktopScreenSaver saver;
    auto hold = saver.holdOff();
    ASSERT_TRUE(serveUntil([&] { return service->count("Inhibit") == 1; }));
    serveBus();
    session.endBus();
    ASSERT_TRUE(serveUntil([] { return !QDBusConnection::sessionBus().isConnected(); }));
    hold.reset();
    saver.holdOff().reset();
    saver.activate();
    QCoreApplication::processEvents();
}

std::uint8_t saverState(xcb_connection_t *x) {
    const auto info = fetchReply(xcb_screensaver_query_info_reply, x, xcb_screensaver_query_info(x, rootWindow(x)));
    return info ? info->state : 255;
}

TEST_F(OnX11, WhereThereIsNoServiceTheDisplayBlanks) {
    const XcbConnection x = connectToX();
    ASSERT_EQ(saverState(x.get()), XCB_SCREENSAVER_STATE_OFF);
    DesktopScreenSaver saver;
    saver.activate();
    EXPECT_TRUE(serveUntil([&] { return saverState(x.get()) == XCB_SCREENSAVER_STATE_ON; }));
}

TEST_F(OnX11, WhereThereIsNoServiceTheDisplayHoldsOff) {
    const XcbConnection x = connectToX();
    constexpr int kShortest = 1; // seconds until it blanks by itself
    ASSERT_TRUE(succeeds(x.get(), xcb_set_screen_saver_checked(x.get(), kShortest, kShortest, 1, 1)));
    DesktopScreenSaver saver;
    auto hold = saver.holdOff();
    // The suspension is there once the display neither blanks nor counts any more.
    EXPECT_FALSE(serveUntil([&] { return saverState(x.get()) == XCB_SCREENSAVER_STATE_ON; }, 3 * kShortest));
    hold.reset();
    EXPECT_TRUE(serveUntil([&] { return saverState(x.get()) == XCB_SCREENSAVER_STATE_ON; }));
}

} // namespace
} // namespace tonvale
