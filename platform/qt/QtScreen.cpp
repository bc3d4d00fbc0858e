// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/qt/QtScreen.h"

#include <QGuiApplication>
#include <QScreen>

namespace tonvale {

namespace {

// A session may be without any screen for a while.
QSize primarySize() {
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen != nullptr ? screen->size() : QSize();
}

} // namespace

double QtScreen::width() { return primarySize().width() * kTwipsPerPixel; }

double QtScreen::height() { return primarySize().height() * kTwipsPerPixel; }

} // namespace tonvale
