// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/qt/PortalKeys.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusObjectPath>

#include <array>
#include <utility>

namespace tonvale {

// What the portal shows and keeps of a key.
struct PortalShortcut {
    QString id;
    QVariantMap properties;
};

QDBusArgument &operator<<(QDBusArgument &argument, const PortalShortcut &shortcut) {
    argument.beginStructure();
    argument << shortcut.id << shortcut.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, PortalShortcut &shortcut) {
    argument.beginStructure();
    argument >> shortcut.id >> shortcut.properties;
    argument.endStructure();
    return argument;
}

namespace {

constexpr auto kService = QLatin1String("org.freedesktop.portal.Desktop");
constexpr auto kPath = QLatin1String("/org/freedesktop/portal/desktop");
constexpr auto kShortcuts = QLatin1String("org.freedesktop.portal.GlobalShortcuts");
constexpr auto kRequest = QLatin1String("org.freedesktop.portal.Request");
constexpr auto kSession = QLatin1String("org.freedesktop.portal.Session");
constexpr unsigned kGranted = 0;

struct PortalKey {
    std::int32_t code;
    const char *id, *trigger, *description;
};
// A portal wants to be told each key beforehand: these are the ones that any window answers to.
constexpr std::array<PortalKey, 9> kKeys{{
    {32, "play-stop", "CTRL+space", "Play or stop"},
    {80, "pause", "CTRL+p", "Pause"},
    {77, "mute", "CTRL+m", "Mute"},
    {76, "load", "CTRL+l", "Load and play a file"},
    {107, "next", "CTRL+KP_Add", "Next in the playlist"},
    {109, "previous", "CTRL+KP_Subtract", "Previous in the playlist"},
    {72, "hot-keys", "CTRL+h", "Hot key information"},
    {88, "exit-list", "CTRL+x", "Close the playlist"},
    {112, "help", "CTRL+F1", "Help"},
}};

QList<PortalShortcut> shortcuts() {
    QList<PortalShortcut> list;
    for (const PortalKey &key : kKeys)
        list.append({QLatin1String(key.id),
                     {{QStringLiteral("description"), QString(QLatin1String(key.description))},
                      {QStringLiteral("preferred_trigger"), QString(QLatin1String(key.trigger))}}});
    return list;
}

QDBusMessage call(const QString &path, QLatin1String interface, const char *method) {
    return QDBusMessage::createMethodCall(kService, path, interface, QLatin1String(method));
}

} // namespace

PortalKeys::PortalKeys(Tell tell, std::function<void()> onGranted)
    : tell_(std::move(tell)), onGranted_(std::move(onGranted)) {
    qDBusRegisterMetaType<PortalShortcut>();
    qDBusRegisterMetaType<QList<PortalShortcut>>();
    if (bus_.isConnected()) createSession();
}

PortalKeys::~PortalKeys() {
    if (!session_.isEmpty()) (void)bus_.send(call(session_, kSession, "Close"));
}

// A request's answer comes as a signal of an object whose name both sides know beforehand.
void PortalKeys::request(QDBusMessage question, QVariantMap options, Granted onGranted) {
    const QString token = QStringLiteral("tonvale%1").arg(++requests_);
    const QString sender = bus_.baseService().mid(1).replace(u'.', u'_');
    const QString handle = QStringLiteral("%1/request/%2/%3").arg(kPath, sender, token);
    response_ =
        std::make_unique<BusSignal>(bus_, BusSignal::Source{kService, handle, kRequest, QStringLiteral("Response")},
                                    [onGranted = std::move(onGranted)](const QDBusMessage &response) {
                                        if (response.signature() != QLatin1String("ua{sv}")) return;
                                        if (response.arguments().constFirst().toUInt() != kGranted) return;
                                        onGranted(qdbus_cast<QVariantMap>(response.arguments().constLast()));
                                    });
    options.insert(QStringLiteral("handle_token"), token);
    question << options;
    // An error means that there is no such portal; the keys of our own windows do then.
    askBus(bus_, question, *this, [](const QDBusMessage &) {});
}

void PortalKeys::createSession() {
    request(call(kPath, kShortcuts, "CreateSession"),
            {{QStringLiteral("session_handle_token"), QStringLiteral("tonvale")}}, [this](const QVariantMap &results) {
                const QVariant handle = results.value(QStringLiteral("session_handle"));
                session_ =
                    handle.canConvert<QDBusObjectPath>() ? handle.value<QDBusObjectPath>().path() : handle.toString();
                if (!session_.startsWith(u'/')) return session_.clear();
                bindKeys();
            });
}

void PortalKeys::bindKeys() {
    activated_.emplace(bus_, BusSignal::Source{kService, kPath, kShortcuts, QStringLiteral("Activated")},
                       [this](const QDBusMessage &signal) { activate(signal); });
    QDBusMessage question = call(kPath, kShortcuts, "BindShortcuts");
    question << QVariant::fromValue(QDBusObjectPath(session_)) << QVariant::fromValue(shortcuts()) << QString();
    // The signal that this answer comes by is served still.
    QMetaObject::invokeMethod(
        this, [this, question] { request(question, {}, [this](const QVariantMap &) { onGranted_(); }); },
        Qt::QueuedConnection);
}

void PortalKeys::activate(const QDBusMessage &signal) {
    if (!signal.signature().startsWith(QLatin1String("os"))) return;
    const QVariantList arguments = signal.arguments();
    if (arguments.at(0).value<QDBusObjectPath>().path() != session_) return;
    const QString id = arguments.at(1).toString();
    for (const PortalKey &key : kKeys)
        if (id == QLatin1String(key.id)) tell_(key.code);
}

} // namespace tonvale
