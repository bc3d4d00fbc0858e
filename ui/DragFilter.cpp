// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/DragFilter.h"

#include "ui/units.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QWidget>
#include <QWindow>

namespace tonvale {

namespace {

// Where a program may not place its windows, and is not told where they are.
bool isWayland() { return QGuiApplication::platformName().startsWith(QLatin1String("wayland")); }

} // namespace

bool DragFilter::eventFilter(QObject *watched, QEvent *event) {
    auto *widget = static_cast<QWidget *>(watched);
    const auto type = event->type();
    if (type != QEvent::MouseButtonPress && type != QEvent::MouseMove && type != QEvent::MouseButtonRelease)
        return false;
    const auto &mouse = static_cast<const QMouseEvent &>(*event);
    if (type == QEvent::MouseMove) {
        raise(part_.MouseMove, mouse);
        return true;
    }
    if (mouse.button() != Qt::LeftButton) return false;
    if (type == QEvent::MouseButtonPress) return press(*widget, mouse);
    part_.MouseUp();
    return true;
}

bool DragFilter::press(QWidget &widget, const QMouseEvent &event) {
    raise(part_.MouseDown, event);
    if (!form_.MouseCaptured || !isWayland()) return true;
    // The compositor drags the window itself, and keeps the mouse until it is let go.
    widget.window()->windowHandle()->startSystemMove();
    part_.MouseUp();
    return true;
}

// Reckoned from the screen and the model's own place: the window follows the mouse with a delay,
// so a place inside the window may be that of a moment ago.
void DragFilter::raise(const Event<double, double> &event, const QMouseEvent &mouse) const {
    event(toTwips(mouse.globalPosition().x()) - form_.Left, toTwips(mouse.globalPosition().y()) - form_.Top);
}

} // namespace tonvale
