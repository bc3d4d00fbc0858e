// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/EmblemWidget.h"

#include "ui/emblem.h"

#include <QPainter>

namespace tonvale {

EmblemWidget::EmblemWidget(QWidget *parent, int size) : PanelPart(parent) { setFixedSize(size, size); }

void EmblemWidget::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    paintEmblem(painter, rect());
}

} // namespace tonvale
