// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Picture.h"

#include <memory>

class QWidget;

namespace tonvale {

// What the frames of a moving picture are painted on. It takes no input: that is its parent's.
class PictureCanvas {
public:
    PictureCanvas() = default;
    virtual ~PictureCanvas() = default;
    PictureCanvas(const PictureCanvas &) = delete;
    PictureCanvas &operator=(const PictureCanvas &) = delete;

    [[nodiscard]] virtual QWidget &widget() = 0;
    [[nodiscard]] virtual bool shows(const PictureSource &source) const = 0;
};

// By OpenGL where a graphics card does it, else by the processor. The variable TONVALE_PICTURE may
// demand "opengl" or "software".
[[nodiscard]] std::unique_ptr<PictureCanvas> makePictureCanvas(QWidget &parent, std::shared_ptr<PictureSource> source);

} // namespace tonvale
