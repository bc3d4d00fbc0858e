// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cd/BatchWindow.h"
#include "cd/register.h"
#include "tests/unit/fakes/World.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <ostream>
#include <string>

namespace tonvale::test {

// What a batch window is expected to say and do in its own way.
struct BatchTwin {
    FormSlot Application::*slot;
    std::string name, caption, introduction;
    std::string rest, stop; // captions of ConvertMenu
    std::string convertToolTip;
    std::string addTitle, addFilter, directoryKey, folderTitle;
    std::string converting, stopped, finished;
    std::string nothingSelected, failed;
    std::string source, result; // extensions

    friend std::ostream &operator<<(std::ostream &out, const BatchTwin &twin) { return out << twin.name; }
};

// clang-format off
inline const BatchTwin kEncodeTwin{
    &Application::frmEncode, "frmEncode", "Convert WAV to MP3",
    "To begin, mark the files you want to encode by selecting \"Add File(s) to List\" from the toolbar or \"Add\" from the Edit menu.  Once the desired files are in your list, choose \"Encode\" from the toolbar or File menu to process the files.",
    "&Encode", "&Stop Encoding", "Encode / Stop Encoding Toggle",
    "Select File(s) to encode:", "WAV Files (16-bit)|*.wav", "Common Dialog Dir 398", "Select Folder for MP3 Output:",
    "Currently Encoding File:  ", "Encode process has been stopped.", "The file list has been successfully encoded.",
    "No files are currently selected to remove from the encode list.  \r\n\r\nIf you wish to remove files from the list, select the files to remove before proceeding.",
    "An error occurred while attempting to encode file: Invalid, missing, or inappropriate source audio file.",
    ".wav", ".mp3"};
inline const BatchTwin kDecodeTwin{
    &Application::frmDecode, "frmDecode", "Convert MP3 to WAV",
    "To begin, mark the files you want to decode by selecting \"Add File(s) to List\" from the toolbar or \"Add\" from the Edit menu.  Once the desired files are in your list, choose \"Decode\" from the toolbar or File menu to process the files.",
    "&Decode", "&Stop Decoding", "Decode / Stop Decoding Toggle",
    "Select File(s) to Decode:", "MP3 Files|*.mp3;*.mp2", "Common Dialog Dir 399", "Select Folder for WAV Output:",
    "Currently Decoding File:  ", "Decode process has been stopped.", "The file list has been successfully decoded.",
    "No files are currently selected to remove from the decode list.  \r\n\r\nIf you wish to remove files from the list, select the files to remove before proceeding.",
    "An error occurred while attempting to decode file: Invalid, missing, or inappropriate source audio file.",
    ".mp3", ".wav"};
// clang-format on

// A running program with a batch window open, and short words for what users do with it.
class BatchSteps : public testing::Test {
protected:
    explicit BatchSteps(const BatchTwin &expected) : twin(expected) {}

    const BatchTwin &twin;
    World world;

    // Opens the window; the notice has been seen before.
    BatchWindow &open(const std::string &commandLine = {}) {
        world.setSetting("ShowMsg222", "False");
        world.start(commandLine);
        registerConversionWindows(world.app());
        show();
        return window();
    }
    BatchWindow &openWith(const Texts &rows) {
        open().List1.AddItems(rows);
        return window();
    }
    void show() {
        slot().form().Show();
        world.runUntilIdle();
        world.log.clear();
    }
    FormSlot &slot() { return world.app().*twin.slot; }
    BatchWindow &window() { return static_cast<BatchWindow &>(slot().form()); }

    void click(Event<> &event) {
        event();
        world.runUntilIdle();
    }
    void pushToolbar(const std::string &key) {
        for (const ToolbarButton &button : window().Toolbar1.Buttons)
            if (button.Key == key) window().Toolbar1.ButtonClick(button);
        world.runUntilIdle();
    }
    void answerDialog(const std::string &file) { world.dialogs.answers.push_back({1, file, "x"}); }
    void answerDialogWithSeveral(const std::string &folder, const Texts &names) {
        std::string text = folder;
        for (const std::string &name : names) text += '\0' + name;
        world.dialogs.answers.push_back({1, text, ""});
    }
    void addByDialog(const std::string &file) {
        answerDialog(file);
        click(window().AddMenu.Click);
    }
    void select(std::initializer_list<std::size_t> rows) {
        for (const std::size_t row : rows) window().List1.Selected(row, true);
    }
    // The command, with this folder chosen.
    void convertInto(const std::string &folder) {
        world.dialogs.folder = folder;
        click(window().ConvertMenu.Click);
    }
    void stop() { click(window().ConvertMenu.Click); }
    // The file in work is complete.
    void finish() {
        world.codecs.finish();
        world.runUntilIdle();
    }
    void progress(std::int32_t position) {
        world.codecs.progress(position);
        world.runUntilIdle();
    }

    // Files of the kind that this window converts.
    [[nodiscard]] std::string source(const std::string &name) const { return "/music/" + name + twin.source; }
    [[nodiscard]] std::string result(const std::string &name) const { return "/out/" + name + twin.result; }
    [[nodiscard]] std::string inWork(const std::string &path, const std::string &count) const {
        return twin.converting + path + " (" + count + ")";
    }
    [[nodiscard]] Texts rows() {
        Texts result;
        for (std::size_t i = 0; i < window().List1.ListCount(); ++i) result.push_back(window().List1.List(i));
        return result;
    }
    [[nodiscard]] std::vector<std::size_t> selectedRows() {
        std::vector<std::size_t> result;
        for (std::size_t i = 0; i < window().List1.ListCount(); ++i)
            if (window().List1.Selected(i)) result.push_back(i);
        return result;
    }
    [[nodiscard]] std::string status() { return window().Label1.Caption; }
    [[nodiscard]] Texts calls() { return world.log.of({"codec.", "files."}); }
    [[nodiscard]] Texts opened() { return world.log.of({"codec.open"}); }

    [[nodiscard]] bool isEditing() {
        return window().ConvertMenu.Caption == twin.rest && window().List1.Enabled && !window().RunActive;
    }
    [[nodiscard]] bool isConverting() {
        return window().ConvertMenu.Caption == twin.stop && !window().List1.Enabled && window().RunActive;
    }
    [[nodiscard]] bool isStalled() {
        return window().ConvertMenu.Caption == twin.stop && !window().List1.Enabled && !window().RunActive;
    }
    void expectBox(const std::string &text, BoxIcon icon = BoxIcon::Information,
                   const std::string &title = "Orvane Tonvale") {
        ASSERT_FALSE(world.boxes.shown.empty()) << "no box: " << text;
        const MessageBox &box = world.boxes.last();
        EXPECT_EQ(box.text, text);
        EXPECT_EQ(box.icon, icon);
        EXPECT_EQ(box.place, BoxPlace::Foreground);
        EXPECT_EQ(box.buttons, BoxButtons::Ok);
        EXPECT_EQ(box.title, title);
    }
    void expectNoBox() { EXPECT_TRUE(world.boxes.shown.empty()) << world.boxes.last().text; }
};

// For what holds for both windows, and for what only one of them does.
class BatchTest : public BatchSteps, public testing::WithParamInterface<BatchTwin> {
protected:
    BatchTest() : BatchSteps(GetParam()) {}
};
class EncodeTest : public BatchSteps {
protected:
    EncodeTest() : BatchSteps(kEncodeTwin) {}
};
class DecodeTest : public BatchSteps {
protected:
    DecodeTest() : BatchSteps(kDecodeTwin) {}
};

inline std::string twinName(const testing::TestParamInfo<BatchTwin> &info) { return info.param.name; }

inline constexpr const char *kStopFirst =
    "If you wish to adjust the list, you must stop the currently running process beforehand.";

} // namespace tonvale::test
