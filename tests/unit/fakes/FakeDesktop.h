// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Errors.h"
#include "core/Services.h"
#include "tests/unit/fakes/CallLog.h"
#include "tests/unit/fakes/FakeLoop.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace tonvale::test {

// Answers each box from a queue; without an answer, Ok or No. While a box is up, messages are served.
class FakeBoxes : public MessageBoxes {
public:
    FakeBoxes(CallLog &log, FakeLoop &loop) : log_(log), loop_(loop) {}

    std::vector<MessageBox> shown;
    std::deque<BoxResult> answers;
    std::function<void(const MessageBox &)> whileUp;

    BoxResult show(const MessageBox &box) override {
        shown.push_back(box);
        log_.add("box " + box.text.substr(0, 24));
        if (whileUp) whileUp(box);
        loop_.runUntilIdle();
        if (answers.empty()) return box.buttons == BoxButtons::Ok ? BoxResult::Ok : BoxResult::No;
        const BoxResult answer = answers.front();
        answers.pop_front();
        return answer;
    }
    [[nodiscard]] const MessageBox &last() const { return shown.back(); }

private:
    CallLog &log_;
    FakeLoop &loop_;
};

// The file dialogs: the next answers, and what the dialogs were given. While one is up, messages are
// served.
class FakeDialogs : public FileDialogs {
public:
    FakeDialogs(CallLog &log, FakeLoop &loop) : log_(log), loop_(loop) {}

    struct Answer {
        std::int32_t result = 1;
        std::string file = {};
        std::string fileTitle = {};
    };
    std::deque<Answer> answers; // none: cancelled
    std::vector<OpenFileName> opened, saved;
    std::vector<std::string> browsed;
    std::optional<std::string> folder;
    std::int32_t error = 0;
    std::optional<ErrorNumber> failure;
    std::function<void()> whileUp;

    std::int32_t getOpenFileName(OpenFileName &dialog) override { return answer(dialog, opened, "dialog.open"); }
    std::int32_t getSaveFileName(OpenFileName &dialog) override { return answer(dialog, saved, "dialog.save"); }
    std::int32_t extendedError() override { return error; }
    std::optional<std::string> browseForFolder(const std::string &title) override {
        browsed.push_back(title);
        if (whileUp) whileUp();
        if (failure) throw RuntimeError(*failure);
        return folder;
    }

private:
    std::int32_t answer(OpenFileName &dialog, std::vector<OpenFileName> &seen, const char *name) {
        log_.add(name);
        seen.push_back(dialog);
        if (whileUp) whileUp();
        loop_.runUntilIdle();
        if (failure) throw RuntimeError(*failure);
        if (answers.empty()) return 0;
        const Answer next = std::move(answers.front());
        answers.pop_front();
        if (next.result == 1) {
            dialog.file = next.file;
            dialog.fileTitle = next.fileTitle;
        }
        return next.result;
    }

    CallLog &log_;
    FakeLoop &loop_;
};

class FakeShell : public Shell {
public:
    struct Call {
        std::string verb, file, parameters, directory;
        std::int32_t showCommand = 0;
        friend bool operator==(const Call &, const Call &) = default;
    };
    std::vector<Call> calls;
    Launch next{42, 0};
    std::set<std::uint64_t> running;
    std::optional<ErrorNumber> failure;

    Launch execute(const std::string &verb, const std::string &file, const std::string &parameters,
                   const std::string &directory, std::int32_t showCommand) override {
        calls.push_back({verb, file, parameters, directory, showCommand});
        if (failure) throw RuntimeError(*failure);
        return next;
    }
    bool isRunning(std::uint64_t process) override { return running.contains(process); }
};

class FakeRecentDocuments : public RecentDocuments {
public:
    explicit FakeRecentDocuments(CallLog &log) : log_(log) {}
    std::vector<std::string> added;
    int cleared = 0;
    std::optional<ErrorNumber> failure;

    void add(const std::string &path) override {
        log_.add("documents.add " + path);
        if (failure) throw RuntimeError(*failure);
        added.push_back(path);
    }
    void clear() override { ++cleared; }

private:
    CallLog &log_;
};

class FakeScreen : public Screen {
public:
    double screenWidth = 1024 * kTwipsPerPixel, screenHeight = 768 * kTwipsPerPixel;
    double width() override { return screenWidth; }
    double height() override { return screenHeight; }
};

class FakeScreenSaver : public ScreenSaver {
public:
    int activated = 0;
    int holds = 0; // that exist now

    void activate() override { ++activated; }
    std::unique_ptr<Hold> holdOff() override { return std::make_unique<CountedHold>(holds); }

private:
    class CountedHold : public Hold {
    public:
        explicit CountedHold(int &holds) : holds_(holds) { ++holds_; }
        ~CountedHold() override { --holds_; }

    private:
        int &holds_;
    };
};

class FakeSystemProperties : public SystemProperties {
public:
    std::vector<PropertySheets> shown;
    std::optional<ErrorNumber> failure;
    void show(PropertySheets sheets) override {
        if (failure) throw RuntimeError(*failure);
        shown.push_back(sheets);
    }
};

// A keyboard whose keys the test presses, Control held.
class FakeKeyboard : public KeyboardHook {
public:
    Connection listen(Listener listener) override { return pressed_.connect(std::move(listener)); }
    void press(std::int32_t keyCode) { pressed_(keyCode); }

private:
    Signal<std::int32_t> pressed_;
};

// Windows of other programs. A window that is closed has gone.
class FakeWindows : public WindowSystem {
public:
    explicit FakeWindows(CallLog &log) : log_(log) {}
    bool available = true;
    std::vector<WindowInfo> present;
    std::vector<WindowHandle> closed;
    std::optional<ErrorNumber> failure;

    bool isAvailable() override { return available; }
    std::vector<WindowInfo> windows() override {
        if (failure) throw RuntimeError(*failure);
        return present;
    }
    void sendClose(WindowHandle window) override {
        log_.add("windows.close " + std::to_string(window));
        closed.push_back(window);
        std::erase_if(present, [&](const WindowInfo &info) { return info.handle == window; });
    }

private:
    CallLog &log_;
};

class FakeRandom : public Random {
public:
    double value = 0.5;
    double next() override { return value; }
};

class FakeAssociations : public FileAssociations {
public:
    explicit FakeAssociations(CallLog &log) : log_(log) {}
    bool result = true;
    bool FileAssociator(const std::string &extension, const std::string &description,
                        const std::string &typeDescription) override {
        log_.add("associate " + extension + "|" + description + "|" + typeDescription);
        return result;
    }

private:
    CallLog &log_;
};

} // namespace tonvale::test
