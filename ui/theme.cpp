// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/theme.h"

#include <QFont>
#include <QLinearGradient>
#include <QPaintDevice>
#include <QPainter>

#include <cstdint>

namespace tonvale::theme {

namespace {

constexpr double kKeyRadius = 4, kGlassRadius = 5;

// A number from 0 to 255 for each streak, spread without a pattern that the eye would find.
std::uint32_t streak(std::uint32_t line) {
    line = (line ^ 61) ^ (line >> 16);
    line *= 9;
    line ^= line >> 4;
    line *= 0x27d4eb2d;
    return (line ^ line >> 15) & 0xFF;
}

void setAll(QPalette &palette, QPalette::ColorRole role, const QColor &color, const QColor &disabled) {
    palette.setColor(role, color);
    palette.setColor(QPalette::Disabled, role, disabled);
}

} // namespace

QPalette palette() {
    QPalette palette(kPanel, kPanel);
    setAll(palette, QPalette::WindowText, kText, kDisabledText);
    setAll(palette, QPalette::Text, kText, kDisabledText);
    setAll(palette, QPalette::ButtonText, kText, kDisabledText);
    palette.setColor(QPalette::Base, kPanelDark);
    palette.setColor(QPalette::AlternateBase, QColor(0x23, 0x26, 0x2a));
    palette.setColor(QPalette::ToolTipBase, kPanelDark);
    palette.setColor(QPalette::ToolTipText, kText);
    palette.setColor(QPalette::BrightText, kLit);
    palette.setColor(QPalette::PlaceholderText, kDisabledText);
    palette.setColor(QPalette::Link, kLit);
    setAll(palette, QPalette::Highlight, QColor(0x0d, 0x6f, 0x78), QColor(0x40, 0x46, 0x4c));
    setAll(palette, QPalette::HighlightedText, Qt::white, kDisabledText);
    return palette;
}

QFont printFont(const QFont &base, int pixelSize) {
    QFont font(base);
    font.setPixelSize(pixelSize);
    font.setHintingPreference(QFont::PreferVerticalHinting);
    return font;
}

void paintBrushed(QPainter &painter, const QRectF &area) {
    QLinearGradient shade(area.topLeft(), area.bottomLeft());
    shade.setColorAt(0, QColor(0x3d, 0x41, 0x47));
    shade.setColorAt(0.12, kPanel);
    shade.setColorAt(1, QColor(0x22, 0x24, 0x28));
    painter.fillRect(area, shade);
    const double step = 1 / painter.device()->devicePixelRatioF();
    std::uint32_t line = 0;
    for (double y = area.top(); y < area.bottom(); y += step, ++line) {
        const std::uint32_t tone = streak(line);
        const QColor color = tone > 127 ? QColor(255, 255, 255, static_cast<int>(tone - 127) / 12)
                                        : QColor(0, 0, 0, static_cast<int>(127 - tone) / 5);
        painter.fillRect(QRectF(area.left(), y, area.width(), step), color);
    }
    painter.fillRect(QRectF(area.left(), area.top(), area.width(), 1), QColor(255, 255, 255, 40));
    painter.fillRect(QRectF(area.left(), area.bottom() - 1, area.width(), 1), QColor(0, 0, 0, 120));
}

void paintGlass(QPainter &painter, const QRectF &area) {
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF edge = area.adjusted(0.5, 0.5, -0.5, -0.5);
    QLinearGradient rim(edge.topLeft(), edge.bottomLeft());
    rim.setColorAt(0, QColor(0, 0, 0));
    rim.setColorAt(1, QColor(0x5a, 0x60, 0x68));
    painter.setPen(QPen(rim, 1));
    painter.setBrush(kGlass);
    painter.drawRoundedRect(edge, kGlassRadius, kGlassRadius);
}

void paintKey(QPainter &painter, const QRectF &area, bool pressed, bool hovered) {
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF edge = area.adjusted(1.5, 1.5, -1.5, -1.5);
    painter.setPen(QPen(QColor(0, 0, 0, 200), 1.4));
    QLinearGradient face(edge.topLeft(), edge.bottomLeft());
    const QColor top(hovered ? 0x68 : 0x5a, hovered ? 0x6e : 0x60, hovered ? 0x76 : 0x68), bottom(0x33, 0x37, 0x3c);
    face.setColorAt(0, pressed ? QColor(0x24, 0x27, 0x2b) : top);
    face.setColorAt(1, pressed ? QColor(0x36, 0x3a, 0x40) : bottom);
    painter.setBrush(face);
    painter.drawRoundedRect(edge, kKeyRadius, kKeyRadius);
    if (pressed) return;
    painter.setPen(QPen(QColor(255, 255, 255, 70), 1));
    painter.drawLine(QPointF(edge.left() + kKeyRadius, edge.top() + 1.2),
                     QPointF(edge.right() - kKeyRadius, edge.top() + 1.2));
}

void paintFocus(QPainter &painter, const QRectF &area) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(kLit, 1.4));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(area.adjusted(0.7, 0.7, -0.7, -0.7), kKeyRadius, kKeyRadius);
}

} // namespace tonvale::theme
