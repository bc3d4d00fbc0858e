// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// bench_list_window LIST.ply: what a long list costs, in milliseconds and in bytes a row. The window is
// the real one, on the display; what it plays with is not there.

#include "app/Display.h"
#include "platform/machine/files/PosixFileService.h"
#include "playlists/PlaylistWindow.h"
#include "playlists/register.h"
#include "tests/unit/fakes/World.h"
#include "ui/ListBoxView.h"
#include "ui/Views.h"

#include <QElapsedTimer>
#include <malloc.h>

#include <cstdio>

namespace tonvale {

namespace {

constexpr int kRounds = 5;
constexpr int kManyNames = 10000;
constexpr double kNanosecondsPerMillisecond = 1e6;

template <class Work> double milliseconds(Work work) {
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / kNanosecondsPerMillisecond;
}

std::size_t heap() {
    const auto info = ::mallinfo2();
    return info.uordblks + info.hblkhd;
}

class Bench {
public:
    explicit Bench(std::string path) : path_(std::move(path)) {
        registerDesktopWindows(app_);
        registerPlayerWindows(app_);
        registerPlaylistWindows(app_);
    }

    void round() {
        app_.frmPlayList->Show();
        QApplication::processEvents();
        PlaylistWindow &list = static_cast<PlaylistWindow &>(*app_.frmPlayList);
        const std::size_t before = heap();
        tell("load", [&] { choose(list.LoadMenu, path_); });
        const std::size_t after = heap();
        std::printf("memory %.0f bytes a row\n",
                    static_cast<double>(after - before) / static_cast<double>(list.List1.ListCount()));
        tell("paint", [&] { repaint(); });
        tell("save", [&] { choose(list.SaveMenu, path_ + ".saved.ply"); });
        tell("add10000", [&] { choose(list.AddMenu, manyNames()); });
        tell("select-all", [&] { view().selectAll(); });
        tell("deselect-all", [&] { list.DeselectMenu.Click(); });
        selectEverySecond(list);
        tell("remove-half", [&] { list.RemoveMenu.Click(); });
        tell("paint-rest", [&] { repaint(); });
        tell("scroll", [&] {
            view().scrollToBottom();
            repaint();
        });
        list.ListSaved = true;
        list.Unload();
        world_.runUntilIdle();
        QApplication::processEvents();
    }

private:
    template <class Work> static void tell(const char *what, Work work) {
        std::printf("%s %.2f\n", what, milliseconds(work));
    }

    void choose(MenuEntry &entry, const std::string &answer) {
        world_.dialogs.answers.push_back({1, answer, ""});
        entry.Click();
    }
    static std::string manyNames() {
        std::string names = "/music/some artist";
        for (int i = 0; i < kManyNames; ++i) names += '\0' + std::to_string(i) + " a title of usual length.mp3";
        return names;
    }
    static ListBoxView &view() {
        for (QWidget *window : QApplication::topLevelWidgets())
            if (auto *list = window->findChild<ListBoxView *>()) return *list;
        throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
    }
    static void repaint() {
        QApplication::processEvents();
        static_cast<void>(view().viewport()->grab());
    }
    static void selectEverySecond(PlaylistWindow &list) {
        for (std::size_t i = 1; i < list.List1.ListCount(); i += 2) list.List1.userSelected(i, 1, true);
    }
    Services services() {
        test::World &w = world_;
        return {.loop = w.loop,
                .clock = w.clock,
                .registry = w.registry,
                .files = files_,
                .boxes = w.boxes,
                .dialogs = w.dialogs,
                .shell = w.shell,
                .recentDocuments = w.documents,
                .screen = w.screen,
                .screenSaver = w.screenSaver,
                .systemProperties = w.systemProperties,
                .keyboard = w.keyboard,
                .windows = w.windows,
                .mixer = w.mixer,
                .random = w.random,
                .makeMediaEngine = w.media.factory(),
                .makeCDReader = w.cd.factory()};
    }

    std::string path_;
    PosixFileService files_;
    test::World world_;
    Application app_{services()};
    Views views_{app_.forms};
};

} // namespace

} // namespace tonvale

int main(int argc, char *argv[]) {
    if (argc != 2) return 2;
    tonvale::Display display(argv[0]);
    tonvale::Bench bench(argv[1]);
    for (int round = 0; round <= tonvale::kRounds; ++round) { // the first one warms up
        std::printf("round %d\n", round);
        bench.round();
    }
    return 0;
}
