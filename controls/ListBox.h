// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Controls.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tonvale {

// Rows of text, any number of which can be selected. Structural changes are announced before and
// after they happen, so that a view can follow them.
class ListBox : public Control {
public:
    Event<> Click, DblClick;
    Signal<std::size_t, std::size_t> rowsAboutToBeInserted, rowsInserted; // first row, how many
    Signal<std::size_t, std::size_t> rowsAboutToBeRemoved, rowsRemoved;
    Signal<std::size_t, std::size_t> rowsChanged;

    [[nodiscard]] std::size_t ListCount() const { return rows_.size(); }
    [[nodiscard]] const std::string &List(std::size_t index) const;
    void AddItem(std::string text);
    void AddItem(std::string text, std::size_t before);
    void AddItems(std::vector<std::string> texts);
    void setItem(std::size_t index, std::string text);
    void RemoveItem(std::size_t index);
    void Clear();
    [[nodiscard]] bool Selected(std::size_t index) const;
    void Selected(std::size_t index, bool selected);

    Property<std::int32_t> ListIndex{-1}; // the row that has the focus; -1: none

private:
    struct Row {
        std::string text;
        bool selected = false;
    };
    void checkIndex(std::size_t index) const;
    std::vector<Row> rows_;
};

} // namespace tonvale
