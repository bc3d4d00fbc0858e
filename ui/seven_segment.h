// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QRectF>

class QPainter;

namespace tonvale {

// One digit with its unlit segments faintly visible; what is no digit lights none.
void paintDigit(QPainter &painter, const QRectF &area, int value);
void paintColon(QPainter &painter, const QRectF &area);

} // namespace tonvale
