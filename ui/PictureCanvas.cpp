// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/PictureCanvas.h"

#include "ui/OpenGlCanvas.h"
#include "ui/SoftwareCanvas.h"

#include <QDir>

namespace tonvale {

namespace {

// Without a card there is only the processor's OpenGL, whose library is large and slow to load.
bool hasGraphicsCard() {
    return !QDir(QStringLiteral("/dev/dri")).isEmpty(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot) ||
           QFile::exists(QStringLiteral("/dev/nvidiactl"));
}

} // namespace

std::unique_ptr<PictureCanvas> makePictureCanvas(QWidget &parent, std::shared_ptr<PictureSource> source) {
    const QByteArray demand = qgetenv("TONVALE_PICTURE");
    const bool isDemanded = demand == "opengl";
    std::unique_ptr<PictureCanvas> canvas;
    if (isDemanded || (demand != "software" && hasGraphicsCard()))
        canvas = OpenGlCanvas::make(parent, source, isDemanded ? Rasteriser::Any : Rasteriser::CardOnly);
    return canvas ? std::move(canvas) : std::make_unique<SoftwareCanvas>(parent, std::move(source));
}

} // namespace tonvale
