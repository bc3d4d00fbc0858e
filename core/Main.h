// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Application.h"

namespace tonvale {

enum class StartResult {
    Running, // the main window is on screen; the loop may begin
    Failed,  // the settings could not be read; the user has been told
    Closed,  // somebody has closed the window already
};

// The process entry: the instance rule, then the main window.
[[nodiscard]] StartResult Main(Application &app);

// Closes every window of the instances that run already, and waits until each has gone.
void CloseOtherInstances(Application &app);

// Unloads all loaded windows, `keep` last.
void CloseForms(Application &app, Form &keep);

} // namespace tonvale
