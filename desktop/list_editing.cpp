// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/list_editing.h"

#include "controls/Numbers.h"
#include "controls/Screen.h"
#include "desktop/folder_names.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace tonvale {

namespace {

constexpr std::int32_t kAddFlags = kDialogLongNames | kDialogExplorer | kDialogFileMustExist | kDialogPathMustExist |
                                   kDialogAllowMultiselect | kDialogNoChangeDir | kDialogHideReadOnly;
constexpr std::int32_t kAddCapacity = 8096; // bytes
constexpr std::int32_t kTwips = static_cast<std::int32_t>(kTwipsPerPixel);
constexpr std::int32_t kExtentMargin = 20; // pixels

void addSeveral(ListBox &list, const std::string &chosen) {
    std::size_t begin = chosen.find('\0');
    const std::string folder = withSeparator(chosen.substr(0, begin));
    std::vector<std::string> rows;
    while (++begin < chosen.size()) {
        const std::size_t end = std::min(chosen.find('\0', begin), chosen.size());
        if (end == begin) break;
        rows.push_back(folder + chosen.substr(begin, end - begin));
        begin = end;
    }
    list.AddItems(std::move(rows));
}

std::size_t placeAfterMove(std::size_t row, MoveRow direction, std::size_t rowsLeft) {
    if (direction == MoveRow::Up) return row == 0 ? rowsLeft : row - 1;
    return row == rowsLeft ? 0 : row + 1;
}

} // namespace

void chooseFiles(Application &app, clsCommonDialog &open, const AddDialog &dialog) {
    open.CancelError = false;
    open.DialogTitle = dialog.title;
    open.FileName = "";
    open.Filter = dialog.filter;
    open.FilterIndex = 1;
    open.Flags = kAddFlags;
    resumeNext(app.Err,
               [&] { open.InitDir = app.setting(dialog.directoryKey, app.services.files.currentDirectory()); });
    open.MaxFileSize = kAddCapacity;
    resumeNext(app.Err, [&] { open.ShowOpen(); });
}

void rememberDirectory(Application &app, const std::string &chosen, const char *key) {
    app.paths.ParsePath(chosen, "");
    resumeNext(app.Err, [&] { app.saveSetting(key, app.paths.ParsedDirectory); });
}

void appendRows(Application &app, ListBox &list, const std::string &path) {
    std::vector<std::string> rows;
    const auto read = [&] {
        const auto lines = app.services.files.openLines(path);
        while (auto line = lines->next())
            if (!line->empty()) rows.push_back(std::move(*line));
    };
    resumeNext(app.Err, read, [&] { list.AddItems(std::move(rows)); });
}

void addFiles(ListBox &list, const std::string &chosen) {
    if (chosen.find('\0') != std::string::npos)
        addSeveral(list, chosen);
    else
        list.AddItem(chosen);
}

void removeSelectedRows(ListBox &list) {
    const std::size_t lowest = list.RemoveSelected().value_or(0);
    if (list.ListCount() > 0) list.Selected(std::min(lowest, list.ListCount() - 1), true);
}

void moveFocusedRow(ListBox &list, MoveRow direction) {
    const auto row = static_cast<std::size_t>(list.ListIndex.get());
    const std::string text = list.List(row);
    list.RemoveItem(row);
    const std::size_t place = placeAfterMove(row, direction, list.ListCount());
    list.AddItem(text, place);
    list.Selected(place, true);
}

std::int32_t widestRow(const ListBox &list) {
    std::int32_t widest = 0;
    for (std::size_t i = 0; i < list.ListCount(); ++i) widest = std::max(widest, list.TextWidth(list.List(i)));
    return widest;
}

std::int32_t scrollExtent(std::int32_t width) { return width / kTwips + kExtentMargin; }

void showRowUnderPointer(ListBox &list, std::int16_t button, double x, double y) {
    if (button != 0) return;
    const std::int32_t row = list.ItemFromPoint(toInt32(x) / kTwips, toInt32(y) / kTwips);
    const bool isOutside = row < 0 || static_cast<std::size_t>(row) >= list.ListCount();
    list.ToolTipText = isOutside ? std::string() : list.List(static_cast<std::size_t>(row));
}

} // namespace tonvale
