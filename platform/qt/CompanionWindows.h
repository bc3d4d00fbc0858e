// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Services.h"

#include <functional>
#include <vector>

namespace tonvale {

// The windows of other instances, and those of the companion programs that this one has started. On
// X11 a companion's windows are found by the session that it was started in, and are asked to close
// as their close button does it. Where they cannot be seen the companion counts as one window, and
// is asked to end by a signal. Nothing waits for a companion.
class CompanionWindows : public WindowSystem {
public:
    struct Companion {
        std::uint64_t process = 0; // leads a session of its own
        std::string title;         // of its window, where that cannot be seen
    };
    using Running = std::function<std::vector<Companion>()>;

    CompanionWindows(WindowSystem &instances, Running running) : instances_(instances), running_(std::move(running)) {}

    bool isAvailable() override { return instances_.isAvailable(); }
    std::vector<WindowInfo> windows() override;
    void sendClose(WindowHandle window) override;

private:
    WindowSystem &instances_;
    Running running_;
};

} // namespace tonvale
