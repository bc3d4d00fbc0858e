// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/SoftwareCanvas.h"

#include <QBackingStore>
#include <QPainter>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace tonvale {

SoftwareCanvas::SoftwareCanvas(QWidget &parent, std::shared_ptr<PictureSource> source)
    : QWidget(&parent), source_(std::move(source)), bell_([this] { onFrame(); }) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    static_cast<void>(source_->attach({bell_.ring(), {}})); // without it all is black
}

SoftwareCanvas::~SoftwareCanvas() { source_->detach(); }

// Where nothing can be seen there will be no painting, and the decoder must not wait for it.
void SoftwareCanvas::onFrame() {
    const QWindow *handle = window()->windowHandle();
    if (handle == nullptr || !handle->isExposed() || visibleRegion().isEmpty()) {
        source_->skip();
        return;
    }
    frameDue_ = true;
    update();
}

void SoftwareCanvas::fitImage() {
    const QSize size = (QSizeF(this->size()) * devicePixelRatioF()).toSize();
    if (size == image_.size()) return;
    constexpr int kBytesPerPixel = 4;
    const std::size_t lines =
        (static_cast<std::size_t>(size.width()) * kBytesPerPixel + sizeof(Line) - 1) / sizeof(Line);
    memory_.assign(lines * static_cast<std::size_t>(size.height()), Line{});
    image_ = QImage(reinterpret_cast<uchar *>(memory_.data()), size.width(), size.height(),
                    static_cast<qsizetype>(lines * sizeof(Line)), QImage::Format_RGB32);
    frameDue_ = true;
}

// The fourth byte, which the decoder leaves at anything, must be full where the window may be
// transparent, as on Wayland.
void SoftwareCanvas::makeOpaque() {
    const auto *target = dynamic_cast<const QImage *>(backingStore()->paintDevice());
    if (target != nullptr && !target->hasAlphaChannel()) return;
    constexpr quint32 kOpaque = 0xFF000000;
    const std::size_t count = memory_.size() * sizeof(Line) / sizeof(quint32);
    auto *pixels = reinterpret_cast<quint32 *>(memory_.data());
    std::for_each(pixels, pixels + count, [](quint32 &pixel) { pixel |= kOpaque; });
}

void SoftwareCanvas::paintEvent(QPaintEvent * /*event*/) {
    fitImage();
    if (image_.isNull()) return;
    const PictureSource::Pixels pixels{
        memory_.data(), static_cast<std::size_t>(image_.bytesPerLine()), {image_.width(), image_.height()}};
    if (std::exchange(frameDue_, false)) {
        if (!source_->paint(pixels)) image_.fill(Qt::black);
        makeOpaque();
    }
    QPainter(this).drawImage(rect(), image_);
}

} // namespace tonvale
