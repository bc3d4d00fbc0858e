// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QIcon>
#include <QRectF>

class QPainter;

namespace tonvale {

// The program's emblem: a level display on black glass, in a brushed frame.
void paintEmblem(QPainter &painter, const QRectF &area);

// The emblem as the icon of windows, sharp at any size.
[[nodiscard]] QIcon emblemIcon();

} // namespace tonvale
