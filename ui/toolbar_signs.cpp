// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/toolbar_signs.h"

#include "ui/signs.h"

#include <QColor>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <array>
#include <utility>

namespace tonvale {

namespace {

// Lines of a list on the left, as Add and Remove have them.
void listLines(QPainterPath &path) {
    for (const double y : {-8.0, -1.5, 5.0}) {
        path.moveTo(-11, y);
        path.lineTo(y > 0 ? -1 : 6, y);
    }
}

QPainterPath addSign() {
    QPainterPath path;
    listLines(path);
    path.moveTo(8, 2);
    path.lineTo(8, 12);
    path.moveTo(3, 7);
    path.lineTo(13, 7);
    return path;
}

QPainterPath removeSign() {
    QPainterPath path;
    listLines(path);
    path.moveTo(3, 7);
    path.lineTo(13, 7);
    return path;
}

// Two arrows around each other.
QPainterPath convertSign() {
    QPainterPath path;
    path.moveTo(-10, -2);
    path.cubicTo(-9, -8, 4, -11, 9, -4);
    path.moveTo(10, -11);
    path.lineTo(9.5, -3.5);
    path.lineTo(2.5, -3.5);
    path.moveTo(10, 2);
    path.cubicTo(9, 8, -4, 11, -9, 4);
    path.moveTo(-10, 11);
    path.lineTo(-9.5, 3.5);
    path.lineTo(-2.5, 3.5);
    return path;
}

// A door that stands open, and an arrow out of it.
QPainterPath exitSign() {
    QPainterPath path;
    path.moveTo(2, -10);
    path.lineTo(-9, -10);
    path.lineTo(-9, 10);
    path.lineTo(2, 10);
    path.moveTo(-3, 0);
    path.lineTo(11, 0);
    path.moveTo(6, -5);
    path.lineTo(11, 0);
    path.lineTo(6, 5);
    return path;
}

void paintLines(QPainter &painter, const QPainterPath &path, const QColor &color) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color, 2.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(path);
}

using Sign = TransportButton::Sign;
constexpr std::array<std::pair<std::string_view, Sign>, 4> kPanelSigns{
    {{"Play", Sign::PlayCurrent}, {"Pause", Sign::Pause}, {"Mute", Sign::Mute}, {"About", Sign::Help}}};
constexpr std::array<std::pair<std::string_view, QPainterPath (*)()>, 4> kLineSigns{
    {{"Add", addSign}, {"Remove", removeSign}, {"Convert", convertSign}, {"Exit", exitSign}}};

} // namespace

void paintToolbarSign(QPainter &painter, std::string_view key, const QColor &color) {
    const auto hasKey = [key](const auto &entry) { return entry.first == key; };
    if (const auto *panel = std::ranges::find_if(kPanelSigns, hasKey); panel != kPanelSigns.end())
        paintSign(painter, panel->second, color);
    if (const auto *line = std::ranges::find_if(kLineSigns, hasKey); line != kLineSigns.end())
        paintLines(painter, line->second(), color);
}

} // namespace tonvale
