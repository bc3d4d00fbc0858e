// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/NameDisplay.h"

#include "ui/theme.h"

#include <QPainter>

namespace tonvale {

namespace {

constexpr int kPixelSize = 14;

} // namespace

void NameDisplay::setText(const QString &text) {
    if (text == text_) return;
    text_ = text;
    setAccessibleName(text);
    // Escaped, since a hint takes what looks like markup for markup.
    const bool cut = QFontMetrics(theme::printFont(font(), kPixelSize)).horizontalAdvance(text) > width();
    setToolTip(cut ? QStringLiteral("<qt>%1</qt>").arg(text.toHtmlEscaped()) : QString());
    update();
    announceValue();
}

void NameDisplay::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    painter.setFont(theme::printFont(font(), kPixelSize));
    painter.setPen(theme::kLit);
    const QString shown = painter.fontMetrics().elidedText(text_, Qt::ElideMiddle, width());
    painter.drawText(rect(), Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, shown);
}

} // namespace tonvale
