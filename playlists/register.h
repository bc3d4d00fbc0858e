// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Application.h"

namespace tonvale {

// Says how the windows of this folder are made.
void registerPlaylistWindows(Application &app);

} // namespace tonvale
