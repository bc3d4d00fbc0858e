// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/qt/KeySource.h"
#include "platform/qt/bus.h"

#include <QString>

#include <memory>
#include <optional>

namespace tonvale {

// The keys as the desktop's portal grants them: it may ask its user, who may choose other keys.
class PortalKeys : public QObject, public KeySource {
public:
    // `onGranted` is told once the portal has taken the keys; never where there is none.
    PortalKeys(Tell tell, std::function<void()> onGranted);
    ~PortalKeys() override;

private:
    using Granted = std::function<void(const QVariantMap &results)>;
    void request(QDBusMessage question, QVariantMap options, Granted onGranted);
    void createSession();
    void bindKeys();
    void activate(const QDBusMessage &signal);

    Tell tell_;
    std::function<void()> onGranted_;
    QDBusConnection bus_ = QDBusConnection::sessionBus();
    int requests_ = 0;
    QString session_; // empty until there is one
    std::unique_ptr<BusSignal> response_;
    std::optional<BusSignal> activated_;
};

} // namespace tonvale
