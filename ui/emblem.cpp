// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/emblem.h"

#include "ui/theme.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmap>

#include <array>
#include <memory>

namespace tonvale {

namespace {

constexpr double kGrid = 64;
constexpr int kRows = 7;
constexpr std::array<int, 5> kLevels{3, 5, 7, 4, 6}; // lit segments of each column

QColor segmentColor(int row) {
    if (row == kRows - 1) return theme::kRed;
    return row == kRows - 2 ? theme::kAmber : theme::kLit;
}

void paintLevels(QPainter &painter) {
    painter.setPen(Qt::NoPen);
    for (std::size_t column = 0; column < kLevels.size(); ++column) {
        for (int row = 0; row < kRows; ++row) {
            const QColor lit = segmentColor(row);
            painter.setBrush(row < kLevels[column] ? lit : lit.darker(700));
            painter.drawRoundedRect(QRectF(13 + static_cast<double>(column) * 8, 46 - row * 5, 6, 3.6), 0.8, 0.8);
        }
    }
}

class EmblemEngine : public QIconEngine {
public:
    void paint(QPainter *painter, const QRect &area, QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        paintEmblem(*painter, area);
    }
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }
    QList<QSize> availableSizes(QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        return {{16, 16}, {32, 32}, {48, 48}};
    }
    [[nodiscard]] QIconEngine *clone() const override { return std::make_unique<EmblemEngine>().release(); }
};

} // namespace

void paintEmblem(QPainter &painter, const QRectF &area) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(area.topLeft());
    painter.scale(area.width() / kGrid, area.height() / kGrid);
    QLinearGradient frame(0, 0, 0, kGrid);
    frame.setColorAt(0, QColor(0x7a, 0x81, 0x8a));
    frame.setColorAt(0.5, QColor(0x43, 0x48, 0x4e));
    frame.setColorAt(1, QColor(0x26, 0x29, 0x2d));
    painter.setPen(QPen(QColor(0, 0, 0, 160), 1));
    painter.setBrush(frame);
    painter.drawRoundedRect(QRectF(2, 2, 60, 60), 12, 12);
    painter.setBrush(theme::kGlass);
    painter.drawRoundedRect(QRectF(8, 9, 48, 46), 6, 6);
    paintLevels(painter);
    painter.restore();
}

QIcon emblemIcon() { return QIcon(std::make_unique<EmblemEngine>().release()); }

} // namespace tonvale
