// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Screen.h"

#include <QObject>

namespace tonvale {

// The desktop's screen saver over the session bus, else the X server's own. Nothing waits for
// either.
class DesktopScreenSaver : public ScreenSaver {
public:
    void activate() override;
    std::unique_ptr<Hold> holdOff() override;

private:
    void tryService(std::size_t index);

    QObject context_;
};

} // namespace tonvale
