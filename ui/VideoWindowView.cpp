// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/VideoWindowView.h"

#include "ui/PictureWidget.h"
#include "ui/children.h"

#include <QPaintEvent>
#include <QPainter>

namespace tonvale {

VideoWindowView::VideoWindowView(frmVideoPlay &form) : FormWindow(form, 0) {
    makeChild<PictureWidget>(*this, form.MediaPlayer1);
    bindWindow();
}

void VideoWindowView::paintEvent(QPaintEvent *event) {
    QPainter painter(this);
    painter.fillRect(event->rect(), Qt::black);
}

} // namespace tonvale
