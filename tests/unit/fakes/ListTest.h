// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "playlists/AudioListEngine.h"
#include "playlists/PlaylistWindow.h"
#include "playlists/register.h"
#include "tests/unit/fakes/World.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace tonvale::test {

// A running program with its audio list open, and short words for what users do with it.
class ListTest : public testing::Test {
protected:
    World world;

    // Opens the window anew; it is empty.
    PlaylistWindow &open() {
        world.start();
        registerPlaylistWindows(world.app());
        world.app().frmPlayList->Show();
        world.runUntilIdle();
        world.log.clear();
        return list();
    }
    PlaylistWindow &openWith(const Texts &rows) {
        open().List1.AddItems(rows);
        list().List1.Click();
        return list();
    }
    PlaylistWindow &list() { return static_cast<PlaylistWindow &>(*world.app().frmPlayList); }
    AudioListEngine &engine() { return static_cast<AudioListEngine &>(list().engine()); }
    [[nodiscard]] bool isOpen() { return world.app().frmPlayList.isLoaded(); }

    void click(Event<> &event) {
        event();
        world.runUntilIdle();
    }
    void play() { click(list().playmenu.Click); }
    void press(std::int32_t keyCode) {
        world.keyboard.press(keyCode);
        world.runUntilIdle();
    }
    void pushToolbar(const std::string &key) {
        for (const ToolbarButton &button : list().Toolbar1.Buttons)
            if (button.Key == key) list().Toolbar1.ButtonClick(button);
        world.runUntilIdle();
    }
    // The item that plays has come to its end.
    void finish() {
        world.media.finish();
        world.runUntilIdle();
    }
    // The user clicks a row, alone or with Control held.
    void select(std::initializer_list<std::size_t> rows) {
        for (const std::size_t row : rows) list().List1.Selected(row, true);
        list().List1.Click();
    }
    // During the next pause between two items, once.
    void duringThePause(std::function<void()> action) {
        world.loop.post([action = std::move(action)] { action(); });
    }
    void answerDialog(const std::string &file) { world.dialogs.answers.push_back({1, file, "x"}); }
    void answerDialogWithSeveral(const std::string &folder, const Texts &names) {
        std::string text = folder;
        for (const std::string &name : names) text += '\0' + name;
        world.dialogs.answers.push_back({1, text, ""});
    }

    [[nodiscard]] Texts rows() {
        Texts result;
        for (std::size_t i = 0; i < list().List1.ListCount(); ++i) result.push_back(list().List1.List(i));
        return result;
    }
    [[nodiscard]] std::vector<std::size_t> selectedRows() {
        std::vector<std::size_t> result;
        for (std::size_t i = 0; i < list().List1.ListCount(); ++i)
            if (list().List1.Selected(i)) result.push_back(i);
        return result;
    }
    [[nodiscard]] Texts opened() { return world.log.of({"engine.open"}); }
    [[nodiscard]] bool isIdle() { return list().playmenu.Caption == "&Play" && list().List1.Enabled; }
    [[nodiscard]] bool isRunning() { return list().playmenu.Caption == "&Stop" && !list().List1.Enabled; }
    [[nodiscard]] bool isPlaying() { return isRunning() && list().PlayActive; }
    [[nodiscard]] std::string now() { return list().Label2.Caption; }

    void expectBox(const std::string &text, BoxIcon icon, BoxPlace place = BoxPlace::Foreground,
                   BoxButtons buttons = BoxButtons::Ok, const std::string &title = "Orvane Tonvale") {
        ASSERT_FALSE(world.boxes.shown.empty()) << "no box: " << text;
        const MessageBox &box = world.boxes.last();
        EXPECT_EQ(box.text, text);
        EXPECT_EQ(box.icon, icon);
        EXPECT_EQ(box.place, place);
        EXPECT_EQ(box.buttons, buttons);
        EXPECT_EQ(box.title, title);
    }
    void expectNoBox() { EXPECT_TRUE(world.boxes.shown.empty()) << world.boxes.last().text; }

    static constexpr std::int32_t kSpace = 32, kH = 72, kM = 77, kP = 80, kX = 88, kPlus = 107, kMinus = 109;
};

inline constexpr const char *kGuardText =
    "If you wish to adjust the playlist, you must stop the currently playing media beforehand.";
inline constexpr const char *kContinueQuestion =
    "Do you wish to save your current playlist configuration before continuing?";
inline constexpr const char *kExitQuestion = "Do you wish to save your current playlist configuration before exiting?";
inline constexpr const char *kQuitAnyway = "List is currently being played!  Quit anyway?";

} // namespace tonvale::test
