// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/codec/Conversion.h"

#include <functional>
#include <stop_token>

namespace tonvale {

// Runs `work` once on each of the crew's threads and `watch` on this one some 25 times a second
// meanwhile. Returns when all have ended. The first failure asks the others to stop, as `stop`
// does, and is thrown here.
void runWorkers(Crew crew, const std::stop_token &stop, const std::function<void(const std::stop_token &)> &work,
                const std::function<void()> &watch);

} // namespace tonvale
