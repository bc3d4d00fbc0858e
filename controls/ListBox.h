// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Controls.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tonvale {

// Rows of text, any number of which can be selected, and one of which can have the focus.
// Structural changes are announced before and after they happen, so that a view can follow them.
class ListBox : public Control {
public:
    Event<> Click, GotFocus;
    Event<std::int16_t, double, double> MouseMove, MouseUp;               // button, x, y (twips)
    Signal<std::size_t, std::size_t> rowsAboutToBeInserted, rowsInserted; // first row, how many
    Signal<std::size_t, std::size_t> rowsAboutToBeRemoved, rowsRemoved;
    Signal<> rowsAboutToBeReset, rowsReset; // for changes in too many places to tell them one by one
    Signal<std::size_t, std::size_t> rowsChanged;
    Signal<std::size_t, std::size_t> selectionChanged; // rows among which it has

    [[nodiscard]] std::size_t ListCount() const { return rows_.size(); }
    [[nodiscard]] const std::string &List(std::size_t index) const;
    void AddItem(std::string text);
    void AddItem(std::string text, std::size_t before);
    void AddItems(std::vector<std::string> texts);
    void setItem(std::size_t index, std::string text);
    void RemoveItem(std::size_t index);
    // Returns the lowest row that was removed.
    std::optional<std::size_t> RemoveSelected();
    void Clear();

    [[nodiscard]] bool Selected(std::size_t index) const;
    // Selecting a row gives it the focus.
    void Selected(std::size_t index, bool selected);
    [[nodiscard]] std::size_t SelCount() const;
    void ClearSelection();

    // The row that has the focus, -1: none. It goes with its row when others come and go.
    Property<std::int32_t> ListIndex{-1};
    Property<std::int32_t> HorizontalExtent{0}; // pixels that can be scrolled into view

    // For the view: these rows are selected or not now, by the user's hand. Click is not raised.
    void userSelected(std::size_t first, std::size_t count, bool selected);
    // What the view knows and the model asks for; without a view nothing has a width, and no place
    // is one of a row.
    std::function<std::int32_t(const std::string &)> textWidth;                // twips
    std::function<std::int32_t(std::int32_t x, std::int32_t y)> itemFromPoint; // pixels; -1: no row
    [[nodiscard]] std::int32_t TextWidth(const std::string &text) const { return textWidth ? textWidth(text) : 0; }
    [[nodiscard]] std::int32_t ItemFromPoint(std::int32_t x, std::int32_t y) const {
        return itemFromPoint ? itemFromPoint(x, y) : -1;
    }

private:
    struct Row {
        std::string text;
        bool selected = false;
    };
    struct Range {
        std::size_t first, count;
    };
    void checkIndex(std::size_t index) const;
    void erase(Range range);
    void focusAfterRemoval(Range range);
    [[nodiscard]] std::vector<Range> selectedRanges() const;
    void removeSelectedAtOnce();

    std::vector<Row> rows_;
};

} // namespace tonvale
