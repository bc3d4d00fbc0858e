// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/unit/fakes/PlayerTest.h"

namespace tonvale::test {
namespace {

constexpr const char *kKey = "SOFTWARE\\Orvane Tonvale\\MRU\\MRU Entries";

class FromRecentFiles : public PlayerTest {
protected:
    // Starts with these paths in the list, the first one on top; tags "tag 1", "tag 2" ...
    void startWith(const Texts &paths) {
        for (std::size_t i = 0; i < paths.size(); ++i) {
            const std::string position = std::to_string(i + 1);
            world.registry.setText(RootKey::LocalMachine, kKey, "MRU" + position, paths[i]);
            world.registry.setText(RootKey::LocalMachine, kKey, "MRUTag" + position, "tag " + position);
        }
        start();
        world.log.clear();
    }
};

TEST_F(FromRecentFiles, PlaysTheFileAndBringsItToTheTopWithItsOldTag) {
    startWith({"/m/a.mp3", "/m/b.mp3"});
    form().ActiveMovie1.AutoStart = false;
    clickRecent(2);
    EXPECT_TRUE(isRunning());
    EXPECT_EQ(form().Text1.Text, "/m/b.mp3");
    EXPECT_EQ(recentFiles(), (Texts{"&1. /m/b.mp3 [tag 2]", "&2. /m/a.mp3 [tag 1]"}));
    EXPECT_TRUE(form().ActiveMovie1.AutoStart);
    EXPECT_EQ(world.log.of({"cd.StopPlay", "engine.open", "engine.play", "documents"}),
              (Texts{"cd.StopPlay", "engine.open /m/b.mp3", "engine.play"}));
}

TEST_F(FromRecentFiles, MovesUpAfterPlay) {
    startWith({"/m/a.mp3", "/m/b.mp3"});
    clickRecent(2);
    const Texts steps = world.log.of({"engine.play", "registry.set SOFTWARE\\Orvane Tonvale\\MRU\\MRU Entries MRU1"});
    EXPECT_EQ(steps, (Texts{"engine.play", std::string("registry.set ") + kKey + " MRU1=/m/b.mp3"}));
}

TEST_F(FromRecentFiles, EachEntryOpensItsOwnFile) {
    const Texts paths{"/m/a.mp3", "/m/b.mp3", "/m/c.mp3", "/m/d.mp3"};
    for (std::size_t i = 1; i <= paths.size(); ++i) {
        world.registry.writeError.reset();
        startWith(paths);
        clickRecent(i);
        EXPECT_EQ(world.media.file, paths[i - 1]);
        form().Unload();
        world.runUntilIdle();
    }
}

TEST_F(FromRecentFiles, AFileThatHasVanishedMovesUpAllTheSame) {
    startWith({"/m/a.mp3", "/m/gone.mp3"});
    world.media.broken.insert("/m/gone.mp3");
    clickRecent(2);
    EXPECT_EQ(recentFiles().front(), "&1. /m/gone.mp3 [tag 2]");
    EXPECT_TRUE(world.boxes.shown.empty());
    EXPECT_TRUE(isIdle());
}

TEST_F(FromRecentFiles, SendsTheShortVivoNameToTheViewerMinimized) {
    startWith({"/v/a.viv"});
    clickRecent(1);
    EXPECT_EQ(form().State, WindowState::Minimized);
    EXPECT_EQ(world.log.of({"vivo"}), (Texts{"vivo.LoadFile /v/a.viv", "vivo.Start", "vivo.shown"}));
}

TEST_F(FromRecentFiles, SendsTheLongVivoNameToTheMediaEngine) {
    startWith({"/v/a.vivo"});
    clickRecent(1);
    EXPECT_EQ(world.media.file, "/v/a.vivo");
    EXPECT_EQ(form().State, WindowState::Normal);
}

TEST_F(FromRecentFiles, ARamFileGoesToTheMediaEngineAsItIs) {
    startWith({"/r/a.ram"});
    world.boxes.answers = {BoxResult::No};
    clickRecent(1);
    EXPECT_EQ(world.media.file, "/r/a.ram");
    for (const MessageBox &box : world.boxes.shown) EXPECT_EQ(box.text.find("rename"), std::string::npos);
}

TEST_F(FromRecentFiles, APlaylistGoesToTheMediaEngineWhichFailsWithoutAWord) {
    startWith({"/m/a.ply"});
    world.media.broken.insert("/m/a.ply");
    clickRecent(1);
    EXPECT_TRUE(world.log.has("engine.open /m/a.ply"));
    EXPECT_TRUE(world.boxes.shown.empty());
    EXPECT_TRUE(isIdle());
}

TEST_F(FromRecentFiles, ACdTrackIsPlayedWithoutOpeningTheDevice) {
    startWith({"/m/a.mp3", "/cd/track02.cda"});
    world.cd.addTrack(7500);
    world.cd.addTrack(7500);
    clickRecent(2);
    EXPECT_EQ(world.log.of({"cd."}), (Texts{"cd.StopPlay", "cd.ReadDirectory", "cd.PlayTrack 1"}));
    EXPECT_EQ(recentFiles().front(), "&1. /cd/track02.cda [tag 2]");
    EXPECT_TRUE(isRunning());
}

TEST_F(FromRecentFiles, ACdThatIsNotReadyDoesNotMoveUp) {
    startWith({"/m/a.mp3", "/cd/track02.cda"});
    world.cd.ready = [] { return false; };
    clickRecent(2);
    EXPECT_EQ(recentFiles().front(), "&1. /m/a.mp3 [tag 1]");
    EXPECT_EQ(form().Text1.Text, "/cd/track02.cda");
    EXPECT_TRUE(isIdle());
}

} // namespace
} // namespace tonvale::test
