// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPixmap>
#include <QWidget>

namespace tonvale {

// A surface of perforated metal, made of one drawn tile.
class TiledSurface : public QWidget {
public:
    explicit TiledSurface(QWidget *parent);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QPixmap tile_; // for the scale factor that it was painted at last
};

} // namespace tonvale
