// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/TiledSurface.h"

#include "desktop/tiles.h"
#include "ui/theme.h"

#include <QPaintEvent>
#include <QPainter>

namespace tonvale {

namespace {

// Device-independent pixels. Copies lie one pixel closer than the tile is high.
constexpr PixelSize kTile{48, 49}, kStep{48, 48};
constexpr int kHolePitch = 8;
constexpr double kHoleRadius = 1.3;

void paintHole(QPainter &painter, QPointF centre) {
    painter.setBrush(QColor(0xff, 0xff, 0xff, 16)); // the lower edge catches the light
    painter.drawEllipse(centre + QPointF(0, 0.9), kHoleRadius, kHoleRadius);
    painter.setBrush(QColor(0x12, 0x13, 0x16));
    painter.drawEllipse(centre, kHoleRadius, kHoleRadius);
}

QPixmap drawTile(double scale) {
    QPixmap tile(QSizeF(kTile.width * scale, kTile.height * scale).toSize());
    tile.setDevicePixelRatio(scale);
    tile.fill(QColor(0x2a, 0x2d, 0x31));
    QPainter painter(&tile);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    for (int row = 0; row * kHolePitch / 2 < kTile.height; ++row)
        for (int x = row % 2 == 0 ? 2 : 2 + kHolePitch / 2; x < kTile.width; x += kHolePitch)
            paintHole(painter, QPointF(x, row * kHolePitch / 2.0 + 2));
    return tile;
}

} // namespace

TiledSurface::TiledSurface(QWidget *parent) : QWidget(parent) { setAttribute(Qt::WA_OpaquePaintEvent); }

void TiledSurface::paintEvent(QPaintEvent *event) {
    if (tile_.devicePixelRatio() != devicePixelRatioF() || tile_.isNull()) tile_ = drawTile(devicePixelRatioF());
    QPainter painter(this);
    painter.setClipRegion(event->region());
    for (const PixelRect &place : tiles({width(), height()}, kTile, kStep))
        if (event->rect().intersects(QRect(place.x, place.y, place.width, place.height)))
            painter.drawPixmap(place.x, place.y, tile_);
}

} // namespace tonvale
