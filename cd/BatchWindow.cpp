// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cd/BatchWindow.h"

#include "cd/register.h"
#include "controls/Numbers.h"
#include "controls/Screen.h"

#include <algorithm>

namespace tonvale {

namespace {

constexpr const char *kStopFirst =
    "If you wish to adjust the list, you must stop the currently running process beforehand.";
constexpr const char *kNothingToRemove = "No files are currently in your list to remove.";
constexpr const char *kNoticeTitle = "Important Note:";
constexpr const char *kNotice =
    "This feature works correctly only on 16-bit, true wave audio.  If your WAV file is not 16-bit, this option will "
    "not product a valid MP3 file.  \r\n\r\n"
    "It is very simple to convert your existing WAV file to 16-bit using the Batch WAV Conversion module.  \r\n\r\n"
    "However, lesser quality WAV files are usually much smaller in size; therefore the MP3 conversion most often will "
    "not reduce the size much as the quality has already been decreased.";

constexpr double kDesignWidth = 460 * kTwipsPerPixel, kDesignHeight = 360 * kTwipsPerPixel;

ToolbarButton gap(const char *key) { return {key, "", "", ToolbarButton::Kind::Separator}; }

std::vector<ToolbarButton> toolbarButtons(const BatchVariant &variant) {
    return {{"Add", "", "Add Files to List"},
            {"Remove", "", "Remove File(s) from List"},
            gap("sep1"),
            {"Convert", "", variant.convertToolTip},
            gap("sep2"),
            {"Exit", "", "Exit"}};
}

} // namespace

BatchWindow::BatchWindow(Application &app, const BatchVariant &variant)
    : Form(app.forms, variant.name), Toolbar1(toolbarButtons(variant)), Label1(variant.introduction),
      ConvertMenu(variant.convertCaption), app_(app), variant_(variant), codec_(variant.makeCodec(app.services)) {
    Caption = variant.caption;
    BorderStyle = tonvale::BorderStyle::Sizable;
    Width = kDesignWidth;
    Height = kDesignHeight;
    arrangeMenus();
    connectMenus();
    connectParts();
}

BatchWindow::~BatchWindow() = default;

void BatchWindow::arrangeMenus() {
    FileMenu.children = {&ConvertMenu, &fileSeparator_, &ExitMenu};
    EditMenu.children = {&AddMenu, &RemoveMenu, &editSeparator_, &MoveUpMenu, &MoveDownMenu};
    menuBar_ = {&FileMenu, &EditMenu};
    ConvertMenu.Shortcut = "F5";
    ExitMenu.Shortcut = "Ctrl+X";
    AddMenu.Shortcut = "Ctrl+A";
    RemoveMenu.Shortcut = "Del";
    MoveUpMenu.Shortcut = "Ctrl+U";
    MoveDownMenu.Shortcut = "Ctrl+D";
}

void BatchWindow::connectMenus() {
    ConvertMenu.Click = handler([this] { ConvertMenu_Click(); });
    ExitMenu.Click = handler([this] { Unload(); });
    EditMenu.Click = handler([this] { EditMenu_Click(); });
    AddMenu.Click = handler([this] { AddMenu_Click(); });
    RemoveMenu.Click = handler([this] { RemoveMenu_Click(); });
    MoveUpMenu.Click = handler([this] { moveRow(MoveRow::Up); });
    MoveDownMenu.Click = handler([this] { moveRow(MoveRow::Down); });
}

void BatchWindow::connectParts() {
    Toolbar1.ButtonClick = handler([this](const ToolbarButton &button) { Toolbar1_ButtonClick(button.Key); });
    List1.MouseMove =
        handler([this](std::int16_t button, double x, double y) { showRowUnderPointer(List1, button, x, y); });
    codec_->progress = handler([this](std::int32_t position) { codecProgress(position); });
    codec_->done = handler([this] { codecDone(); });
}

void BatchWindow::Form_Load() {
    for (ToolbarButton &button : Toolbar1.Buttons)
        if (button.kind == ToolbarButton::Kind::Button) button.Image = button.Key;
    if (variant_.noticeKey != nullptr) showNotice();
}

void BatchWindow::showNotice() {
    bool due = true;
    attempt([&] { due = textToBoolean(app_.setting(variant_.noticeKey, booleanToText(true))); });
    if (!due) return;
    app_.box(kNotice, BoxIcon::Information, BoxPlace::Foreground, BoxButtons::Ok, kNoticeTitle);
    attempt([&] { app_.saveSetting(variant_.noticeKey, booleanToText(false)); });
}

// What runs ends with its window; a box that is still up finds nothing to go on with.
void BatchWindow::Form_Unload(std::int16_t & /*cancel*/) {
    RunActive = false;
    codec_->stop();
}

// AddMenu stays disabled once the menu has been opened during a run.
void BatchWindow::EditMenu_Click() {
    if (!List1.Enabled) {
        for (MenuEntry *entry : {&AddMenu, &RemoveMenu, &MoveUpMenu, &MoveDownMenu}) entry->Enabled = false;
        return;
    }
    const std::size_t selected = List1.SelCount();
    for (MenuEntry *entry : {&MoveUpMenu, &MoveDownMenu}) entry->Enabled = selected == 1;
    RemoveMenu.Enabled = selected > 0;
}

// Whether the menu entry is enabled does not count here, but for Remove.
void BatchWindow::Toolbar1_ButtonClick(const std::string &key) {
    if (key == "Add") AddMenu_Click();
    if (key == "Remove") removeFromToolbar();
    if (key == "Convert") ConvertMenu_Click();
    if (key == "Exit") Unload();
}

bool BatchWindow::mayEdit() {
    if (!List1.Enabled) tell(kStopFirst);
    return List1.Enabled;
}

void BatchWindow::AddMenu_Click() {
    if (!mayEdit()) return;
    if (!CommonDialog) CommonDialog = std::make_unique<clsCommonDialog>(app_.services.dialogs);
    chooseFiles(app_, *CommonDialog, variant_.addDialog);
    const std::string &chosen = CommonDialog->FileName;
    if (chosen.empty()) return;
    rememberDirectory(app_, chosen, variant_.addDialog.directoryKey);
    addFiles(List1, chosen);
    MaxRowExtent = std::max(MaxRowExtent, scrollExtent(widestRow(List1)));
    List1.HorizontalExtent = MaxRowExtent;
}

void BatchWindow::RemoveMenu_Click() {
    if (!mayEdit()) return;
    if (List1.ListCount() == 0)
        tell(kNothingToRemove);
    else
        removeSelectedRows(List1);
}

void BatchWindow::removeFromToolbar() {
    if (RemoveMenu.Enabled)
        RemoveMenu_Click();
    else
        tell(variant_.nothingSelected);
}

void BatchWindow::moveRow(MoveRow direction) {
    if (mayEdit()) moveFocusedRow(List1, direction);
}

void BatchWindow::tell(const std::string &text) { app_.box(text, BoxIcon::Information, BoxPlace::Foreground); }

void registerConversionWindows(Application &app) {
    app.frmEncode.setFactory([&app] { return std::make_unique<BatchWindow>(app, kEncode); });
    app.frmDecode.setFactory([&app] { return std::make_unique<BatchWindow>(app, kDecode); });
}

} // namespace tonvale
