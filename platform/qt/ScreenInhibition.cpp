// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/qt/ScreenInhibition.h"

#include "platform/qt/bus.h"
#include "platform/qt/xcb.h"

#include <QCoreApplication>
#include <QDBusObjectPath>
#include <QPointer>

#include <xcb/screensaver.h>

#include <optional>

namespace tonvale {

namespace {

constexpr auto kSaver = QLatin1String("org.freedesktop.ScreenSaver");
constexpr auto kSaverPath = QLatin1String("/org/freedesktop/ScreenSaver");
constexpr auto kPortal = QLatin1String("org.freedesktop.portal.Desktop");
constexpr auto kPortalPath = QLatin1String("/org/freedesktop/portal/desktop");
constexpr auto kProgram = QLatin1String("org.orvane.Tonvale");
constexpr auto kReason = QLatin1String("Playing a video");
constexpr unsigned kInhibitIdle = 8;

// The display forgets the suspension with the connection that asked for it.
XcbConnection suspendByDisplay() {
    if (!isOnX11()) return nullptr;
    XcbConnection connection = connectToX();
    if (!connection) return nullptr;
    const xcb_query_extension_reply_t *extension = xcb_get_extension_data(connection.get(), &xcb_screensaver_id);
    if (extension == nullptr || extension->present == 0) return nullptr;
    // A server obeys those alone who have told which version they speak.
    const auto version = fetchReply(xcb_screensaver_query_version_reply, connection.get(),
                                    xcb_screensaver_query_version(connection.get(), 1, 1));
    if (!version || !succeeds(connection.get(), xcb_screensaver_suspend_checked(connection.get(), 1))) return nullptr;
    return connection;
}

// Lives on after its release until what has been asked for is answered, and is taken back then.
class Inhibition : public QObject {
public:
    explicit Inhibition(QObject *parent) : QObject(parent) { askSaver(); }

    void release() {
        released_ = true;
        if (settled_) undo();
    }

private:
    void askSaver() {
        if (!bus_.isConnected()) return settleByDisplay();
        QDBusMessage question = QDBusMessage::createMethodCall(kSaver, kSaverPath, kSaver, QStringLiteral("Inhibit"));
        question << QString(kProgram) << QString(kReason);
        askBus(bus_, question, *this, [this](const QDBusMessage &reply) {
            if (!answers(reply, "u")) return askPortal();
            QDBusMessage answer =
                QDBusMessage::createMethodCall(kSaver, kSaverPath, kSaver, QStringLiteral("UnInhibit"));
            answer << reply.arguments().constFirst();
            settle(answer);
        });
    }

    void askPortal() {
        QDBusMessage question = QDBusMessage::createMethodCall(
            kPortal, kPortalPath, QStringLiteral("org.freedesktop.portal.Inhibit"), QStringLiteral("Inhibit"));
        question << QString() << kInhibitIdle << QVariantMap{{QStringLiteral("reason"), QString(kReason)}};
        askBus(bus_, question, *this, [this](const QDBusMessage &reply) {
            if (!answers(reply, "o")) return settleByDisplay();
            const QString handle = reply.arguments().constFirst().value<QDBusObjectPath>().path();
            settle(QDBusMessage::createMethodCall(kPortal, handle, QStringLiteral("org.freedesktop.portal.Request"),
                                                  QStringLiteral("Close")));
        });
    }

    void settleByDisplay() {
        suspended_ = suspendByDisplay();
        settle(std::nullopt);
    }

    void settle(const std::optional<QDBusMessage> &takeBack) {
        takeBack_ = takeBack;
        settled_ = true;
        if (released_) undo();
    }

    void undo() {
        suspended_.reset();
        // Where the bus has gone the inhibition has gone with it.
        if (takeBack_) (void)bus_.send(*takeBack_);
        deleteLater();
    }

    QDBusConnection bus_ = QDBusConnection::sessionBus();
    std::optional<QDBusMessage> takeBack_;
    XcbConnection suspended_;
    bool settled_ = false, released_ = false;
};

class InhibitionHold : public ScreenSaver::Hold {
public:
    explicit InhibitionHold(Inhibition &inhibition) : inhibition_(&inhibition) {}
    ~InhibitionHold() override {
        if (Inhibition *inhibition = inhibition_.data()) inhibition->release();
    }
    InhibitionHold(const InhibitionHold &) = delete;
    InhibitionHold &operator=(const InhibitionHold &) = delete;

private:
    QPointer<Inhibition> inhibition_;
};

} // namespace

std::unique_ptr<ScreenSaver::Hold> holdOffScreenSaver() {
    // It deletes itself, or goes with the application.
    auto *inhibition = std::make_unique<Inhibition>(QCoreApplication::instance()).release();
    return std::make_unique<InhibitionHold>(*inhibition);
}

} // namespace tonvale
