// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/backend/qt/Session.h"

#include "platform/machine/base/Spawn.h"
#include "platform/machine/base/UniqueFd.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QElapsedTimer>
#include <QEventLoop>

#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace tonvale::test {

namespace {

constexpr int kTurn = 20; // milliseconds

void set(const char *variable, const std::string &value) {
    if (::setenv(variable, value.c_str(), 1) != 0) throw std::runtime_error(variable);
}

std::string makeDirectory() {
    std::string pattern = "/tmp/tonvale-qt-XXXXXX";
    if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no scratch directory");
    return pattern;
}

constexpr const char *kConfigurationStart = R"(<!DOCTYPE busconfig PUBLIC
 "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig><type>session</type><listen>)";
constexpr const char *kConfigurationEnd = R"(</listen><auth>EXTERNAL</auth>
<policy context="default"><allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/>
<allow own="*"/></policy></busconfig>)";

bool waitForFile(const std::string &path) {
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < 20000) {
        if (std::filesystem::exists(path)) return true;
        (void)::usleep(2000);
    }
    return false;
}

// A bus that has made its socket does not listen to it at once.
bool waitForListener(const std::string &path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    for (int i = 0; i < 10000; ++i) {
        const UniqueFd socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
        if (::connect(socket.get(), reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0) return true;
        (void)::usleep(2000);
    }
    return false;
}

} // namespace

Process::Process(std::vector<std::string> command) {
    const std::string program = command.front();
    command.erase(command.begin());
    if (spawnDetached(program, command, "", id_) != 0) throw std::runtime_error(program);
}

bool Process::isRunning() const {
    siginfo_t status{};
    const bool known = id_ > 0 && ::waitid(P_PID, static_cast<id_t>(id_), &status, WEXITED | WNOHANG | WNOWAIT) == 0;
    return known && status.si_pid == 0;
}

void Process::end() {
    if (id_ <= 0) return;
    (void)::kill(id_, SIGKILL);
    (void)::waitpid(id_, nullptr, 0);
    id_ = -1;
}

bool serveUntil(const std::function<bool()> &condition, int seconds) {
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > seconds * 1000) return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, kTurn);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

void serveBus() {
    QDBusConnectionInterface *bus = QDBusConnection::sessionBus().interface();
    // What we have sent before has been delivered when this is answered, and so have the answers
    // to it once the second one is.
    for (int i = 0; i < 2; ++i) {
        const QDBusPendingCall call = bus->asyncCall(QStringLiteral("GetId"));
        ASSERT_TRUE(serveUntil([&] { return call.isFinished(); }));
        QCoreApplication::processEvents();
    }
}

Session::Session(Display display) : directory_(makeDirectory()) {
    for (const char *variable : {"HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME"})
        set(variable, directory_);
    set("QT_QPA_PLATFORM", display == Display::X11 ? "xcb" : "offscreen");
    startBus();
    if (display == Display::X11) startDisplay();
    application_ = std::make_unique<QApplication>(argumentCount_, arguments_);
}

Session::~Session() {
    application_.reset();
    display_.reset();
    bus_.reset();
    std::error_code ignored;
    std::filesystem::remove_all(directory_, ignored);
}

void Session::startBus() {
    const std::string address = "unix:path=" + directory_ + "/bus";
    std::ofstream(directory_ + "/bus.conf") << kConfigurationStart << address << kConfigurationEnd;
    set("DBUS_SESSION_BUS_ADDRESS", address);
    bus_ = std::make_unique<Process>(
        std::vector<std::string>{"dbus-daemon", "--config-file=" + directory_ + "/bus.conf", "--nofork"});
    if (!waitForListener(directory_ + "/bus")) throw std::runtime_error("no bus");
}

void Session::startDisplay() {
    const std::string number = directory_ + "/display";
    display_ = std::make_unique<Process>(std::vector<std::string>{
        "sh", "-c", "exec Xvfb -displayfd 9 -screen 0 640x480x24 -nolisten tcp -noreset 9>" + number + " 2>/dev/null"});
    std::string name;
    if (!waitForFile(number)) throw std::runtime_error("no display");
    for (int i = 0; i < 5000 && name.empty(); ++i) {
        std::ifstream(number) >> name;
        (void)::usleep(2000);
    }
    set("DISPLAY", std::string(":").append(name));
}

} // namespace tonvale::test
