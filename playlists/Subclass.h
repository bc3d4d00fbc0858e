// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Form.h"
#include "controls/Screen.h"

namespace tonvale {

// Stands in a window's procedure: gives the window its smallest size and lets it take dropped
// files. Without it a window has neither.
class Subclass {
public:
    static constexpr double kLeastWidth = 310 * kTwipsPerPixel, kLeastHeight = 250 * kTwipsPerPixel;

    // Puts a procedure into the window's place for it; returns whether that worked.
    using Installer = bool (*)(Form &form);
    static bool installProcedure(Form &form);

    Subclass(Form &form, Installer install) : form_(form), install_(install) {}

    [[nodiscard]] bool Hook();
    void Unhook(); // harmless when nothing is hooked
    [[nodiscard]] bool isHooked() const { return hooked_; }

private:
    Form &form_;
    Installer install_;
    bool hooked_ = false;
};

} // namespace tonvale
