// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/FrameBell.h"
#include "ui/PictureCanvas.h"

#include <QImage>
#include <QWidget>

#include <vector>

namespace tonvale {

// Frames that the processor paints into memory.
class SoftwareCanvas final : public QWidget, public PictureCanvas {
public:
    SoftwareCanvas(QWidget &parent, std::shared_ptr<PictureSource> source);
    ~SoftwareCanvas() override;
    [[nodiscard]] QWidget &widget() override { return *this; }
    [[nodiscard]] bool shows(const PictureSource &source) const override { return &source == source_.get(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    // As the decoder's arithmetic likes to find it.
    struct alignas(64) Line {
        std::byte bytes[64];
    };

    void onFrame();
    void fitImage();
    void makeOpaque();

    std::shared_ptr<PictureSource> source_;
    FrameBell bell_;
    std::vector<Line> memory_;
    QImage image_; // lies in the memory
    bool frameDue_ = true;
};

} // namespace tonvale
