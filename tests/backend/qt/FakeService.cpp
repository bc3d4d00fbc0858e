// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/backend/qt/FakeService.h"

#include <algorithm>
#include <stdexcept>

namespace tonvale::test {

FakeService::FakeService(const std::string &name, const std::string &path, Answer answer)
    : bus_(QDBusConnection::connectToBus(QDBusConnection::SessionBus, QString::fromStdString("fake " + name + path))),
      path_(QString::fromStdString(path)), answer_(std::move(answer)) {
    if (!bus_.registerVirtualObject(path_, this, QDBusConnection::SubPath) ||
        !bus_.registerService(QString::fromStdString(name)))
        throw std::runtime_error(name);
}

FakeService::~FakeService() {
    const QString name = bus_.name();
    bus_.unregisterObject(path_);
    QDBusConnection::disconnectFromBus(name);
}

bool FakeService::handleMessage(const QDBusMessage &message, const QDBusConnection &connection) {
    calls_.push_back(message);
    const QDBusMessage reply =
        answer_ ? answer_(message) : message.createErrorReply(QDBusError::NotSupported, QStringLiteral("no"));
    if (reply.type() != QDBusMessage::InvalidMessage) (void)connection.send(reply);
    return true;
}

int FakeService::count(const std::string &method) const {
    return static_cast<int>(std::count_if(
        calls_.begin(), calls_.end(), [&](const QDBusMessage &call) { return call.member().toStdString() == method; }));
}

const QDBusMessage *FakeService::find(const std::string &method) const {
    const auto found = std::find_if(calls_.rbegin(), calls_.rend(),
                                    [&](const QDBusMessage &call) { return call.member().toStdString() == method; });
    return found == calls_.rend() ? nullptr : &*found;
}

QVariantList FakeService::last(const std::string &method) const {
    const QDBusMessage *call = find(method);
    return call != nullptr ? call->arguments() : QVariantList();
}

QString FakeService::lastPath(const std::string &method) const {
    const QDBusMessage *call = find(method);
    return call != nullptr ? call->path() : QString();
}

} // namespace tonvale::test
