// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/DialogView.h"
#include "viewers/MediaOptionsWindow.h"

class QGridLayout;

namespace tonvale {

class MediaOptionsView : public DialogView {
public:
    explicit MediaOptionsView(MediaOptionsWindow &form);

private:
    void addAdjustment(QGridLayout &grid, MediaOptionsWindow::Adjustment &adjustment, const char *name);
    void addChoice(QGridLayout &grid, Label &label, ComboBox &box, const char *name);
    QWidget &addName(QGridLayout &grid, Label &label, QWidget &named);
    void addRule(QGridLayout &grid);

    MediaOptionsWindow &model_;
};

} // namespace tonvale
