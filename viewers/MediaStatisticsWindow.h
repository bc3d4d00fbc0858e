// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Controls.h"
#include "controls/Loop.h"
#include "viewers/MediaDialogWindow.h"

#include <array>
#include <cstddef>

namespace tonvale {

// What is known of the media that play, kept up to date while it is shown.
class MediaStatisticsWindow : public MediaDialogWindow {
public:
    struct Row {
        Label Name, Value;
    };
    static constexpr std::size_t kRowCount = 10;

    explicit MediaStatisticsWindow(Application &app);

    std::array<Row, kRowCount> Rows;
    CommandButton Command1{"&Close"};

private:
    void showMedia() override;

    Timer Timer1;
    Connection visible_;
};

} // namespace tonvale
