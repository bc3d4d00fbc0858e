// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Application.h"

namespace tonvale {

// Says how the windows that convert files are made.
void registerConversionWindows(Application &app);

} // namespace tonvale
