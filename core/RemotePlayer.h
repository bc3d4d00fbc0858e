// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Signal.h"

#include <string>

namespace tonvale {

// What the desktop's media keys, panels and lock screens see of the player, and what they may ask
// of it. Times are in seconds.
class RemotePlayer {
public:
    enum class Status { Stopped, Paused, Playing };

    virtual ~RemotePlayer() = default;

    Signal<> changed;      // any of the values below but the position
    Signal<double> seeked; // the position has jumped to here

    [[nodiscard]] virtual Status status() const = 0;
    [[nodiscard]] virtual std::string title() const = 0; // empty: nothing is loaded
    [[nodiscard]] virtual std::string path() const = 0;  // bytes; empty: nothing is loaded
    [[nodiscard]] virtual double length() const = 0;
    [[nodiscard]] virtual double position() const = 0;
    [[nodiscard]] virtual double volume() const = 0; // 0 to 1
    [[nodiscard]] virtual bool canSeek() const = 0;

    virtual void play() = 0;
    virtual void pause() = 0;
    virtual void playPause() = 0;
    virtual void stop() = 0;
    virtual void seek(double position) = 0;
    virtual void setVolume(double volume) = 0;
    virtual void open(const std::string &path) = 0;
    virtual void raise() = 0;
    virtual void quit() = 0;
};

} // namespace tonvale
