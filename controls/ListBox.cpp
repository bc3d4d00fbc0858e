// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/ListBox.h"

#include "controls/Errors.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tonvale {

namespace {

// Removing a range moves all rows behind it; beyond these a view is better off looking anew.
constexpr std::size_t kFewRanges = 16;

// Before anything is announced, since there may be no room. Twice as much each time, so that adding
// bit by bit does not copy all rows at every bit.
template <class Rows> void makeRoom(Rows &rows, std::size_t count) {
    const std::size_t needed = rows.size() + count;
    if (needed > rows.capacity()) rows.reserve(rows.empty() ? needed : std::max(needed, 2 * rows.capacity()));
}

std::ptrdiff_t offset(std::size_t index) { return static_cast<std::ptrdiff_t>(index); }

} // namespace

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
    makeRoom(rows_, 1);
    rowsAboutToBeInserted(before, 1);
    rows_.insert(rows_.begin() + offset(before), Row{std::move(text)});
    if (ListIndex >= 0 && before <= static_cast<std::size_t>(ListIndex)) ListIndex = ListIndex + 1;
    rowsInserted(before, 1);
}

void ListBox::AddItems(std::vector<std::string> texts) {
    if (texts.empty()) return;
    const std::size_t first = rows_.size();
    makeRoom(rows_, texts.size());
    rowsAboutToBeInserted(first, texts.size());
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
    erase({index, 1});
}

void ListBox::Clear() {
    if (!rows_.empty()) erase({0, rows_.size()});
}

void ListBox::erase(Range range) {
    rowsAboutToBeRemoved(range.first, range.count);
    const auto begin = rows_.begin() + offset(range.first);
    rows_.erase(begin, begin + offset(range.count));
    focusAfterRemoval(range);
    rowsRemoved(range.first, range.count);
}

void ListBox::focusAfterRemoval(Range range) {
    if (ListIndex < 0) return;
    auto focus = static_cast<std::size_t>(ListIndex);
    if (focus >= range.first) focus = std::max(range.first, focus - std::min(focus, range.count));
    ListIndex = static_cast<std::int32_t>(std::min(focus + 1, rows_.size())) - 1;
}

std::vector<ListBox::Range> ListBox::selectedRanges() const {
    std::vector<Range> ranges;
    const auto isSelected = [](const Row &row) { return row.selected; };
    for (auto begin = rows_.begin(); begin != rows_.end();) {
        begin = std::find_if(begin, rows_.end(), isSelected);
        const auto end = std::find_if_not(begin, rows_.end(), isSelected);
        if (begin != end)
            ranges.push_back({static_cast<std::size_t>(begin - rows_.begin()), static_cast<std::size_t>(end - begin)});
        begin = end;
    }
    return ranges;
}

std::optional<std::size_t> ListBox::RemoveSelected() {
    const std::vector<Range> ranges = selectedRanges();
    if (ranges.empty()) return std::nullopt;
    if (ranges.size() > kFewRanges)
        removeSelectedAtOnce();
    else
        for (auto range = ranges.rbegin(); range != ranges.rend(); ++range) erase(*range);
    return ranges.front().first;
}

void ListBox::removeSelectedAtOnce() {
    rowsAboutToBeReset();
    std::size_t focus = 0, row = 0;
    std::erase_if(rows_, [&](const Row &candidate) {
        if (!candidate.selected && ListIndex >= 0 && row < static_cast<std::size_t>(ListIndex)) ++focus;
        ++row;
        return candidate.selected;
    });
    if (ListIndex >= 0) ListIndex = static_cast<std::int32_t>(std::min(focus + 1, rows_.size())) - 1;
    rowsReset();
}

bool ListBox::Selected(std::size_t index) const {
    checkIndex(index);
    return rows_[index].selected;
}

void ListBox::Selected(std::size_t index, bool selected) {
    checkIndex(index);
    if (selected) ListIndex = static_cast<std::int32_t>(index);
    if (std::exchange(rows_[index].selected, selected) != selected) selectionChanged(index, 1);
}

std::size_t ListBox::SelCount() const {
    return static_cast<std::size_t>(std::ranges::count_if(rows_, [](const Row &row) { return row.selected; }));
}

void ListBox::ClearSelection() {
    userSelected(0, rows_.size(), false);
    if (!rows_.empty()) selectionChanged(0, rows_.size());
}

void ListBox::userSelected(std::size_t first, std::size_t count, bool selected) {
    const std::size_t end = std::min(rows_.size(), first + count);
    for (std::size_t i = first; i < end; ++i) rows_[i].selected = selected;
}

} // namespace tonvale
