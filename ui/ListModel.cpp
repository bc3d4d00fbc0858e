// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/ListModel.h"

#include "ui/text.h"

#include <algorithm>

namespace tonvale {

namespace {

constexpr char16_t kControlPictures = 0x2400; // signs for the control characters

int toInt(std::size_t number) { return static_cast<int>(number); }

} // namespace

QString shownRow(const std::string &row) {
    const bool isCut = row.size() > ListModel::kLongestShown;
    QString text = shown(isCut ? row.substr(0, ListModel::kLongestShown) : row);
    for (QChar &c : text)
        if (c < u' ') c = QChar(kControlPictures + c.unicode());
    return isCut ? text + QChar(u'\u2026') : text;
}

ListModel::ListModel(ListBox &list) : list_(list) {
    const auto last = [](std::size_t first, std::size_t count) { return toInt(first + count) - 1; };
    connections_.push_back(list.rowsAboutToBeInserted.connect(
        [this, last](std::size_t first, std::size_t count) { beginInsertRows({}, toInt(first), last(first, count)); }));
    connections_.push_back(list.rowsInserted.connect([this](auto...) { endInsertRows(); }));
    connections_.push_back(list.rowsAboutToBeRemoved.connect(
        [this, last](std::size_t first, std::size_t count) { beginRemoveRows({}, toInt(first), last(first, count)); }));
    connections_.push_back(list.rowsRemoved.connect([this](auto...) { endRemoveRows(); }));
    connections_.push_back(list.rowsAboutToBeReset.connect([this] { beginResetModel(); }));
    connections_.push_back(list.rowsReset.connect([this] { endResetModel(); }));
    connections_.push_back(list.rowsChanged.connect([this, last](std::size_t first, std::size_t count) {
        dataChanged(index(toInt(first)), index(last(first, count)));
    }));
}

int ListModel::rowCount(const QModelIndex &parent) const { return parent.isValid() ? 0 : toInt(list_.ListCount()); }

QVariant ListModel::data(const QModelIndex &index, int role) const {
    if (role != Qt::DisplayRole || !checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    return shownRow(list_.List(static_cast<std::size_t>(index.row())));
}

} // namespace tonvale
