// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/qt/xcb.h"

#include <QGuiApplication>

namespace tonvale {

bool isOnX11() { return QGuiApplication::platformName() == QLatin1String("xcb"); }

XcbConnection connectToX() {
    XcbConnection connection(xcb_connect(nullptr, nullptr));
    // A failed connection has to be closed, too.
    return xcb_connection_has_error(connection.get()) == 0 ? std::move(connection) : nullptr;
}

xcb_window_t rootWindow(xcb_connection_t *connection) {
    return xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
}

} // namespace tonvale
