// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Signal.h"
#include "core/Application.h"
#include "core/RemotePlayer.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tonvale {

// The main window as the desktop sees it. What it tells is what the panel shows: captions, lamp,
// slider. It may be made before the window and outlive it; without a window nothing is loaded.
class Form1Remote : public RemotePlayer {
public:
    explicit Form1Remote(Application &app);
    ~Form1Remote() override;
    Form1Remote(const Form1Remote &) = delete;
    Form1Remote &operator=(const Form1Remote &) = delete;

    [[nodiscard]] Status status() const override;
    [[nodiscard]] std::string title() const override;
    [[nodiscard]] std::string path() const override;
    [[nodiscard]] double length() const override;
    [[nodiscard]] double position() const override;
    [[nodiscard]] double volume() const override;
    [[nodiscard]] bool canSeek() const override;

    // Commands that may bring up a box, or keep the thread busy, are carried out by the loop, so
    // that who sent them has his answer before.
    void play() override;
    void pause() override;
    void playPause() override;
    void stop() override;
    void seek(double position) override;
    void setVolume(double volume) override;
    void open(const std::string &path) override;
    void raise() override;
    void quit() override;

private:
    [[nodiscard]] Form1 *window() const;
    void follow(Form1 &window);
    void tellChange();
    void followSlider();
    void later(std::function<void(Form1 &)> command);

    Application &app_;
    // What waits in the loop looks here whether there still is somebody to tell.
    std::shared_ptr<Form1Remote *> self_;
    bool changeWaits_ = false;
    std::int32_t lastPosition_ = 0; // of the slider, seconds
    Connection loading_, unloaded_;
    std::vector<Connection> following_;
};

} // namespace tonvale
