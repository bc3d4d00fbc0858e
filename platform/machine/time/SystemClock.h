// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Loop.h"

namespace tonvale {

class SystemClock : public Clock {
public:
    double secondsSinceMidnight() override;
    std::int64_t milliseconds() override;
    void block(std::int32_t milliseconds) override;
};

} // namespace tonvale
