// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/FrameBell.h"
#include "ui/PictureCanvas.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QWidget>
#include <QWindow>

namespace tonvale {

enum class Rasteriser { CardOnly, Any };

// Frames that the graphics card paints, in a native window of their own, since the window around it
// is painted by the processor.
class OpenGlCanvas final : public PictureCanvas {
public:
    // Null where OpenGL cannot be had.
    [[nodiscard]] static std::unique_ptr<PictureCanvas> make(QWidget &parent, std::shared_ptr<PictureSource> source,
                                                             Rasteriser rasteriser);
    explicit OpenGlCanvas(std::shared_ptr<PictureSource> source);
    ~OpenGlCanvas() override;
    [[nodiscard]] QWidget &widget() override { return *container_; }
    [[nodiscard]] bool shows(const PictureSource &source) const override { return &source == source_.get(); }

private:
    class Surface : public QWindow {
    public:
        explicit Surface(OpenGlCanvas &canvas);

    protected:
        void exposeEvent(QExposeEvent *event) override;
        bool event(QEvent *event) override;

    private:
        OpenGlCanvas &canvas_;
    };

    [[nodiscard]] bool start(Rasteriser rasteriser);
    void putInto(QWidget &parent);
    void makeCurrent(QSurface &surface);
    void onFrame();
    void paint();

    std::shared_ptr<PictureSource> source_;
    FrameBell bell_;
    QOpenGLContext context_;
    QOffscreenSurface nowhere_; // while the window is not there
    std::unique_ptr<QWidget> container_;
    Surface *surface_ = nullptr; // in the container
};

} // namespace tonvale
