// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/ToolbarView.h"

#include "ui/PanelButton.h"
#include "ui/children.h"
#include "ui/signs.h"
#include "ui/text.h"
#include "ui/theme.h"
#include "ui/toolbar_signs.h"

#include <QPainter>

#include <algorithm>
#include <numeric>

namespace tonvale {

namespace {

// All in device-independent pixels.
constexpr int kMargin = 4, kGapWidth = 8, kMostSpare = 18;
constexpr int kCaptionSize = 11, kCaptionHeight = 16, kCaptionPadding = 3;
constexpr int kLeastInside = 24; // of a key without a caption
constexpr double kSignSize = 19;

class ToolbarKey : public PanelButton {
public:
    ToolbarKey(QWidget *parent, const ToolbarButton &button) : PanelButton(parent), image_(button.Image) {
        setFont(theme::printFont(font(), kCaptionSize));
        setText(shown(button.Caption));
        setToolTip(shown(button.ToolTipText));
        setAccessibleName(shown(button.Caption.empty() ? button.ToolTipText : button.Caption));
        setAccessibleDescription(shown(button.ToolTipText));
        setObjectName(QStringLiteral("Toolbar1.") + shown(button.Key));
    }
    [[nodiscard]] QSize sizeHint() const override {
        return {std::max(fontMetrics().horizontalAdvance(text()), kLeastInside) + 2 * kCaptionPadding, 0};
    }

protected:
    void paintEvent(QPaintEvent * /*event*/) override {
        QPainter painter(this);
        const bool hovered = isEnabled() && underMouse(), down = isDown();
        theme::paintKey(painter, rect(), down, hovered);
        if (hasFocus()) theme::paintFocus(painter, QRectF(rect()).adjusted(1, 1, -1, -1));
        if (down) painter.translate(0, 1);
        const QColor ink = !isEnabled() ? theme::kDisabledSign : down || hovered ? theme::kLit : theme::kText;
        painter.setPen(isEnabled() ? theme::kText : theme::kDisabledText);
        painter.drawText(QRect(0, height() - kCaptionHeight - 2, width(), kCaptionHeight), Qt::AlignCenter, text());
        painter.translate(width() / 2.0, (height() - (text().isEmpty() ? 0 : kCaptionHeight)) / 2.0);
        painter.scale(kSignSize / kSignGrid, kSignSize / kSignGrid);
        paintToolbarSign(painter, image_, ink);
    }

private:
    std::string image_;
};

} // namespace

ToolbarView::ToolbarView(QWidget *parent, Toolbar &toolbar, Bindings &bindings) : QWidget(parent), toolbar_(toolbar) {
    setObjectName(QStringLiteral("Toolbar1"));
    for (ToolbarButton &button : toolbar_.Buttons) {
        if (button.kind == ToolbarButton::Kind::Separator)
            parts_.push_back({nullptr, kGapWidth});
        else
            addKey(button, bindings);
    }
}

void ToolbarView::addKey(ToolbarButton &button, Bindings &bindings) {
    auto &key = makeChild<ToolbarKey>(*this, button);
    bindings.keep(
        QObject::connect(&key, &QAbstractButton::clicked, &key, [this, &button] { toolbar_.ButtonClick(button); }));
    parts_.push_back({&key, key.sizeHint().width()});
}

void ToolbarView::resizeEvent(QResizeEvent * /*event*/) {
    const int needed =
        std::accumulate(parts_.begin(), parts_.end(), 0, [](int sum, const Part &part) { return sum + part.width; });
    const auto keys = static_cast<int>(std::ranges::count_if(parts_, [](const Part &part) { return part.key; }));
    const int spare = std::min(kMostSpare, (width() - 2 * kMargin - needed) / std::max(1, keys));
    int left = kMargin;
    for (const Part &part : parts_) {
        const int partWidth = part.width + (part.key != nullptr ? spare : 0);
        if (part.key != nullptr) part.key->setGeometry(left + 1, kMargin, partWidth - 2, height() - 2 * kMargin);
        left += partWidth;
    }
}

void ToolbarView::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    theme::paintBrushed(painter, rect());
}

} // namespace tonvale
