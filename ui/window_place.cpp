// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/window_place.h"

#include <QApplication>
#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace tonvale {

namespace {

constexpr int kLeastInReach = 240; // device-independent pixels of the title

QRect areaAt(QPoint place) {
    const QScreen *screen = QGuiApplication::screenAt(place);
    if (screen == nullptr) screen = QGuiApplication::primaryScreen();
    return screen != nullptr ? screen->availableGeometry() : QRect();
}

} // namespace

QPoint reachablePlace(const QWidget &window, QPoint place) {
    const QRect area = areaAt(place + QPoint(window.width() / 2, 0));
    if (area.isEmpty()) return place;
    const int left = area.left() - std::max(0, window.width() - kLeastInReach), right = area.right() - kLeastInReach;
    const int top = area.top(), bottom = area.bottom() - kNominalTitleHeight;
    return {std::clamp(place.x(), left, std::max(left, right)), std::clamp(place.y(), top, std::max(top, bottom))};
}

std::optional<QPoint> firstPlace(const QWidget &window) {
    const QWidget *active = QApplication::activeWindow();
    if (active == nullptr) return std::nullopt;
    const QRect around = active->frameGeometry();
    const QRect area = areaAt(around.center());
    const QPoint place = around.center() - QPoint(window.width() / 2, (window.height() + kNominalTitleHeight) / 2);
    return QPoint(std::clamp(place.x(), area.left(), std::max(area.left(), area.right() - window.width())),
                  std::clamp(place.y(), area.top(), std::max(area.top(), area.bottom() - window.height())));
}

} // namespace tonvale
