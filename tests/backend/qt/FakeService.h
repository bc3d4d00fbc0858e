// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QVariantList>

#include <functional>
#include <string>
#include <vector>

namespace tonvale::test {

// A service of the desktop on the private bus, at any path, over a connection of its own. It notes
// the calls and answers them as it is told to.
class FakeService : public QDBusVirtualObject {
public:
    // What a call is answered with; an empty function is an error.
    using Answer = std::function<QDBusMessage(const QDBusMessage &call)>;

    FakeService(const std::string &name, const std::string &path, Answer answer);
    ~FakeService() override;

    [[nodiscard]] QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

    // How often the method has been called.
    [[nodiscard]] int count(const std::string &method) const;
    // The arguments of the last call of the method.
    [[nodiscard]] QVariantList last(const std::string &method) const;
    [[nodiscard]] QString lastPath(const std::string &method) const;
    [[nodiscard]] QDBusConnection &bus() { return bus_; }

private:
    [[nodiscard]] const QDBusMessage *find(const std::string &method) const;

    QDBusConnection bus_;
    QString path_;
    Answer answer_;
    std::vector<QDBusMessage> calls_;
};

} // namespace tonvale::test
