// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/unit/fakes/PlayerTest.h"

#include <string>

namespace tonvale::test {

inline constexpr const char *kFilm = "/v/a.avi";

// A player that shows films.
class Video : public PlayerTest {
protected:
    // Plays a film of this size, in pixels.
    void play(PictureSize size, const std::string &path = kFilm) {
        file(path);
        world.media.pictures[path] = size;
        if (!world.app().form1.isLoaded()) start();
        click(form().StopMenu.Click);
        open(path);
        world.log.clear();
    }
    [[nodiscard]] std::string frame() {
        const Form1 &f = form();
        return text(f.Left) + "," + text(f.Top) + " " + text(f.Width) + "x" + text(f.Height);
    }
    [[nodiscard]] std::string picture() {
        const MediaPlayer &player = form().ActiveMovie1;
        return text(player.Left) + "," + text(player.Top) + " " + text(player.Width) + "x" + text(player.Height);
    }
    static std::string text(double twips) {
        return twips == static_cast<int>(twips) ? std::to_string(static_cast<int>(twips)) : std::to_string(twips);
    }
};

} // namespace tonvale::test
