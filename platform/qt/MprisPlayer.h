// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/RemotePlayer.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QVariantMap>

#include <string>

namespace tonvale {

// The player on the session bus, as media keys, panels and lock screens expect players to be there
// (MPRIS 2). What the bus says is not trusted; what it asks for is done from the loop, after the
// answer, since it may well bring up a box.
class MprisPlayer : public QDBusVirtualObject {
public:
    explicit MprisPlayer(RemotePlayer &player);
    ~MprisPlayer() override;

    [[nodiscard]] QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    void takeName(const QString &name, bool isLastTry);
    void tellChanges();
    void tellSeeked(double position);
    [[nodiscard]] QVariantMap programProperties() const;
    [[nodiscard]] QVariantMap playerProperties() const;
    [[nodiscard]] QVariantMap properties(const QString &interface) const;
    [[nodiscard]] QVariantMap metadata() const;
    [[nodiscard]] QString trackId() const;

    [[nodiscard]] QDBusMessage answer(const QDBusMessage &message);
    [[nodiscard]] QDBusMessage answerProperties(const QDBusMessage &message);
    [[nodiscard]] QDBusMessage get(const QDBusMessage &message) const;
    [[nodiscard]] QDBusMessage set(const QDBusMessage &message);
    [[nodiscard]] QDBusMessage answerCommand(const QDBusMessage &message);
    [[nodiscard]] QDBusMessage answerOpen(const QDBusMessage &message);
    void setVolume(double volume);
    void setRate(double rate);
    void seekBy(qlonglong offset);
    void seekTo(const QString &track, qlonglong position);
    void later(std::function<void()> work);

    RemotePlayer &player_;
    QDBusConnection bus_;
    QVariantMap told_; // of the player, as the bus knows it
    std::string trackPath_;
    int track_ = 0;
    bool changed_ = false;
    Connection onChanged_, onSeeked_;
};

} // namespace tonvale
