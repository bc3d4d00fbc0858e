// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Application.h"

#include <string>
#include <utility>

namespace tonvale {

// Runs the body of a class member; an error ends it with a plain box titled with the member's name.
template <class Body> void withErrorBox(Application &app, const std::string &member, Body &&body) {
    if (resumeNext(app.Err, std::forward<Body>(body))) return;
    app.box("Error: " + std::to_string(app.Err.Number) + ". " + app.Err.Description, BoxIcon::None, BoxPlace::Normal,
            BoxButtons::Ok, member);
}

} // namespace tonvale
