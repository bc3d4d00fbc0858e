// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

#include <functional>

namespace tonvale {

using BusReply = std::function<void(const QDBusMessage &reply)>;

// Asks without waiting. The answer, or the error, comes from the loop unless `context` is gone by
// then.
void askBus(const QDBusConnection &bus, const QDBusMessage &question, QObject &context, BusReply onReply);

// Whether it is an answer that holds what it should.
[[nodiscard]] bool answers(const QDBusMessage &reply, const char *signature);

// Listens to one signal of one object as long as it exists.
class BusSignal : public QObject {
    Q_OBJECT
public:
    struct Source {
        QString service, path, interface, name;
    };
    BusSignal(const QDBusConnection &bus, const Source &source, BusReply onSignal);

private Q_SLOTS:
    void deliver(const QDBusMessage &message) { onSignal_(message); }

private:
    BusReply onSignal_;
};

} // namespace tonvale
