// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/time/SystemRandom.h"

namespace tonvale {

double SystemRandom::next() {
    // The upper 53 bits are all that a double can hold; 1 itself is never reached.
    return static_cast<double>(engine_() >> 11) * 0x1p-53;
}

} // namespace tonvale
