// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/time/SystemClock.h"

#include <chrono>
#include <ctime>
#include <thread>

namespace tonvale {

double SystemClock::secondsSinceMidnight() {
    timespec now{};
    std::tm local{};
    if (std::timespec_get(&now, TIME_UTC) != TIME_UTC || ::localtime_r(&now.tv_sec, &local) == nullptr) return 0;
    // A leap second would count as the next day's first.
    const int seconds = local.tm_sec > 59 ? 59 : local.tm_sec;
    return local.tm_hour * 3600.0 + local.tm_min * 60.0 + seconds + static_cast<double>(now.tv_nsec) / 1e9;
}

std::int64_t SystemClock::milliseconds() {
    using namespace std::chrono;
    return duration_cast<std::chrono::milliseconds>(steady_clock::now().time_since_epoch()).count();
}

void SystemClock::block(std::int32_t milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

} // namespace tonvale
