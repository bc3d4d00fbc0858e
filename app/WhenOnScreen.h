// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

#include <functional>

namespace tonvale {

// Does once, soon after the program's first window has come up, what neither the window nor the
// first sound must wait for.
class WhenOnScreen : public QObject {
public:
    explicit WhenOnScreen(std::function<void()> work);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    std::function<void()> work_;
};

} // namespace tonvale
