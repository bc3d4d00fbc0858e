// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/ListBox.h"
#include "core/Application.h"
#include "desktop/clsCommonDialog.h"

#include <cstdint>
#include <string>

// What windows with a list of paths do with its rows.

namespace tonvale {

// What differs between the dialogs by which files are added.
struct AddDialog {
    const char *title, *filter;
    const char *directoryKey; // the setting with the folder that it opens in
};

// Lets the user choose existing files. What `open` has as its FileName then is for addFiles;
// empty: none.
void chooseFiles(Application &app, clsCommonDialog &open, const AddDialog &dialog);
// Keeps the directory of what was chosen; of several names that is their folder's parent.
void rememberDirectory(Application &app, const std::string &chosen, const char *key);

// The lines of a list file, but for empty ones, as new last rows. What cannot be read is left out.
void appendRows(Application &app, ListBox &list, const std::string &path);

// One path, or a folder, a zero character, and the names in it with one between each two.
void addFiles(ListBox &list, const std::string &chosen);

// Selects what takes the place of the uppermost row that went, or the last row. Where nothing was
// selected, that is the first row.
void removeSelectedRows(ListBox &list);

// The row with the focus changes places with its neighbour, and goes round at either end.
enum class MoveRow { Up, Down };
void moveFocusedRow(ListBox &list, MoveRow direction);

// In twips.
[[nodiscard]] std::int32_t widestRow(const ListBox &list);
// How far rows of this width (twips) can be scrolled, in pixels.
[[nodiscard]] std::int32_t scrollExtent(std::int32_t width);

// While the pointer is over a row with no button down, the tool tip is the row's text.
void showRowUnderPointer(ListBox &list, std::int16_t button, double x, double y);

} // namespace tonvale
