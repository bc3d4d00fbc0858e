// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/qt/DesktopScreenSaver.h"

#include "platform/qt/ScreenInhibition.h"
#include "platform/qt/bus.h"
#include "platform/qt/xcb.h"

#include <array>

namespace tonvale {

namespace {

struct SaverCall {
    const char *service, *path, *method;
};

// In this order until one of them obeys. The common name is there on most desktops, but not all
// let it blank the screen; the desktops' own are asked only where they run. A lock blanks, too.
constexpr std::array<SaverCall, 7> kCalls{{
    {"org.freedesktop.ScreenSaver", "/org/freedesktop/ScreenSaver", "SetActive"},
    {"org.gnome.ScreenSaver", "/org/gnome/ScreenSaver", "SetActive"},
    {"org.cinnamon.ScreenSaver", "/org/cinnamon/ScreenSaver", "SetActive"},
    {"org.mate.ScreenSaver", "/org/mate/ScreenSaver", "SetActive"},
    {"org.xfce.ScreenSaver", "/org/xfce/ScreenSaver", "SetActive"},
    {"org.freedesktop.ScreenSaver", "/org/freedesktop/ScreenSaver", "Lock"},
    {"org.gnome.ScreenSaver", "/org/gnome/ScreenSaver", "Lock"},
}};

QDBusMessage questionFor(const SaverCall &call) {
    QDBusMessage message = QDBusMessage::createMethodCall(QLatin1String(call.service), QLatin1String(call.path),
                                                          QLatin1String(call.service), QLatin1String(call.method));
    if (QLatin1String(call.method) == QLatin1String("SetActive")) message << true;
    message.setAutoStartService(false);
    return message;
}

// Some answer with nothing, some with whether they did it.
bool obeyed(const QDBusMessage &reply) {
    return answers(reply, "") || (answers(reply, "b") && reply.arguments().constFirst().toBool());
}

void blankByDisplay() {
    if (!isOnX11()) return;
    const XcbConnection connection = connectToX();
    if (!connection) return;
    if (!succeeds(connection.get(), xcb_force_screen_saver_checked(connection.get(), XCB_SCREEN_SAVER_ACTIVE)))
        qWarning("tonvale: the display does not blank");
}

} // namespace

void DesktopScreenSaver::activate() { tryService(0); }

void DesktopScreenSaver::tryService(std::size_t index) {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (index == kCalls.size() || !bus.isConnected()) return blankByDisplay();
    askBus(bus, questionFor(kCalls.at(index)), context_, [this, index](const QDBusMessage &reply) {
        if (!obeyed(reply)) tryService(index + 1);
    });
}

std::unique_ptr<ScreenSaver::Hold> DesktopScreenSaver::holdOff() { return holdOffScreenSaver(); }

} // namespace tonvale
