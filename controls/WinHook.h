// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Signal.h"

#include <cstdint>
#include <functional>

namespace tonvale {

// The keys that are pressed with Control held, whichever window has the focus.
class KeyboardHook {
public:
    using Listener = std::function<void(std::int32_t keyCode)>;

    virtual ~KeyboardHook() = default;
    // Tells each such key, from the loop, until the connection ends. The codes are virtual key
    // codes: 32 space, 48 to 57 the digits, 65 to 90 the letters, 107 and 109 plus and minus of the
    // numeric keypad, 112 to 123 the function keys.
    [[nodiscard]] virtual Connection listen(Listener listener) = 0;
};

// The keyboard hook control of a window. It reports while it is enabled.
class WinHook {
public:
    explicit WinHook(KeyboardHook &keyboard) : keyboard_(keyboard) {}

    Event<std::int32_t> KeyDown;

    [[nodiscard]] bool Enabled() const { return enabled_; }
    void Enabled(bool enabled) {
        if (enabled == enabled_) return;
        enabled_ = enabled;
        connection_ = enabled ? keyboard_.listen([this](std::int32_t keyCode) { KeyDown(keyCode); }) : Connection();
    }

private:
    KeyboardHook &keyboard_;
    bool enabled_ = false;
    Connection connection_;
};

} // namespace tonvale
