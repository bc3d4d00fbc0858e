// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/input_codes.h"

#include "controls/Form.h"

#include <QKeyEvent>

namespace tonvale {

std::int16_t buttonsIn(Qt::MouseButtons buttons) {
    return static_cast<std::int16_t>((buttons.testFlag(Qt::LeftButton) ? kLeftButton : 0) |
                                     (buttons.testFlag(Qt::RightButton) ? kRightButton : 0) |
                                     (buttons.testFlag(Qt::MiddleButton) ? kMiddleButton : 0));
}

std::int16_t shiftIn(Qt::KeyboardModifiers modifiers) {
    constexpr std::int16_t kShift = 1, kControl = 2, kAlt = 4;
    return static_cast<std::int16_t>((modifiers.testFlag(Qt::ShiftModifier) ? kShift : 0) |
                                     (modifiers.testFlag(Qt::ControlModifier) ? kControl : 0) |
                                     (modifiers.testFlag(Qt::AltModifier) ? kAlt : 0));
}

bool isPlayStopKey(const QKeyEvent &event) {
    return event.key() == Qt::Key_Space && event.modifiers().testFlag(Qt::ControlModifier);
}

} // namespace tonvale
