// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/EndSignals.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace tonvale {

namespace {

struct Pipe {
    int read = -1, write = -1;
};

Pipe openPipe() {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return {};
    return {ends[0], ends[1]};
}

// Open until the process ends: a signal may come at any time.
const Pipe &signalPipe() {
    static const Pipe pipe = openPipe();
    return pipe;
}

// Nothing but write() is allowed here.
extern "C" void wakeLoop(int /*signal*/) {
    const char byte = 0;
    // A full pipe has woken the loop already.
    [[maybe_unused]] const ssize_t written = write(signalPipe().write, &byte, 1);
}

void drain(int fd) {
    std::array<char, 16> bytes{};
    while (read(fd, bytes.data(), bytes.size()) > 0) continue;
}

} // namespace

EndSignals::EndSignals(std::function<void()> onSignal) {
    const int fd = signalPipe().read;
    if (fd < 0) return;
    notifier_.emplace(fd, QSocketNotifier::Read);
    QObject::connect(&*notifier_, &QSocketNotifier::activated, &*notifier_, [fd, run = std::move(onSignal)] {
        drain(fd);
        run();
    });
    struct sigaction action {};
    action.sa_handler = wakeLoop;
    action.sa_flags = SA_RESTART;
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        if (sigaction(signal, &action, nullptr) != 0) notifier_.reset();
}

} // namespace tonvale
