// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/unit/fakes/ListTest.h"

#include <functional>

namespace tonvale::test {
namespace {

using testing::ElementsAre;

// What the table says, put together as it is used.
Texts texts(const ListVariant &list) {
    return {list.name,
            list.caption,
            list.application,
            list.loadDirectoryKey,
            list.addDirectoryKey,
            list.addTitle,
            list.addFilter,
            list.folderPattern,
            list.notPlaying,
            list.exitCaption,
            list.exitShortcut == nullptr ? "(none)" : list.exitShortcut};
}

TEST(ListVariants, TheTextsOfTheAudioList) {
    const std::string pattern =
        "*.cda;*.mp3;*.mp2;*.wav;*.asf;*.aif;*.au;*.aiff;*.mid;*.midi;*.rmi;*.snd;*.ra;*.ram;*.rpm";
    EXPECT_THAT(texts(kAudioList), ElementsAre("frmPlayList", "Audio PlayList", "Audio PlayList", "Common Dialog Dir 2",
                                               "Common Dialog Dir 3", "Select Audio Files:", "Audio Files|" + pattern,
                                               pattern, "The playlist is not currently playing.", "E&xit", "Ctrl+X"));
}

TEST(ListVariants, TheTextsOfTheVivoList) {
    EXPECT_THAT(texts(kVivoList),
                ElementsAre("frmVivoPlayList", "Vivo PlayList", "Vivo PlayList", "Common Dialog Dir 4",
                            "Common Dialog Dir 5", "Select Vivo Files:", "Vivo Files|*.viv;*.vivo", "*.viv;*.vivo",
                            "The playlist is not currently playing.", "E&xit\tCtrl + Alt + X", "(none)"));
}

TEST(ListVariants, TheTextsOfTheVideoList) {
    const std::string pattern = "*.avi;*.mov;*mpg;*.mpeg;*.dat;*.m1v;*.enc;*.qt;*.mpv;*.mpa";
    EXPECT_THAT(texts(kVideoList),
                ElementsAre("frmVideoPlayList", "Video PlayList", "Video PlayList", "Common Dialog Dir 4",
                            "Common Dialog Dir 5", "Select Video Files:", "Video Files|" + pattern, pattern,
                            "The playlist is not currently being played.", "E&xit\tCtrl + Alt + X", "(none)"));
}

TEST(ListVariants, WhatIsTakenAndPlayed) {
    EXPECT_THAT(kVivoList.droppedEndings, ElementsAre(".viv", ".vivo"));
    EXPECT_THAT(kVivoList.playedExtensions, ElementsAre(".viv", ".vivo"));
    EXPECT_THAT(kVideoList.droppedEndings,
                ElementsAre(".avi", ".mov", ".mpg", ".mpeg", ".dat", ".m1v", ".enc", ".qt", ".mpv", ".mpa"));
    EXPECT_THAT(kVideoList.playedExtensions, testing::ElementsAreArray(kVideoList.droppedEndings));
    EXPECT_EQ(kAudioList.droppedEndings.size(), 17U);
    EXPECT_EQ(kAudioList.playedExtensions.size(), 18U);
}

TEST(ListVariants, WhatIsShown) {
    for (const ListVariant *list : {&kVivoList, &kVideoList}) {
        EXPECT_EQ(list->playing.words, "Playing List... ");
        EXPECT_EQ(list->playing.name, NameShown::Path);
        EXPECT_EQ(list->playingNext.words, "Playing List... ");
        EXPECT_EQ(list->playingNext.name, NameShown::Path);
        EXPECT_EQ(list->Label1AtStop, nullptr);
        EXPECT_STREQ(list->hotKeysLast, "Ctrl + Alt +  X            =   Exit");
    }
    EXPECT_STREQ(kVivoList.Label2AtStop, "PlayList Halted.");
    EXPECT_STREQ(kVideoList.Label2AtStop, "Play Halted.");
    EXPECT_STREQ(kVivoList.emptyLine3, kAudioList.emptyLine3);
    EXPECT_STREQ(kVivoList.emptyLine5, kAudioList.emptyLine5);
    EXPECT_STREQ(kVideoList.emptyLine3, "in your playlist first in order to proceed.");
    EXPECT_STREQ(kVideoList.emptyLine5, "to Playlist\" from the toolbar,  \"Add\" from");
    const std::string start = "Use the following HotKeys at any time while the ";
    const std::string end = " is running to perform the given tasks:";
    EXPECT_EQ(kVivoList.hotKeysFirst, start + "Vivo Playlist" + end);
    EXPECT_EQ(kVideoList.hotKeysFirst, start + "Video playlist" + end);
}

TEST(ListVariants, WhatIsDone) {
    EXPECT_EQ(kAudioList.otherExtension, OtherExtension::StopList);
    EXPECT_EQ(kVivoList.otherExtension, OtherExtension::SkipItem);
    EXPECT_EQ(kVideoList.otherExtension, OtherExtension::SkipItem);
    EXPECT_EQ(kAudioList.closeDuringRun, CloseDuringRun::Ask);
    EXPECT_EQ(kVivoList.closeDuringRun, CloseDuringRun::GoOn);
    EXPECT_EQ(kVideoList.closeDuringRun, CloseDuringRun::GoOn);
    EXPECT_EQ(kAudioList.whileOpening, WhileOpening::Inactive);
    EXPECT_EQ(kVivoList.whileOpening, WhileOpening::Inactive);
    EXPECT_EQ(kVideoList.whileOpening, WhileOpening::Active);
    EXPECT_EQ(kVivoList.viewerAtClose, ViewerAtClose::Left);
    EXPECT_EQ(kVideoList.viewerAtClose, ViewerAtClose::Closed);
    EXPECT_EQ(kVivoList.viewerAfterQueue, ViewerAfterQueue::Closed);
    EXPECT_EQ(kVideoList.viewerAfterQueue, ViewerAfterQueue::Disabled);
    EXPECT_EQ(kVivoList.pollingAtClose, PollingAtClose::Untouched);
    EXPECT_EQ(kAudioList.pollingAtClose, PollingAtClose::Stopped);
    EXPECT_EQ(kVideoList.pollingAtClose, PollingAtClose::Untouched);
    EXPECT_EQ(kAudioList.viewerAtClose, ViewerAtClose::None);
    EXPECT_EQ(kAudioList.viewerAfterQueue, ViewerAfterQueue::None);
    EXPECT_EQ(kAudioList.deselectEntry, DeselectEntry::Present);
    EXPECT_EQ(kVivoList.deselectEntry, DeselectEntry::Absent);
    EXPECT_EQ(kVideoList.deselectEntry, DeselectEntry::Absent);
}

// An engine without anything behind it.
class SilentEngine : public ListEngine {
public:
    explicit SilentEngine(CallLog &log) : log_(log) {}
    void prepare(const ListItem &) override {}
    void start(const ListItem &item) override { log_.add("start " + item.path); }
    void pause(const ListItem &) override {}
    void resume(const ListItem &) override {}
    void stop() override { log_.add("stop"); }
    void stopPolling() override { log_.add("stopPolling"); }
    void shutDown() override {}

private:
    CallLog &log_;
};

// The window reads the table: another row of it makes another window.
class OtherList : public ListTest {
protected:
    static CallLog &sharedLog() {
        static CallLog log;
        return log;
    }
    PlaylistWindow &openAs(const ListVariant &variant, const Texts &rows) {
        sharedLog().clear();
        variant_ = variant;
        variant_->makeEngine = [](Application &) -> std::unique_ptr<ListEngine> {
            return std::make_unique<SilentEngine>(sharedLog());
        };
        world.start();
        world.app().frmPlayList.setFactory([this] { return std::make_unique<PlaylistWindow>(world.app(), *variant_); });
        list().List1.AddItems(rows);
        return list();
    }

private:
    std::optional<ListVariant> variant_;
};

TEST_F(OtherList, SkipsWhatItCannotPlay) {
    openAs(kVideoList, {"/a.mp3", "/b.avi", "/c.txt", "/d.MPG"});
    play();
    EXPECT_EQ(now(), "Playing List... /b.avi (2 of 4)");
    click(list().NextMenu.Click);
    EXPECT_EQ(now(), "Playing List... /d.MPG (4 of 4)");
    play();
    EXPECT_EQ(now(), "Play Halted.");
    EXPECT_THAT(sharedLog().all(), ElementsAre("start /b.avi", "start /d.MPG", "stop"));
}

TEST_F(OtherList, StopsWhereNothingCanBePlayed) {
    openAs(kVivoList, {"/a.mp3", "/b.txt"});
    play();
    EXPECT_TRUE(isIdle());
    expectNoBox();
}

TEST_F(OtherList, ClosesDuringARunWithoutAQuestion) {
    openAs(kVivoList, {"/a.viv"});
    play();
    EXPECT_TRUE(list().Unload());
    expectNoBox();
    EXPECT_FALSE(sharedLog().has("stopPolling"));
    EXPECT_FALSE(sharedLog().has("stop"));
}

TEST_F(OtherList, HasItsOwnFrame) {
    openAs(kVideoList, {});
    EXPECT_EQ(list().Caption, "Video PlayList");
    EXPECT_EQ(list().ExitMenu.Caption, "E&xit\tCtrl + Alt + X");
    EXPECT_EQ(list().ExitMenu.Shortcut, "");
    EXPECT_FALSE(list().DeselectPopMenu.Visible);
    click(list().PauseMenu.Click);
    expectBox("The playlist is not currently being played.", BoxIcon::Information);
    click(list().LoopMenu.Click);
    list().Unload();
    EXPECT_EQ(SettingsStore(world.registry).GetSetting("Video PlayList", "Settings", "Loop"), "True");
}

TEST_F(OtherList, StopsTheMainWindowsDiscBeforeItsMedia) {
    for (const ListVariant *variant : {&kVivoList, &kVideoList}) {
        openAs(*variant, {"/a.viv", "/a.avi"});
        MediaPlayer &media = world.app().form1->ActiveMovie1;
        media.FileName("/m/x.mp3");
        media.Play();
        world.runUntilIdle();
        world.log.clear();
        play();
        EXPECT_THAT(world.log.of({"cd.StopPlay", "engine.stop"}), ElementsAre("cd.StopPlay", "engine.stop"));
        list().Unload();
        world.runUntilIdle();
    }
}

TEST_F(OtherList, LeavesTheVolumeAloneAtAnItem) {
    openAs(kVideoList, {"/a.avi"});
    click(list().MuteMenu.Click);
    play();
    EXPECT_EQ(world.mixer.level, 0);
}

TEST_F(OtherList, TakesFromAFolderWhateverEndsInMpg) {
    openAs(kVideoList, {});
    world.files.folders["/m"] = {"a.avi", "bmpg", "c.MPG", "d.mp3", "e.viv"};
    world.files.add("/bmpg", 1);
    list().userDroppedFiles({"/bmpg", "/m"});
    EXPECT_THAT(rows(), ElementsAre("/m/a.avi", "/m/bmpg", "/m/c.MPG"));
}

TEST_F(OtherList, TellsInItsOwnWordsThatItIsEmptyAndWhatItsKeysAre) {
    openAs(kVideoList, {});
    play();
    const std::string &empty = world.boxes.last().text;
    EXPECT_NE(empty.find("\r\nin your playlist first in order to proceed.\r\n"), std::string::npos);
    EXPECT_NE(empty.find("\r\nto Playlist\" from the toolbar,  \"Add\" from\r\n"), std::string::npos);
    click(list().HotKeyMenu.Click);
    const std::string &keys = world.boxes.last().text;
    EXPECT_TRUE(keys.starts_with(std::string(kVideoList.hotKeysFirst) + "\r\n\r\n"));
    EXPECT_TRUE(keys.ends_with(std::string("\r\n") + kVideoList.hotKeysLast));
}

TEST_F(OtherList, PlayActiveHoldsDuringTheVideoListsPause) {
    openAs(kVideoList, {"/a.avi"});
    bool active = false;
    duringThePause([&] { active = list().PlayActive; });
    play();
    EXPECT_TRUE(active);
}

} // namespace
} // namespace tonvale::test
