// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/qt/MprisPlayer.h"
#include "tests/backend/qt/FakeService.h"
#include "tests/backend/qt/Session.h"

#include <QDBusConnectionInterface>
#include <QDBusObjectPath>
#include <QDBusReply>
#include <QDBusVariant>

#include <cmath>
#include <fstream>
#include <limits>
#include <sstream>

namespace tonvale {
namespace {

using namespace test;

class FakePlayer : public RemotePlayer {
public:
    Status state = Status::Stopped;
    std::string name, file;
    double seconds = 0, at = 0, level = 0.5;
    bool seekable = false;
    std::vector<std::string> calls;

    [[nodiscard]] Status status() const override { return state; }
    [[nodiscard]] std::string title() const override { return name; }
    [[nodiscard]] std::string path() const override { return file; }
    [[nodiscard]] double length() const override { return seconds; }
    [[nodiscard]] double position() const override { return at; }
    [[nodiscard]] double volume() const override { return level; }
    [[nodiscard]] bool canSeek() const override { return seekable; }
    void play() override { calls.push_back("play"); }
    void pause() override { calls.push_back("pause"); }
    void playPause() override { calls.push_back("playPause"); }
    void stop() override { calls.push_back("stop"); }
    void seek(double position) override { calls.push_back("seek " + text(position)); }
    void setVolume(double volume) override { calls.push_back("volume " + text(volume)); }
    void open(const std::string &path) override { calls.push_back("open " + path); }
    void raise() override { calls.push_back("raise"); }
    void quit() override { calls.push_back("quit"); }

private:
    static std::string text(double number) {
        std::ostringstream stream;
        stream << number;
        return stream.str();
    }
};

constexpr const char *kName = "org.mpris.MediaPlayer2.tonvale";
constexpr const char *kProgram = "org.mpris.MediaPlayer2", *kPlayer = "org.mpris.MediaPlayer2.Player";
constexpr const char *kProperties = "org.freedesktop.DBus.Properties";

class Mpris : public SessionTest<Display::None> {
protected:
    Mpris() { load("/music/song.mp3"); }
    void load(const std::string &path) {
        player.file = path;
        player.name = "song";
        player.seconds = 100;
        player.seekable = true;
        player.state = RemotePlayer::Status::Playing;
    }
    void start() {
        mpris = std::make_unique<MprisPlayer>(player);
        ASSERT_TRUE(
            serveUntil([this] { return client.interface()->isServiceRegistered(QLatin1String(kName)).value(); }));
    }
    QDBusMessage call(const char *interface, const char *method, const QVariantList &arguments = {}) {
        QDBusMessage question =
            QDBusMessage::createMethodCall(QLatin1String(kName), QStringLiteral("/org/mpris/MediaPlayer2"),
                                           QLatin1String(interface), QLatin1String(method));
        question.setArguments(arguments);
        const QDBusPendingCall pending = client.asyncCall(question);
        EXPECT_TRUE(serveUntil([&] { return pending.isFinished(); }));
        QCoreApplication::processEvents();
        return pending.reply();
    }
    QVariant get(const char *name, const char *interface = kPlayer) {
        const QDBusMessage reply = call(kProperties, "Get", {QLatin1String(interface), QLatin1String(name)});
        return reply.arguments().value(0).value<QDBusVariant>().variant();
    }
    QDBusMessage set(const char *name, const QVariant &value) {
        return call(kProperties, "Set",
                    {QLatin1String(kPlayer), QLatin1String(name), QVariant::fromValue(QDBusVariant(value))});
    }
    QVariantMap metadata() { return qdbus_cast<QVariantMap>(get("Metadata")); }
    QVariant track() { return metadata().value(QStringLiteral("mpris:trackid")); }
    void seekTo(const QVariant &id, qlonglong position) { (void)call(kPlayer, "SetPosition", {id, position}); }

    QDBusConnection client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("client"));
    FakePlayer player;
    std::unique_ptr<MprisPlayer> mpris;
};

TEST_F(Mpris, WhatPlaysCanBeRead) {
    start();
    player.at = 12.5;
    EXPECT_EQ(get("PlaybackStatus"), QStringLiteral("Playing"));
    EXPECT_EQ(get("Position"), 12500000ll);
    EXPECT_EQ(get("Volume"), 0.5);
    EXPECT_EQ(metadata().value(QStringLiteral("mpris:length")), 100000000ll);
    EXPECT_EQ(metadata().value(QStringLiteral("xesam:title")), QStringLiteral("song"));
    EXPECT_EQ(metadata().value(QStringLiteral("xesam:url")), QStringLiteral("file:///music/song.mp3"));
    EXPECT_EQ(get("DesktopEntry", kProgram), QStringLiteral("org.orvane.Tonvale"));
    EXPECT_TRUE(get("SupportedMimeTypes", kProgram).toStringList().contains(QStringLiteral("audio/mpeg")));
    EXPECT_EQ(
        qdbus_cast<QVariantMap>(call(kProperties, "GetAll", {QLatin1String(kPlayer)}).arguments().value(0)).size(), 13);
}

TEST_F(Mpris, NothingLoadedHasNoMetadata) {
    player.file.clear();
    player.name.clear();
    player.seekable = false;
    start();
    EXPECT_TRUE(metadata().isEmpty());
    EXPECT_EQ(get("CanSeek"), false);
}

TEST_F(Mpris, ValuesThatAreNoneDoNotReachTheBus) {
    player.seconds = std::numeric_limits<double>::quiet_NaN();
    player.at = std::numeric_limits<double>::infinity();
    player.level = -std::numeric_limits<double>::infinity();
    player.name = std::string("\xFF bad \0 end", 11);
    player.file = "/m\xFFusic/a b%#?.mp3";
    start();
    EXPECT_FALSE(metadata().contains(QStringLiteral("mpris:length")));
    EXPECT_EQ(metadata().value(QStringLiteral("xesam:url")), QStringLiteral("file:///m%FFusic/a%20b%25%23%3F.mp3"));
    EXPECT_TRUE(metadata().value(QStringLiteral("xesam:title")).toString().startsWith(QStringLiteral("\u00ff bad ")));
    EXPECT_EQ(get("Position"), 10000000000000000ll);
    EXPECT_EQ(get("Volume"), 0.0);
}

TEST_F(Mpris, CommandsReachThePlayer) {
    start();
    for (const char *command : {"Play", "Pause", "PlayPause", "Stop", "Next", "Previous"})
        EXPECT_EQ(call(kPlayer, command).type(), QDBusMessage::ReplyMessage);
    (void)call(kProgram, "Raise");
    (void)call(kProgram, "Quit");
    EXPECT_EQ(player.calls, (std::vector<std::string>{"play", "pause", "playPause", "stop", "raise", "quit"}));
}

TEST_F(Mpris, SeekingStaysInTheTrack) {
    start();
    player.at = 50;
    (void)call(kPlayer, "Seek", {10000000ll});
    (void)call(kPlayer, "Seek", {std::numeric_limits<qlonglong>::min()});
    (void)call(kPlayer, "Seek", {51000000ll});
    (void)call(kPlayer, "Seek", {std::numeric_limits<qlonglong>::max()});
    EXPECT_EQ(player.calls, (std::vector<std::string>{"seek 60", "seek 0", "stop", "stop"}));
}

TEST_F(Mpris, APositionIsForItsTrackAlone) {
    start();
    const QVariant first = track();
    seekTo(first, 30000000);
    seekTo(first, -1);
    seekTo(first, 100000001);
    seekTo(QVariant::fromValue(QDBusObjectPath(QStringLiteral("/stale"))), 1000000);
    EXPECT_EQ(player.calls, (std::vector<std::string>{"seek 30"}));
    load("/music/other.mp3");
    player.changed();
    seekTo(first, 1000000);
    EXPECT_EQ(player.calls.size(), 1u);
    EXPECT_NE(track(), first);
    player.seekable = false;
    seekTo(track(), 1000000);
    (void)call(kPlayer, "Seek", {1000000ll});
    EXPECT_EQ(player.calls.size(), 1u);
}

TEST_F(Mpris, TheVolumeIsBetweenNothingAndAll) {
    start();
    for (const double volume : {0.25, -3.0, 1e300, std::numeric_limits<double>::quiet_NaN()})
        (void)set("Volume", volume);
    EXPECT_EQ(player.calls, (std::vector<std::string>{"volume 0.25", "volume 0", "volume 1"}));
    EXPECT_EQ(set("Volume", QStringLiteral("loud")).errorName(),
              QStringLiteral("org.freedesktop.DBus.Error.InvalidArgs"));
    EXPECT_EQ(set("Position", 1ll).errorName(), QStringLiteral("org.freedesktop.DBus.Error.PropertyReadOnly"));
    EXPECT_EQ(set("Nonsense", 1ll).errorName(), QStringLiteral("org.freedesktop.DBus.Error.UnknownProperty"));
    (void)set("Rate", 0.0);
    (void)set("Rate", 2.0);
    EXPECT_EQ(player.calls.size(), 4u);
    EXPECT_EQ(player.calls.back(), "pause");
}

TEST_F(Mpris, FilesAloneAreOpened) {
    start();
    EXPECT_EQ(call(kPlayer, "OpenUri", {QStringLiteral("file:///a%20b%FF.mp3")}).type(), QDBusMessage::ReplyMessage);
    for (const char *address :
         {"http://orvane.example/a.mp3", "file://elsewhere/a.mp3", "file:///a%00b", "file:///a%", "", "/a.mp3"})
        EXPECT_EQ(call(kPlayer, "OpenUri", {QLatin1String(address)}).type(), QDBusMessage::ErrorMessage) << address;
    EXPECT_EQ(call(kPlayer, "OpenUri", {5}).type(), QDBusMessage::ErrorMessage);
    EXPECT_EQ(call(kPlayer, "Seek", {QStringLiteral("x")}).type(), QDBusMessage::ErrorMessage);
    EXPECT_EQ(call(kPlayer, "Nonsense").type(), QDBusMessage::ErrorMessage);
    EXPECT_EQ(player.calls, (std::vector<std::string>{"open /a b\xFF.mp3"}));
}

TEST_F(Mpris, ChangesAreToldOnceAndOnlyWhatHasChanged) {
    start();
    const std::string log = session.directory() + "/log";
    const Process monitor({"sh", "-c", "exec gdbus monitor --session --dest " + std::string(kName) + " >" + log});
    const auto told = [&] {
        std::ostringstream text;
        text << std::ifstream(log).rdbuf();
        return text.str();
    };
    // It says that it knows the name before it listens to it, so it is called until it hears.
    ASSERT_TRUE(serveUntil([&] {
        player.seeked(0);
        return told().find("Seeked (int64 0,)") != std::string::npos;
    }));
    player.changed(); // nothing has
    player.state = RemotePlayer::Status::Paused;
    player.at = 7;
    player.changed();
    player.changed();
    player.seeked(42);
    ASSERT_TRUE(serveUntil([&] {
        return told().find("Paused") != std::string::npos && told().find("(int64 42000000,)") != std::string::npos;
    }));
    player.level = 0.125;
    player.changed();
    ASSERT_TRUE(serveUntil([&] { return told().find("0.125") != std::string::npos; }));
    EXPECT_NE(told().find("{'PlaybackStatus': <'Paused'>}, @as [])"), std::string::npos) << told();
    EXPECT_NE(told().find("Seeked (int64 42000000,)"), std::string::npos) << told();
    std::size_t count = 0;
    for (std::size_t at = told().find("PropertiesChanged"); at != std::string::npos;
         at = told().find("PropertiesChanged", at + 1))
        ++count;
    EXPECT_EQ(count, 2u);
}

TEST_F(Mpris, ASecondPlayerHasANameOfItsOwn) {
    const FakeService first(kName, "/org/mpris/MediaPlayer2", {});
    mpris = std::make_unique<MprisPlayer>(player);
    const QString own =
        QStringLiteral("%1.instance%2").arg(QLatin1String(kName)).arg(QCoreApplication::applicationPid());
    EXPECT_TRUE(serveUntil([&] { return client.interface()->isServiceRegistered(own).value(); }));
}

TEST_F(Mpris, ItIsThereForAnyClient) {
    start();
    const std::string log = session.directory() + "/log";
    Process clients({"sh", "-c",
                     "{ gdbus introspect --session --dest " + std::string(kName) +
                         " --object-path /org/mpris/MediaPlayer2; playerctl metadata title; } >" + log});
    ASSERT_TRUE(serveUntil([&] { return !clients.isRunning(); }));
    std::ostringstream text;
    text << std::ifstream(log).rdbuf();
    for (const char *part :
         {"interface org.mpris.MediaPlayer2 {", "SetPosition(in  o TrackId", "readwrite d Volume = 0.5", "\nsong\n"})
        EXPECT_NE(text.str().find(part), std::string::npos) << part << text.str();
}

TEST_F(Mpris, WithoutABusItIsJustNotThere) {
    session.endBus();
    ASSERT_TRUE(serveUntil([] { return !QDBusConnection::sessionBus().isConnected(); }));
    mpris = std::make_unique<MprisPlayer>(player);
    player.changed();
    player.seeked(1);
    QCoreApplication::processEvents();
}

} // namespace
} // namespace tonvale
