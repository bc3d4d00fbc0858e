// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/qt/xcb.h"

#include <sys/types.h>

#include <string>
#include <string_view>
#include <vector>

namespace tonvale {

// The windows that the window manager has on its list.
class X11Windows {
public:
    X11Windows() : connection_(isOnX11() ? connectToX() : nullptr) {}

    struct Window {
        xcb_window_t id = 0;
        pid_t process = 0; // 0: it does not tell
        std::string title;
    };
    [[nodiscard]] std::vector<Window> list() const;
    // Asks as the close button does. A window that cannot be asked so is left alone.
    void askToClose(xcb_window_t window) const;

private:
    [[nodiscard]] xcb_atom_t atom(std::string_view name) const;
    [[nodiscard]] std::string bytes(xcb_window_t window, std::string_view property) const;
    [[nodiscard]] std::vector<std::uint32_t> numbers(xcb_window_t window, std::string_view property) const;

    XcbConnection connection_; // null where there is no such display
};

} // namespace tonvale
