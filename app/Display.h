// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QApplication>

#include <thread>

namespace tonvale {

// The toolkit, with this program's look. Where there is no display the process ends here with one
// line on standard error.
class Display {
public:
    explicit Display(char *programName);

private:
    // The configuration of the fonts is long; it is read while the toolkit connects to the display.
    std::jthread fonts_;
    int argumentCount_ = 1;
    char *arguments_[2];
    QApplication application_;
};

} // namespace tonvale
