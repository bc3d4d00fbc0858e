// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Services.h"

namespace tonvale {

class DesktopScreenSaver : public ScreenSaver {
public:
    void activate() override {}
    std::unique_ptr<Hold> holdOff() override { return std::make_unique<Hold>(); }
};

class DesktopProperties : public SystemProperties {
public:
    void show(PropertySheets /*sheets*/) override {}
};

class DesktopKeyboard : public KeyboardHook {
public:
    Connection listen(Listener /*listener*/) override { return {}; }
};

} // namespace tonvale
