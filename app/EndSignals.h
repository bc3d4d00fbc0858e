// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QSocketNotifier>

#include <functional>
#include <optional>

namespace tonvale {

// Brings SIGTERM, SIGINT and SIGHUP to the loop, so that an end asked for from outside is as
// orderly as any other.
class EndSignals {
public:
    explicit EndSignals(std::function<void()> onSignal);

private:
    std::optional<QSocketNotifier> notifier_;
};

} // namespace tonvale
