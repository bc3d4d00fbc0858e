// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

#include <functional>

namespace tonvale {

// Does once, after the program's first window has been painted, what need not be done before.
class WhenOnScreen : public QObject {
public:
    explicit WhenOnScreen(std::function<void()> work);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    std::function<void()> work_;
};

} // namespace tonvale
