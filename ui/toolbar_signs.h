// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string_view>

class QColor;
class QPainter;

namespace tonvale {

// Draws the toolbar picture of this key on the grid that the panel's signs are drawn on. A key
// without a picture draws nothing.
void paintToolbarSign(QPainter &painter, std::string_view key, const QColor &color);

} // namespace tonvale
