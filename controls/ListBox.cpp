// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/ListBox.h"

#include "controls/Errors.h"

#include <iterator>

namespace tonvale {

void ListBox::checkIndex(std::size_t index) const {
    if (index >= rows_.size()) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
}

const std::string &ListBox::List(std::size_t index) const {
    checkIndex(index);
    return rows_[index].text;
}

void ListBox::AddItem(std::string text) { AddItem(std::move(text), rows_.size()); }

void ListBox::AddItem(std::string text, std::size_t before) {
    if (before > rows_.size()) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    rowsAboutToBeInserted(before, 1);
    rows_.insert(std::next(rows_.begin(), static_cast<std::ptrdiff_t>(before)), Row{std::move(text)});
    rowsInserted(before, 1);
}

void ListBox::AddItems(std::vector<std::string> texts) {
    if (texts.empty()) return;
    const std::size_t first = rows_.size();
    rowsAboutToBeInserted(first, texts.size());
    rows_.reserve(first + texts.size());
    for (std::string &text : texts) rows_.push_back(Row{std::move(text)});
    rowsInserted(first, texts.size());
}

void ListBox::setItem(std::size_t index, std::string text) {
    checkIndex(index);
    rows_[index].text = std::move(text);
    rowsChanged(index, 1);
}

void ListBox::RemoveItem(std::size_t index) {
    if (index >= rows_.size()) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    rowsAboutToBeRemoved(index, 1);
    rows_.erase(std::next(rows_.begin(), static_cast<std::ptrdiff_t>(index)));
    rowsRemoved(index, 1);
}

void ListBox::Clear() {
    const std::size_t count = rows_.size();
    if (count == 0) return;
    rowsAboutToBeRemoved(0, count);
    rows_.clear();
    rowsRemoved(0, count);
}

bool ListBox::Selected(std::size_t index) const {
    checkIndex(index);
    return rows_[index].selected;
}

void ListBox::Selected(std::size_t index, bool selected) {
    checkIndex(index);
    if (rows_[index].selected == selected) return;
    rows_[index].selected = selected;
    rowsChanged(index, 1);
}

} // namespace tonvale
