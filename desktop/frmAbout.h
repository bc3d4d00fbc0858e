// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Controls.h"
#include "controls/Form.h"
#include "core/Application.h"
#include "desktop/tiles.h"

#include <cstdint>
#include <vector>

namespace tonvale {

// Version and addresses, on a tiled background. It has no title; the window system drags it by its
// surface.
class frmAbout : public Form {
public:
    explicit frmAbout(Application &app);

    CommandButton Command1{"&Okay"};
    Label Label1{"Version 3.66"};
    Label Label2, Label3; // the vendor's mail and web address
    Image Image1, Image2;
    Image picTilePic; // hidden; as large as the tile

    // For the view: where it is to copy the tile to, in pixels.
    [[nodiscard]] std::vector<PixelRect> Form_Paint() const;

private:
    void Form_Load() override;
    void Form_Resize() override;
    void Form_KeyPress(std::int16_t &keyAscii) override;
    void startMove();

    Application &app_;
    std::int16_t TileWidth = 0, TileHeight = 0;     // pixels
    std::int32_t WindowWidth = 0, WindowHeight = 0; // pixels
};

} // namespace tonvale
