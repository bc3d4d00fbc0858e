// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/OpenGlCanvas.h"

#include <QOpenGLFunctions>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace tonvale {

namespace {

// The names under which the processor does a card's work, slower than the decoder does it itself.
bool isSoftware(std::string_view renderer) {
    constexpr std::array kNames{"llvmpipe", "softpipe", "swrast", "Software Rasterizer", "SwiftShader"};
    return std::any_of(kNames.begin(), kNames.end(),
                       [&](const char *name) { return renderer.find(name) != renderer.npos; });
}

} // namespace

OpenGlCanvas::Surface::Surface(OpenGlCanvas &canvas) : canvas_(canvas) {
    setSurfaceType(QSurface::OpenGLSurface);
    setFlags(flags() | Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus);
}

void OpenGlCanvas::Surface::exposeEvent(QExposeEvent * /*event*/) { canvas_.paint(); }

bool OpenGlCanvas::Surface::event(QEvent *event) {
    if (event->type() == QEvent::UpdateRequest) canvas_.paint();
    return QWindow::event(event);
}

OpenGlCanvas::OpenGlCanvas(std::shared_ptr<PictureSource> source)
    : source_(std::move(source)), bell_([this] { onFrame(); }) {}

OpenGlCanvas::~OpenGlCanvas() { source_->detach(); }

std::unique_ptr<PictureCanvas> OpenGlCanvas::make(QWidget &parent, std::shared_ptr<PictureSource> source,
                                                  Rasteriser rasteriser) {
    auto canvas = std::make_unique<OpenGlCanvas>(std::move(source));
    if (!canvas->start(rasteriser)) return nullptr;
    canvas->putInto(parent);
    return canvas;
}

bool OpenGlCanvas::start(Rasteriser rasteriser) {
    if (!context_.create()) return false;
    nowhere_.setFormat(context_.format());
    nowhere_.create();
    if (!context_.makeCurrent(&nowhere_)) return false;
    const auto *renderer = reinterpret_cast<const char *>(context_.functions()->glGetString(GL_RENDERER));
    if (renderer == nullptr || (rasteriser == Rasteriser::CardOnly && isSoftware(renderer))) return false;
    PictureSource::OpenGl openGl;
    openGl.makeCurrent = [this] { makeCurrent(nowhere_); };
    openGl.procAddress = [this](const char *name) { return reinterpret_cast<void *>(context_.getProcAddress(name)); };
    return source_->attach({bell_.ring(), std::move(openGl)});
}

void OpenGlCanvas::putInto(QWidget &parent) {
    auto surface = std::make_unique<Surface>(*this);
    surface->setFormat(context_.format());
    surface_ = surface.get();
    container_.reset(QWidget::createWindowContainer(surface.release(), &parent)); // owns it
    container_->setAttribute(Qt::WA_TransparentForMouseEvents);
    container_->setFocusPolicy(Qt::NoFocus);
}

// A context that was lost leaves the picture black; the sound goes on.
void OpenGlCanvas::makeCurrent(QSurface &surface) { static_cast<void>(context_.makeCurrent(&surface)); }

void OpenGlCanvas::onFrame() {
    if (surface_ != nullptr && surface_->isExposed())
        surface_->requestUpdate();
    else
        source_->skip();
}

void OpenGlCanvas::paint() {
    if (surface_ == nullptr || !surface_->isExposed() || !context_.makeCurrent(surface_)) return;
    const QSize size = (QSizeF(surface_->size()) * surface_->devicePixelRatio()).toSize();
    if (!source_->paint(PictureSource::FrameBuffer{0, {size.width(), size.height()}})) {
        context_.functions()->glClearColor(0, 0, 0, 1);
        context_.functions()->glClear(GL_COLOR_BUFFER_BIT);
    }
    context_.swapBuffers(surface_);
}

} // namespace tonvale
