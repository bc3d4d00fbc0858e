// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/PanelPart.h"

#include <array>
#include <cstddef>

namespace tonvale {

// Hours, minutes and seconds in lit digits, with colons between the pairs.
class LedDigitsWidget : public PanelPart {
public:
    static constexpr std::size_t kDigits = 6;

    explicit LedDigitsWidget(QWidget *parent);
    void setDigit(std::size_t index, int value); // 0 to 9
    [[nodiscard]] QString shownValue() const override;
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    [[nodiscard]] QRectF digitArea(std::size_t index) const;
    [[nodiscard]] QRectF colonArea(std::size_t pair) const;

    std::array<int, kDigits> digits_{};
};

} // namespace tonvale
