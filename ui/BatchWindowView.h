// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cd/BatchWindow.h"
#include "ui/FormWindow.h"

class QGridLayout;

namespace tonvale {

class ListBoxView;

// A window that converts a list of files. It lays itself out.
class BatchWindowView : public FormWindow {
public:
    explicit BatchWindowView(BatchWindow &model);

private:
    [[nodiscard]] QWidget &makeMenuBar();
    [[nodiscard]] QWidget &makeToolbar();
    [[nodiscard]] QWidget &makeFront();
    [[nodiscard]] QWidget &makeStatus();
    void addGauge(QGridLayout &grid);

    BatchWindow &model_;
    ListBoxView *list_ = nullptr;
};

} // namespace tonvale
