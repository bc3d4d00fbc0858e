// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/DialogView.h"
#include "viewers/MediaStatisticsWindow.h"

namespace tonvale {

class MediaStatisticsView : public DialogView {
public:
    explicit MediaStatisticsView(MediaStatisticsWindow &form);

private:
    void fill(QWidget &glass);

    MediaStatisticsWindow &model_;
};

} // namespace tonvale
