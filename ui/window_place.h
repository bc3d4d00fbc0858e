// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPoint>

#include <optional>

class QWidget;

namespace tonvale {

// What the desktop's title bar counts for in a form's height, in pixels; how high it really is, is
// up to the window manager.
inline constexpr int kNominalTitleHeight = 22;

// How many twips from the left a form is while nobody has placed it. No handler gives parts of a twip, so
// that any place, the corner of the screen included, can be told from this.
inline constexpr double kNowhere = 0.25;

// The place nearest to `place` at which a mouse can get hold of the window's title.
[[nodiscard]] QPoint reachablePlace(const QWidget &window, QPoint place);

// Where a window comes up that nobody has placed: in the middle of the window of ours that has the
// focus. Where none has, that is the window manager's to say; it keeps two players apart.
[[nodiscard]] std::optional<QPoint> firstPlace(const QWidget &window);

} // namespace tonvale
