// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/unit/fakes/ListTest.h"

#include <array>
#include <random>

// Random sequences of what can happen to a list, in the window and in a small reference beside it.

namespace tonvale::test {
namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr int kSequences = 2000;
#else
constexpr int kSequences = 100000;
#endif
constexpr int kBoxesUntilStop = 20; // then the user gets through to Stop
constexpr int kLongestSequence = 12;

enum class Act {
    Play,
    Next,
    Previous,
    Pause,
    End,
    Drop,
    Load,
    Mute,
    Select,
    Deselect,
    New,
    Loop,
    KeyInPause,
    Poll,
    RefusedClose,
    kCount
};

const char *name(Act act) {
    constexpr std::array<const char *, 15> kNames{"play", "next", "previous",     "pause",  "end",
                                                  "drop", "load", "mute",         "select", "deselect",
                                                  "new",  "loop", "key in pause", "poll",   "refused close"};
    return kNames[static_cast<std::size_t>(act)];
}

// What the list is to do, told without any of its code.
class Reference {
public:
    Texts rows, queue, calls;
    std::vector<bool> selected;
    std::string current, label, pauseCaption = "pause";
    int position = 0, boxes = 0;
    bool running = false; // what the caption of Play says
    bool active = false, loop = false, muted = false, mediaOpen = false, mediaPlaying = false, polling = false;
    std::string openFile;
    int keyInPause = 0; // Next that comes during the next pause

    void play() { running ? stop() : start(); }
    void next() {
        stepNext();
        playCurrent();
        show("Playing File:  ");
    }
    void previous() {
        --position;
        if (!queue.empty() && position < 0) position = static_cast<int>(queue.size()) - 1;
        playCurrent();
        show("Playing File: ");
    }
    void pause() {
        if (!active) {
            told();
            return;
        }
        if (hasEntry()) current = queue[static_cast<std::size_t>(position)];
        const bool disc = current.ends_with(".cda"), pauses = pauseCaption == "pause";
        if (disc)
            calls.push_back(pauses ? "cd.PausePlay" : "cd.ResumePlay");
        else if (pauses)
            pauseMedia();
        else
            playMedia();
        pauseCaption = pauses ? "resume" : "pause";
    }
    // The media has played to its end.
    void end() {
        if (!mediaPlaying) return;
        mediaPlaying = false;
        calls.push_back("engine.stop");
        advance();
    }
    void advance() {
        if (!active) return;
        ++position;
        if (!queue.empty() && !hasEntry()) {
            if (!loop) return play();
            position = 0;
        }
        playCurrent();
        show("Playing File: ");
    }
    void poll() {
        if (!polling) return;
        polling = false; // the drive of this test is always idle
        advance();
    }
    void add(const std::string &row) {
        rows.push_back(row);
        selected.push_back(false);
    }
    void select(std::size_t row) {
        if (row < selected.size()) selected[row] = true;
    }
    void deselect() {
        if (running)
            told();
        else
            selected.assign(selected.size(), false);
    }
    void refuseClose() {
        if (!active) return;
        polling = false;
        told();
    }
    void clear() {
        rows.clear();
        selected.clear();
    }

private:
    void told() {
        if (++boxes % kBoxesUntilStop == 0) play();
    }
    [[nodiscard]] bool hasEntry() const { return position >= 0 && position < static_cast<int>(queue.size()); }
    static std::string extension(const std::string &path) {
        const std::size_t dot = path.rfind('.');
        return dot == std::string::npos ? "" : path.substr(dot);
    }
    void show(const std::string &words) {
        if (!hasEntry()) return;
        const std::string &path = queue[static_cast<std::size_t>(position)];
        label = words + path.substr(path.rfind('/') + 1) + " (" + std::to_string(position + 1) + " of " +
                std::to_string(queue.size()) + ")";
    }
    void start() {
        if (rows.empty()) {
            told();
            return;
        }
        calls.emplace_back("cd.StopPlay"); // of the main window
        running = active = true;
        position = 0;
        queue.clear();
        const bool all = std::ranges::count(selected, true) == 0;
        for (std::size_t i = 0; i < rows.size(); ++i)
            if (all || selected[i]) queue.push_back(rows[i]);
        playCurrent();
        show("Playing File: ");
    }
    void stop() {
        active = running = false;
        label = "PlayList Halted.";
        stopMedia();
        calls.emplace_back("cd.StopPlay");
        queue.clear();
    }
    void stepNext() {
        ++position;
        if (!queue.empty() && !hasEntry()) position = 0;
    }
    void playCurrent() {
        bool failed = false;
        while (!openCurrent()) {
            if (queue.empty()) break;
            failed = true;
            stepNext();
        }
        if (failed) show("Playing File:  ");
    }
    // False: it was told that it cannot be played.
    bool openCurrent() {
        if (hasEntry()) current = queue[static_cast<std::size_t>(position)];
        const std::string branch = extension(current);
        if (branch != ".mp3" && branch != ".cda") {
            play();
            return true;
        }
        active = false;
        if (branch == ".cda") stopMedia();
        calls.emplace_back("cd.CloseDevice");
        pauseBetween();
        active = false;
        if (branch == ".cda" ? openTrack() : openMedia()) {
            active = true;
            return true;
        }
        told();
        return false;
    }
    void pauseBetween() {
        polling = false; // a tick comes, and finds that nothing is active
        if (std::exchange(keyInPause, 0) != 0) next();
    }
    bool openMedia() {
        mediaOpen = mediaPlaying = false;
        calls.push_back("engine.open " + current);
        if (current.find("bad") != std::string::npos || current.ends_with(".cda")) return false;
        mediaOpen = true;
        openFile = current;
        playMedia();
        return true;
    }
    bool openTrack() {
        calls.emplace_back("cd.OpenDevice");
        const int number = current.find("Track01") != std::string::npos   ? 1
                           : current.find("Track09") != std::string::npos ? 9
                                                                          : 0;
        polling = true;
        calls.push_back("cd.PlayTrack " + std::to_string(number));
        return number < 3;
    }
    void stopMedia() {
        if (!mediaOpen) return;
        calls.emplace_back("engine.stop");
        mediaPlaying = false;
    }
    void pauseMedia() {
        if (!mediaPlaying) return;
        calls.emplace_back("engine.pause");
        mediaPlaying = false;
    }
    void playMedia() {
        if (!mediaOpen || mediaPlaying) return;
        calls.emplace_back("engine.play");
        mediaPlaying = true;
    }
};

constexpr std::array<const char *, 8> kRows{"/m/a.mp3", "/m/b.mp3",        "/m/c.mp3",        "/m/bad.mp3",
                                            "/m/x.txt", "/cd/Track01.cda", "/cd/Track09.cda", "/m/d.mp3"};

class ListModel : public ListTest {
protected:
    std::mt19937 random{20260729};
    Reference reference;
    std::string history;

    std::size_t below(std::size_t limit) { return random() % limit; }

    void begin() {
        reference = Reference();
        history.clear();
        world.boxes.shown.clear();
        world.app().frmPlayList->Show();
        world.runUntilIdle();
        world.log.clear();
        reference.loop = list().LoopMenu.Checked; // as the window before it left the mark
    }
    void close() {
        list().ListSaved = true;
        world.boxes.answers = {BoxResult::Yes};
        list().Unload();
        world.runUntilIdle();
        world.boxes.answers.clear();
    }
    // Whether the window is where the reference is.
    bool agrees() {
        const PlaylistWindow &w = list();
        const Texts calls = world.log.of({"engine.open", "engine.play", "engine.pause", "engine.stop", "cd."});
        EXPECT_EQ(w.playmenu.Caption, reference.running ? "&Stop" : "&Play");
        EXPECT_EQ(w.List1.Enabled, !reference.running);
        EXPECT_EQ(w.PauseMenu.Caption, reference.pauseCaption == "pause" ? "Pa&use\tAlt + P" : "&Resume\tAlt + R");
        EXPECT_EQ(w.MuteMenu.Caption, reference.muted ? "&Un-Mute" : "&Mute");
        EXPECT_EQ(w.NextMenu.Enabled, reference.queue.size() >= 2);
        EXPECT_EQ(w.Label2.Caption, reference.label);
        EXPECT_EQ(w.PlayActive, reference.active);
        EXPECT_EQ(w.PlayQueue, reference.queue);
        EXPECT_EQ(w.CurrentFile, reference.current);
        EXPECT_EQ(rows(), reference.rows);
        EXPECT_EQ(engine().Timer1.Enabled(), reference.polling);
        EXPECT_EQ(world.boxes.shown.size(), static_cast<std::size_t>(reference.boxes));
        EXPECT_EQ(calls, reference.calls);
        world.log.clear();
        reference.calls.clear();
        return !HasFailure();
    }

    void act(Act act) {
        history += std::string(name(act)) + ", ";
        PlaylistWindow &w = list();
        switch (act) {
        case Act::Play: below(2) == 0 ? click(w.playmenu.Click) : press(kSpace); return reference.play();
        case Act::Next: below(2) == 0 ? click(w.NextMenu.Click) : press(kPlus); return reference.next();
        case Act::Previous: below(2) == 0 ? click(w.PrevPop.Click) : press(kMinus); return reference.previous();
        case Act::Pause: below(2) == 0 ? click(w.PausePop.Click) : press(kP); return reference.pause();
        case Act::End:
            if (world.media.playing) finish();
            return reference.end();
        case Act::Drop: return drop();
        case Act::Load: return load();
        case Act::Mute:
            click(w.MuteMenu.Click);
            reference.muted = !reference.muted;
            return;
        case Act::Select: return select(below(6));
        case Act::Deselect: click(w.DeselectPopMenu.Click); return reference.deselect();
        case Act::New: click(w.NewMenu.Click); return reference.clear();
        case Act::Loop:
            click(w.LoopMenu.Click);
            reference.loop = !reference.loop;
            return;
        case Act::KeyInPause: return nextWithKeyInPause();
        case Act::Poll: world.advance(501); return reference.poll();
        case Act::RefusedClose: return refuseClose();
        case Act::kCount: break;
        }
    }

private:
    void drop() {
        const std::string row = kRows[below(4)];
        list().userDroppedFiles({row});
        reference.add(row);
    }
    void load() {
        const std::string row = kRows[below(kRows.size())];
        world.files.addText("/a.ply", row + "\r\n");
        answerDialog("/a.ply");
        click(list().LoadMenu.Click);
        reference.add(row);
    }
    void select(std::size_t row) {
        if (row < list().List1.ListCount() && list().List1.Enabled) ListTest::select({row});
        if (!reference.running) reference.select(row);
    }
    void refuseClose() {
        if (!reference.active) return;
        world.boxes.answers = {BoxResult::No};
        list().ListSaved = true;
        list().Unload();
        world.boxes.answers.clear();
        reference.refuseClose();
    }
    void nextWithKeyInPause() {
        // Without an item to open there is no pause for the key to come in.
        if (reference.queue.empty()) return;
        bool pressed = false;
        const Connection disabled = list().Enabled.onChange([&] {
            if (list().Enabled || std::exchange(pressed, true)) return;
            world.loop.post([this] { world.keyboard.press(kPlus); });
        });
        reference.keyInPause = 1;
        click(list().NextMenu.Click);
        reference.next();
        reference.keyInPause = 0;
    }
};

TEST_F(ListModel, BehavesAsTheReferenceDoes) {
    for (const char *row : kRows) world.files.add(row, 1);
    world.media.broken = {"/m/bad.mp3", "/cd/Track01.cda", "/cd/Track09.cda"};
    world.cd.tracks.resize(3);
    world.boxes.whileUp = [&](const MessageBox &) {
        if (world.boxes.shown.size() % kBoxesUntilStop == 0) world.keyboard.press(kSpace);
    };
    open();
    close();
    for (int sequence = 0; sequence < kSequences; ++sequence) {
        begin();
        const std::size_t length = 1 + below(kLongestSequence);
        for (std::size_t i = 0; i < length; ++i) {
            act(static_cast<Act>(below(static_cast<std::size_t>(Act::kCount))));
            ASSERT_TRUE(agrees()) << "sequence " << sequence << ": " << history;
        }
        close();
    }
}

} // namespace
} // namespace tonvale::test
