// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/qt/DesktopKeyboard.h"
#include "platform/qt/PortalKeys.h"
#include "tests/backend/qt/FakeService.h"
#include "tests/backend/qt/Session.h"

#include <QAction>
#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QTest>
#include <QWidget>

namespace tonvale {
namespace {

using namespace test;
using Codes = std::vector<std::int32_t>;

using OnOwnWindows = SessionTest<Display::None>;

class OnX11 : public SessionTest<Display::X11> {
protected:
    // Sends keys as if they were typed, and returns once the display has them.
    static void type(const std::vector<std::string> &keys) {
        std::vector<std::string> command{"xdotool"};
        command.insert(command.end(), keys.begin(), keys.end());
        const Process typing(command);
        ASSERT_TRUE(serveUntil([&] { return !typing.isRunning(); }));
    }
    // What has been told by the time the display has also told a last key.
    [[nodiscard]] Codes heard() {
        type({"key", "ctrl+F12"});
        EXPECT_TRUE(serveUntil([this] { return !codes.empty() && codes.back() == 123; }));
        Codes result(codes.begin(), codes.end() - (codes.empty() ? 0 : 1));
        codes.clear();
        return result;
    }
    // The hook starts from the loop.
    void startListening() {
        connection = keyboard.listen([this](std::int32_t code) { codes.push_back(code); });
        QCoreApplication::processEvents();
    }

    DesktopKeyboard keyboard;
    Codes codes;
    Connection connection;
};

TEST_F(OnX11, KeysWithControlAreToldByTheirCodes) {
    startListening();
    type({"key", "ctrl+space", "ctrl+p", "ctrl+shift+m", "ctrl+0", "ctrl+9", "ctrl+F1", "ctrl+KP_Add",
          "ctrl+KP_Subtract"});
    EXPECT_EQ(heard(), (Codes{32, 80, 77, 48, 57, 112, 107, 109}));
}

TEST_F(OnX11, TheKeypadCountsWhateverNumLockIs) {
    startListening();
    type({"key", "Num_Lock", "ctrl+KP_Add", "Num_Lock", "ctrl+KP_Add"});
    EXPECT_EQ(heard(), (Codes{107, 107}));
}

TEST_F(OnX11, KeysWithoutControlAreNotTold) {
    startListening();
    type({"key", "p", "alt+p", "shift+p", "KP_Add", "ctrl+plus", "ctrl+Left"});
    EXPECT_EQ(heard(), Codes{});
}

TEST_F(OnX11, AHeldKeyIsToldOnce) {
    startListening();
    type(
        {"keydown", "ctrl", "keydown", "m", "sleep", "1", "keyup", "m", "keydown", "m", "keyup", "m", "keyup", "ctrl"});
    EXPECT_EQ(heard(), (Codes{77, 77}));
}

TEST_F(OnX11, ControlMayBeHeldBeforeTheHookListens) {
    type({"keydown", "ctrl"});
    startListening();
    type({"key", "m"});
    type({"keyup", "ctrl"});
    EXPECT_EQ(heard(), (Codes{77}));
}

TEST_F(OnX11, OtherLayoutsCountByTheirLetters) {
    Process layout({"setxkbmap", "fr"});
    ASSERT_TRUE(serveUntil([&] { return !layout.isRunning(); }));
    startListening();
    constexpr const char *kControl = "37", *kPlaceOfQ = "24"; // where an A is written on a French keyboard
    type({"keydown", kControl, "key", kPlaceOfQ, "keyup", kControl});
    EXPECT_EQ(heard(), (Codes{'A'}));
    // A change comes while the hook listens.
    Process other({"setxkbmap", "us"});
    ASSERT_TRUE(serveUntil([&] { return !other.isRunning(); }));
    type({"keydown", kControl, "key", kPlaceOfQ, "keyup", kControl});
    EXPECT_EQ(heard(), (Codes{'Q'}));
}

TEST_F(OnX11, NothingListensAfterTheConnectionEnds) {
    startListening();
    connection.disconnect();
    QCoreApplication::processEvents();
    Codes other;
    const Connection again = keyboard.listen([&](std::int32_t code) { other.push_back(code); });
    QCoreApplication::processEvents();
    type({"key", "ctrl+m"});
    EXPECT_TRUE(serveUntil([&] { return other == Codes{77}; }));
    EXPECT_EQ(codes, Codes{});
}

TEST_F(OnX11, AListenerMayEndItsConnectionAndTheHookItself) {
    auto own = std::make_unique<DesktopKeyboard>();
    int calls = 0;
    Connection once = own->listen([&](std::int32_t) {
        ++calls;
        once.disconnect();
        own.reset();
    });
    QCoreApplication::processEvents();
    type({"key", "ctrl+m", "ctrl+m"});
    EXPECT_TRUE(serveUntil([&] { return calls == 1; }));
    QCoreApplication::processEvents();
    EXPECT_EQ(calls, 1);
}

TEST_F(OnOwnWindows, KeysAreToldWhileOneOfThemHasTheFocus) {
    DesktopKeyboard keyboard;
    Codes codes;
    const Connection connection = keyboard.listen([&](std::int32_t code) { codes.push_back(code); });
    QCoreApplication::processEvents();
    QWidget window;
    QAction shortcut;
    shortcut.setShortcut(QKeySequence(Qt::CTRL | Qt::Key_P));
    window.addAction(&shortcut);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(window.windowHandle(), Qt::Key_P, Qt::ControlModifier);
    QTest::keyClick(window.windowHandle(), Qt::Key_M);
    QTest::keyClick(window.windowHandle(), Qt::Key_Plus, Qt::ControlModifier | Qt::KeypadModifier);
    QTest::keyClick(window.windowHandle(), Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_TRUE(serveUntil([&] { return codes.size() >= 2; }));
    EXPECT_EQ(codes, (Codes{80, 107}));
}

// ---- the portal ----

constexpr const char *kPortal = "org.freedesktop.portal.Desktop", *kPortalPath = "/org/freedesktop/portal/desktop";
constexpr const char *kSessionPath = "/org/freedesktop/portal/desktop/session/tonvale";

class FakePortal {
public:
    explicit FakePortal(unsigned response) : response_(response) {}

    [[nodiscard]] int count(const char *method) const { return service_.count(method); }
    void activate(const QString &session, const QString &id) {
        QDBusMessage signal = QDBusMessage::createSignal(QLatin1String(kPortalPath),
                                                         QStringLiteral("org.freedesktop.portal.GlobalShortcuts"),
                                                         QStringLiteral("Activated"));
        signal << QVariant::fromValue(QDBusObjectPath(session)) << id << qulonglong(1) << QVariantMap();
        ASSERT_TRUE(service_.bus().send(signal));
    }
    std::map<QString, QString> triggers;

private:
    QDBusMessage answer(const QDBusMessage &call) {
        if (call.member() == QLatin1String("BindShortcuts")) readTriggers(call);
        if (call.member() == QLatin1String("Close")) return call.createReply();
        const QString token =
            qdbus_cast<QVariantMap>(call.arguments().constLast()).value(QStringLiteral("handle_token")).toString();
        const QString sender = call.service().mid(1).replace(u'.', u'_');
        const QString handle = QStringLiteral("%1/request/%2/%3").arg(QLatin1String(kPortalPath), sender, token);
        (void)service_.bus().send(call.createReply(QVariant::fromValue(QDBusObjectPath(handle))));
        QDBusMessage response = QDBusMessage::createSignal(handle, QStringLiteral("org.freedesktop.portal.Request"),
                                                           QStringLiteral("Response"));
        response << response_ << QVariantMap{{QStringLiteral("session_handle"), QString(QLatin1String(kSessionPath))}};
        (void)service_.bus().send(response);
        return {};
    }
    void readTriggers(const QDBusMessage &call) {
        const auto list = call.arguments().at(1).value<QDBusArgument>();
        list.beginArray();
        while (!list.atEnd()) {
            QString id;
            QVariantMap properties;
            list.beginStructure();
            list >> id >> properties;
            list.endStructure();
            triggers[id] = properties.value(QStringLiteral("preferred_trigger")).toString();
        }
        list.endArray();
    }

    unsigned response_;
    FakeService service_{kPortal, kPortalPath, [this](const QDBusMessage &call) { return answer(call); }};
};

TEST_F(OnOwnWindows, ThePortalTellsTheKeysThatItHasGranted) {
    FakePortal portal(0);
    Codes codes;
    bool granted = false;
    auto keys =
        std::make_unique<PortalKeys>([&](std::int32_t code) { codes.push_back(code); }, [&] { granted = true; });
    ASSERT_TRUE(serveUntil([&] { return granted; }));
    EXPECT_EQ(portal.triggers[QStringLiteral("pause")], QStringLiteral("CTRL+p"));
    EXPECT_EQ(portal.triggers[QStringLiteral("next")], QStringLiteral("CTRL+KP_Add"));
    EXPECT_EQ(portal.triggers.size(), 9u);
    portal.activate(QStringLiteral("/another/session"), QStringLiteral("help"));
    portal.activate(QLatin1String(kSessionPath), QStringLiteral("no such key"));
    portal.activate(QLatin1String(kSessionPath), QStringLiteral("mute"));
    EXPECT_TRUE(serveUntil([&] { return !codes.empty(); }));
    EXPECT_EQ(codes, (Codes{77}));
    keys.reset();
    EXPECT_TRUE(serveUntil([&] { return portal.count("Close") == 1; }));
}

TEST_F(OnOwnWindows, APortalThatRefusesGrantsNothing) {
    FakePortal portal(1);
    const PortalKeys keys([](std::int32_t) { FAIL(); }, [] { FAIL(); });
    ASSERT_TRUE(serveUntil([&] { return portal.count("CreateSession") == 1; }));
    serveBus();
    EXPECT_EQ(portal.count("BindShortcuts"), 0);
}

TEST_F(OnOwnWindows, WithoutAPortalNothingHappens) {
    const PortalKeys keys([](std::int32_t) { FAIL(); }, [] { FAIL(); });
    serveBus();
}

} // namespace
} // namespace tonvale
