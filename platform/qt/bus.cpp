// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/qt/bus.h"

#include <QDBusPendingCallWatcher>

#include <memory>

namespace tonvale {

namespace {

// As long as a service may take that has to be started first.
constexpr int kPatience = 10000; // milliseconds

} // namespace

void askBus(const QDBusConnection &bus, const QDBusMessage &question, QObject &context, BusReply onReply) {
    // The context owns it.
    auto *watcher = std::make_unique<QDBusPendingCallWatcher>(bus.asyncCall(question, kPatience), &context).release();
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [watcher, reply = std::move(onReply)] {
        watcher->deleteLater();
        reply(watcher->reply());
    });
}

bool answers(const QDBusMessage &reply, const char *signature) {
    return reply.type() == QDBusMessage::ReplyMessage && reply.signature() == QLatin1String(signature);
}

BusSignal::BusSignal(const QDBusConnection &bus, const Source &source, BusReply onSignal)
    : onSignal_(std::move(onSignal)) {
    QDBusConnection listening(bus);
    if (!listening.connect(source.service, source.path, source.interface, source.name, this,
                           SLOT(deliver(QDBusMessage))))
        qWarning("tonvale: the bus does not tell %s", qPrintable(source.name));
}

} // namespace tonvale
