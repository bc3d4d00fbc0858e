// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QPalette>
#include <QRectF>

class QFont;
class QPainter;

// The look that all windows share: a dark brushed front, black glass, cyan light.
namespace tonvale::theme {

inline constexpr QColor kPanel(0x2e, 0x31, 0x36);
inline constexpr QColor kPanelDark(0x1b, 0x1d, 0x21);
inline constexpr QColor kPanelEdge(0x50, 0x55, 0x5c);
inline constexpr QColor kGlass(0x04, 0x07, 0x09);
inline constexpr QColor kLit(0x36, 0xf1, 0xf5);
inline constexpr QColor kUnlit(0x0b, 0x2c, 0x2e);
inline constexpr QColor kGlassText(0x8f, 0xdc, 0xe0);
inline constexpr QColor kText(0xd9, 0xdd, 0xe2);
inline constexpr QColor kDisabledText(0x8d, 0x93, 0x9b);
inline constexpr QColor kDisabledSign(0x77, 0x7d, 0x85);
inline constexpr QColor kAmber(0xff, 0xb4, 0x3a);
inline constexpr QColor kRed(0xff, 0x4d, 0x45);

[[nodiscard]] QPalette palette();

// The printing on the front: small, and of the same family as all else.
[[nodiscard]] QFont printFont(const QFont &base, int pixelSize);

// The brushed front, the same streaks at every paint.
void paintBrushed(QPainter &painter, const QRectF &area);
void paintGlass(QPainter &painter, const QRectF &area);
// A key that stands out of the front, or is pressed into it.
void paintKey(QPainter &painter, const QRectF &area, bool pressed, bool hovered);
void paintFocus(QPainter &painter, const QRectF &area);

} // namespace tonvale::theme
