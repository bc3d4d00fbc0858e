// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "player/captions.h"
#include "tests/unit/fakes/World.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>

namespace tonvale::test {

// A running player and short words for what users do with it and see of it.
class PlayerTest : public testing::Test {
protected:
    World world;

    Form1 &start(const std::string &commandLine = {}) { return world.start(commandLine); }
    Form1 &form() { return *world.app().form1; }

    // A file of this length, in bytes.
    void file(const std::string &path, std::int64_t length = 1000) { world.files.add(path, length); }

    // The next Open dialog is answered with this path.
    void answerDialog(const std::string &path) {
        world.dialogs.answers.push_back({1, path, path.substr(path.rfind('/') + 1)});
    }
    // Opens a file by the Open dialog.
    void open(const std::string &path) {
        answerDialog(path);
        form().playmenu.Click();
        world.runUntilIdle();
    }
    void executeFromDesktop(const std::string &command) {
        std::string text = command;
        std::int16_t cancel = 7;
        form().Form_LinkExecute(text, cancel);
        EXPECT_EQ(cancel, 0);
        world.runUntilIdle();
    }
    // The entry of the recent files menu, from 1.
    void clickRecent(std::size_t index) {
        form().mnuFileMRU[index].Click();
        world.runUntilIdle();
    }
    void click(Event<> &event) {
        event();
        world.runUntilIdle();
    }

    [[nodiscard]] bool isIdle() { return form().playmenu.Caption == "&Load and Play File"; }
    [[nodiscard]] bool isRunning() { return form().playmenu.Caption == "&Stop" && form().MMLEDX1.LEDColor == kGreen; }
    [[nodiscard]] std::string totalDigits() {
        return digits(form().TotalLEDHour) + ":" + digits(form().TotalLEDMinute) + ":" + digits(form().TotalLEDSecond);
    }
    [[nodiscard]] std::string positionDigits() {
        return digits(form().CurPosLEDHour) + ":" + digits(form().CurPosLEDMinute) + ":" +
               digits(form().CurPosLEDSecond);
    }
    // Captions and tags of the recent files, as far as they are shown.
    [[nodiscard]] Texts recentFiles() {
        Texts result;
        for (std::size_t i = 1; i < form().mnuFileMRU.size(); ++i)
            if (form().mnuFileMRU[i].Visible)
                result.push_back(form().mnuFileMRU[i].Caption.get() + " [" + form().mnuFileMRU[i].Tag + "]");
        return result;
    }

    void expectBox(const std::string &text, BoxIcon icon, BoxPlace place = BoxPlace::Foreground,
                   BoxButtons buttons = BoxButtons::Ok, const std::string &title = "Orvane Tonvale") {
        ASSERT_FALSE(world.boxes.shown.empty()) << "no box: " << text;
        const MessageBox &box = world.boxes.last();
        std::string shown = box.text;
        std::erase(shown, '\r');
        EXPECT_EQ(shown, text);
        EXPECT_EQ(box.icon, icon);
        EXPECT_EQ(box.place, place);
        EXPECT_EQ(box.buttons, buttons);
        EXPECT_EQ(box.title, title);
    }

    static constexpr std::int32_t kRed = 255, kGreen = 65280, kYellow = 65535;

private:
    static std::string digits(const std::array<LedDigit, 2> &group) {
        return std::to_string(group[0].Value.get()) + std::to_string(group[1].Value.get());
    }
};

} // namespace tonvale::test
