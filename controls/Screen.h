// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <memory>

namespace tonvale {

inline constexpr double kTwipsPerPixel = 15;

class Screen {
public:
    virtual ~Screen() = default;
    virtual double width() = 0;  // twips
    virtual double height() = 0; // twips
};

class ScreenSaver {
public:
    // While one of these exists the screen does not blank.
    class Hold {
    public:
        virtual ~Hold() = default;
    };

    virtual ~ScreenSaver() = default;
    // Blanks the screen now. Nothing happens where the desktop cannot.
    virtual void activate() = 0;
    [[nodiscard]] virtual std::unique_ptr<Hold> holdOff() = 0;
};

} // namespace tonvale
