// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/qt/MprisPlayer.h"

#include "controls/DisplayText.h"
#include "core/file_address.h"
#include "platform/qt/bus.h"
#include "platform/qt/mpris_interface.h"

#include <QCoreApplication>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QSysInfo>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tonvale {

namespace {

constexpr auto kName = QLatin1String("org.mpris.MediaPlayer2.tonvale");
constexpr auto kPath = QLatin1String("/org/mpris/MediaPlayer2");
constexpr auto kProgram = QLatin1String("org.mpris.MediaPlayer2");
constexpr auto kPlayer = QLatin1String("org.mpris.MediaPlayer2.Player");
constexpr auto kProperties = QLatin1String("org.freedesktop.DBus.Properties");
constexpr auto kBus = QLatin1String("org.freedesktop.DBus");
constexpr double kMicroseconds = 1e6;
constexpr double kLongestTime = 1e10; // seconds; still exact in microseconds
constexpr unsigned kDoNotQueue = 4, kPrimaryOwner = 1;

qlonglong microseconds(double seconds) {
    if (!(seconds > 0)) return 0; // not a number is not either
    return std::llround(std::min(seconds, kLongestTime) * kMicroseconds);
}

QString text(const std::string &bytes) { return QString::fromStdString(displayText(bytes)); }

QString statusText(RemotePlayer::Status status) {
    switch (status) {
    case RemotePlayer::Status::Playing: return QStringLiteral("Playing");
    case RemotePlayer::Status::Paused: return QStringLiteral("Paused");
    case RemotePlayer::Status::Stopped: break;
    }
    return QStringLiteral("Stopped");
}

double fraction(double value) { return std::isfinite(value) ? std::clamp(value, 0.0, 1.0) : 0.0; }

QDBusMessage wrongArguments(const QDBusMessage &message) {
    return message.createErrorReply(QDBusError::InvalidArgs, QStringLiteral("Wrong arguments"));
}

} // namespace

MprisPlayer::MprisPlayer(RemotePlayer &player) : player_(player), bus_(QDBusConnection::sessionBus()) {
    if (!bus_.isConnected() || !bus_.registerVirtualObject(kPath, this)) return;
    onChanged_ = player.changed.connect([this] {
        // One message tells all that changes in one go.
        if (!std::exchange(changed_, true)) later([this] { tellChanges(); });
    });
    onSeeked_ = player.seeked.connect([this](double position) { tellSeeked(position); });
    tellChanges();
    takeName(kName, false);
}

MprisPlayer::~MprisPlayer() { bus_.unregisterObject(kPath); }

void MprisPlayer::takeName(const QString &name, bool isLastTry) {
    QDBusMessage question = QDBusMessage::createMethodCall(kBus, QStringLiteral("/org/freedesktop/DBus"), kBus,
                                                           QStringLiteral("RequestName"));
    question << name << kDoNotQueue;
    askBus(bus_, question, *this, [this, isLastTry](const QDBusMessage &reply) {
        if (isLastTry || !answers(reply, "u") || reply.arguments().constFirst().toUInt() == kPrimaryOwner) return;
        takeName(QStringLiteral("%1.instance%2").arg(kName).arg(QCoreApplication::applicationPid()), true);
    });
}

QString MprisPlayer::introspect(const QString & /*path*/) const { return QLatin1String(kMprisIntrospection); }

// ---- what the bus is told ----

void MprisPlayer::tellChanges() {
    changed_ = false;
    if (player_.path() != trackPath_) {
        trackPath_ = player_.path();
        ++track_;
    }
    QVariantMap now = playerProperties();
    now.remove(QStringLiteral("Position"));
    QVariantMap different;
    for (auto property = now.cbegin(); property != now.cend(); ++property)
        if (told_.value(property.key()) != property.value()) different.insert(property.key(), property.value());
    const bool isFirst = told_.isEmpty();
    told_ = std::move(now);
    if (isFirst || different.isEmpty()) return;
    QDBusMessage signal = QDBusMessage::createSignal(kPath, kProperties, QStringLiteral("PropertiesChanged"));
    signal << QString(kPlayer) << different << QStringList();
    (void)bus_.send(signal);
}

void MprisPlayer::tellSeeked(double position) {
    QDBusMessage signal = QDBusMessage::createSignal(kPath, kPlayer, QStringLiteral("Seeked"));
    signal << microseconds(position);
    (void)bus_.send(signal);
}

QVariantMap MprisPlayer::programProperties() const {
    return {{QStringLiteral("CanQuit"), true},
            {QStringLiteral("CanRaise"), true},
            {QStringLiteral("HasTrackList"), false},
            {QStringLiteral("Identity"), QStringLiteral("Orvane Tonvale")},
            {QStringLiteral("DesktopEntry"), QStringLiteral("org.orvane.Tonvale")},
            {QStringLiteral("SupportedUriSchemes"), QStringList{QStringLiteral("file")}},
            {QStringLiteral("SupportedMimeTypes"), QStringLiteral(TONVALE_MIME_TYPES).split(u',', Qt::SkipEmptyParts)}};
}

QVariantMap MprisPlayer::playerProperties() const {
    return {{QStringLiteral("PlaybackStatus"), statusText(player_.status())},
            {QStringLiteral("Rate"), 1.0},
            {QStringLiteral("MinimumRate"), 1.0},
            {QStringLiteral("MaximumRate"), 1.0},
            {QStringLiteral("Metadata"), metadata()},
            {QStringLiteral("Volume"), fraction(player_.volume())},
            {QStringLiteral("Position"), microseconds(player_.position())},
            {QStringLiteral("CanGoNext"), false},
            {QStringLiteral("CanGoPrevious"), false},
            {QStringLiteral("CanPlay"), true},
            {QStringLiteral("CanPause"), true},
            {QStringLiteral("CanSeek"), player_.canSeek()},
            {QStringLiteral("CanControl"), true}};
}

QVariantMap MprisPlayer::properties(const QString &interface) const {
    if (interface == kProgram) return programProperties();
    return interface == kPlayer ? playerProperties() : QVariantMap();
}

QVariantMap MprisPlayer::metadata() const {
    const std::string path = player_.path();
    const std::string title = player_.title();
    if (path.empty() && title.empty()) return {};
    QVariantMap data{{QStringLiteral("mpris:trackid"), QVariant::fromValue(QDBusObjectPath(trackId()))},
                     {QStringLiteral("xesam:title"), text(title)}};
    if (const qlonglong length = microseconds(player_.length()); length > 0)
        data.insert(QStringLiteral("mpris:length"), length);
    if (const std::string address = fileAddress(path); !address.empty())
        data.insert(QStringLiteral("xesam:url"), QString::fromStdString(address));
    return data;
}

QString MprisPlayer::trackId() const { return QStringLiteral("/org/orvane/Tonvale/track/%1").arg(track_); }

// ---- what the bus asks ----

bool MprisPlayer::handleMessage(const QDBusMessage &message, const QDBusConnection &connection) {
    const QString interface = message.interface();
    if (!interface.isEmpty() && interface != kProperties && interface != kProgram && interface != kPlayer) return false;
    const QDBusMessage reply = answer(message);
    if (message.isReplyRequired()) (void)connection.send(reply);
    return true;
}

QDBusMessage MprisPlayer::answer(const QDBusMessage &message) {
    return message.interface() == kProperties ? answerProperties(message) : answerCommand(message);
}

QDBusMessage MprisPlayer::answerProperties(const QDBusMessage &message) {
    const QString member = message.member(), signature = message.signature();
    if (member == QLatin1String("Get") && signature == QLatin1String("ss")) return get(message);
    if (member == QLatin1String("Set") && signature == QLatin1String("ssv")) return set(message);
    if (member == QLatin1String("GetAll") && signature == QLatin1String("s"))
        return message.createReply(properties(message.arguments().constFirst().toString()));
    return wrongArguments(message);
}

QDBusMessage MprisPlayer::get(const QDBusMessage &message) const {
    const QVariant value = properties(message.arguments().at(0).toString()).value(message.arguments().at(1).toString());
    if (!value.isValid())
        return message.createErrorReply(QDBusError::UnknownProperty, QStringLiteral("No such property"));
    return message.createReply(QVariant::fromValue(QDBusVariant(value)));
}

QDBusMessage MprisPlayer::set(const QDBusMessage &message) {
    const QVariantList arguments = message.arguments();
    const QString name = arguments.at(1).toString();
    if (!properties(arguments.at(0).toString()).contains(name))
        return message.createErrorReply(QDBusError::UnknownProperty, QStringLiteral("No such property"));
    if (name != QLatin1String("Volume") && name != QLatin1String("Rate"))
        return message.createErrorReply(QDBusError::PropertyReadOnly, QStringLiteral("The property is read-only"));
    const QVariant value = arguments.at(2).value<QDBusVariant>().variant();
    if (value.userType() != QMetaType::Double) return wrongArguments(message);
    if (name == QLatin1String("Volume")) {
        setVolume(value.toDouble());
    } else {
        setRate(value.toDouble());
    }
    return message.createReply();
}

void MprisPlayer::setVolume(double volume) {
    if (std::isnan(volume)) return;
    later([this, level = std::clamp(volume, 0.0, 1.0)] { player_.setVolume(level); });
}

// There is one speed. Who sets none at all is to get a pause.
void MprisPlayer::setRate(double rate) {
    if (rate == 0) later([this] { player_.pause(); });
}

QDBusMessage MprisPlayer::answerCommand(const QDBusMessage &message) {
    struct Command {
        QLatin1String name;
        void (RemotePlayer::*run)();
    };
    static constexpr Command kCommands[] = {
        {QLatin1String("Play"), &RemotePlayer::play},
        {QLatin1String("Pause"), &RemotePlayer::pause},
        {QLatin1String("PlayPause"), &RemotePlayer::playPause},
        {QLatin1String("Stop"), &RemotePlayer::stop},
        {QLatin1String("Raise"), &RemotePlayer::raise},
        {QLatin1String("Quit"), &RemotePlayer::quit},
        {QLatin1String("Next"), nullptr},
        {QLatin1String("Previous"), nullptr},
    };
    const QString member = message.member(), signature = message.signature();
    for (const Command &command : kCommands) {
        if (member != command.name) continue;
        if (!signature.isEmpty()) return wrongArguments(message);
        if (command.run != nullptr) later([this, run = command.run] { (player_.*run)(); });
        return message.createReply();
    }
    const QVariantList arguments = message.arguments();
    if (member == QLatin1String("Seek") && signature == QLatin1String("x")) {
        later([this, offset = arguments.at(0).toLongLong()] { seekBy(offset); });
    } else if (member == QLatin1String("SetPosition") && signature == QLatin1String("ox")) {
        later([this, track = arguments.at(0).value<QDBusObjectPath>().path(), position = arguments.at(1).toLongLong()] {
            seekTo(track, position);
        });
    } else if (member == QLatin1String("OpenUri") && signature == QLatin1String("s")) {
        return answerOpen(message);
    } else {
        return message.createErrorReply(QDBusError::UnknownMethod, QStringLiteral("No such method"));
    }
    return message.createReply();
}

QDBusMessage MprisPlayer::answerOpen(const QDBusMessage &message) {
    const std::string address = message.arguments().constFirst().toString().toStdString();
    const auto path = pathOfAddress(address, QSysInfo::machineHostName().toStdString(), StraySigns::Refused);
    if (!path) return message.createErrorReply(QDBusError::NotSupported, QStringLiteral("Only files can be opened"));
    later([this, file = *path] { player_.open(file); });
    return message.createReply();
}

void MprisPlayer::seekBy(qlonglong offset) {
    if (!player_.canSeek()) return;
    const double target = player_.position() + static_cast<double>(offset) / kMicroseconds;
    // Past the end lies the next track, which is none: then players stop.
    if (player_.length() > 0 && target > player_.length()) return player_.stop();
    player_.seek(std::max(target, 0.0));
}

void MprisPlayer::seekTo(const QString &track, qlonglong position) {
    // Who asks for a track that has gone meanwhile means nothing that is here.
    if (!player_.canSeek() || track != trackId() || player_.path() != trackPath_) return;
    const double target = static_cast<double>(position) / kMicroseconds;
    if (target < 0 || target > player_.length()) return;
    player_.seek(target);
}

void MprisPlayer::later(std::function<void()> work) {
    QMetaObject::invokeMethod(this, std::move(work), Qt::QueuedConnection);
}

} // namespace tonvale
