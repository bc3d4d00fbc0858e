// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Form.h"
#include "core/Services.h"

#include <map>
#include <vector>

namespace tonvale {

// The loaded windows as other instances see them, each under a handle of its own.
class InstanceWindows {
public:
    void watch(Forms &forms);
    [[nodiscard]] std::vector<WindowInfo> list() const;
    // Unloads the window; one that has gone needs nothing.
    void close(WindowHandle handle);

private:
    std::map<WindowHandle, Form *> windows_;
    WindowHandle lastHandle_ = 0;
    Connection loading_, unloaded_;
};

} // namespace tonvale
