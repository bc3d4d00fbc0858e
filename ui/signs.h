// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/TransportButton.h"

class QColor;
class QPainter;

namespace tonvale {

// Signs are drawn on a square of this size around the origin.
inline constexpr double kSignGrid = 24;

void paintSign(QPainter &painter, TransportButton::Sign sign, const QColor &color);

} // namespace tonvale
