// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <Qt>
#include <QtGlobal>

#include <cstdint>

class QKeyEvent;

namespace tonvale {

// Buttons and keys as the handlers of a form are told them.
[[nodiscard]] std::int16_t buttonsIn(Qt::MouseButtons buttons);      // kLeftButton ... or their sum
[[nodiscard]] std::int16_t shiftIn(Qt::KeyboardModifiers modifiers); // 1 Shift, 2 Control, 4 Alt, or their sum

// Control and the space bar: the keyboard hook hears it from anywhere, so no part with the focus may act on it, too.
[[nodiscard]] bool isPlayStopKey(const QKeyEvent &event);

} // namespace tonvale
