// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Services.h"

#include <random>

namespace tonvale {

// A new row of numbers in each process.
class SystemRandom : public Random {
public:
    SystemRandom() : engine_(std::random_device{}()) {}
    double next() override;

private:
    std::mt19937_64 engine_;
};

} // namespace tonvale
