// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Signal.h"

#include <cstdint>
#include <string>

namespace tonvale {

// The engine of Vivo movies. Failures are thrown as RuntimeError.
class VvWeb {
public:
    virtual ~VvWeb() = default;

    virtual void LoadFile(const std::string &path) = 0; // the empty text releases the movie
    virtual void Start() = 0;
    virtual void Suspend() = 0;
    virtual void Resume() = 0;
};

} // namespace tonvale
