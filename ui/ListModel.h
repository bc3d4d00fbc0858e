// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/ListBox.h"
#include "controls/Signal.h"

#include <QAbstractListModel>

#include <vector>

namespace tonvale {

// Shows the rows of a list box to the toolkit without a copy of them.
class ListModel : public QAbstractListModel {
public:
    explicit ListModel(ListBox &list);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;

    // The part of a row that is shown and measured: nobody reads a line of a megabyte.
    static constexpr std::size_t kLongestShown = 4096;

private:
    ListBox &list_;
    std::vector<Connection> connections_;
};

// A row as it is shown, on one line.
[[nodiscard]] QString shownRow(const std::string &row);

} // namespace tonvale
