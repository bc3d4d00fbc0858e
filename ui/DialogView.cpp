// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/DialogView.h"

#include "ui/KeyButton.h"
#include "ui/children.h"
#include "ui/text.h"
#include "ui/theme.h"
#include "ui/units.h"

#include <QApplication>
#include <QLayout>
#include <QPainter>
#include <QWindow>

namespace tonvale {

void DialogView::stayBeforeActiveWindow() {
    const QWidget *active = QApplication::activeWindow();
    if (active == nullptr) return;
    create();
    windowHandle()->setTransientParent(active->windowHandle());
}

void DialogView::finish() {
    const QSize size = layout()->sizeHint();
    model_.Width = toTwips(size.width()) + model_.Width - model_.ScaleWidth();
    model_.Height = toTwips(size.height()) + model_.Height - model_.ScaleHeight();
    bindWindow();
}

QAbstractButton &DialogView::addKey(CommandButton &button, const char *name) {
    auto &key = makeChild<KeyButton>(*this);
    key.setObjectName(QLatin1String(name));
    bindings().follow(button.Caption, [&key, &button] { key.setText(shown(button.Caption)); });
    bind(bindings(), key, button);
    return key;
}

void DialogView::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    theme::paintBrushed(painter, rect());
}

} // namespace tonvale
