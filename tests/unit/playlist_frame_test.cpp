// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/unit/fakes/ListTest.h"

namespace tonvale::test {
namespace {

using testing::ElementsAre;

class ListFrame : public ListTest {
protected:
    std::string listSetting(const std::string &key) {
        return SettingsStore(world.registry).GetSetting("Audio PlayList", "Settings", key, "(none)");
    }
    void setListSetting(const std::string &key, const std::string &value) {
        SettingsStore(world.registry).SaveSetting("Audio PlayList", "Settings", key, value);
    }
    bool close() {
        const bool closed = list().Unload();
        world.runUntilIdle();
        return closed;
    }
    // The next window of this kind cannot put its procedure in place.
    void letTheHookFail() {
        world.start();
        world.app().frmPlayList.setFactory(
            [this] { return std::make_unique<PlaylistWindow>(world.app(), kAudioList, [](Form &) { return false; }); });
        world.app().frmPlayList->Show();
        world.runUntilIdle();
    }
};

TEST_F(ListFrame, TheWindowStandsInForTheMainWindow) {
    open();
    EXPECT_EQ(list().Caption, "Audio PlayList");
    EXPECT_FALSE(world.app().form1->Visible);
    close();
    EXPECT_TRUE(world.app().form1->Visible);
    EXPECT_FALSE(isOpen());
}

TEST_F(ListFrame, LoadsAsTold) {
    world.mixer.level = 32768;
    PlaylistWindow &w = open();
    EXPECT_TRUE(w.ListSaved);
    EXPECT_EQ(w.PauseMenu.Caption, "Pa&use\tAlt + P");
    EXPECT_EQ(w.PrevMenu.Caption, "Seek Pre&vious\t-");
    EXPECT_EQ(w.NextMenu.Caption, "Seek &Next\t+");
    EXPECT_EQ(w.ExitMenu.Caption, "E&xit");
    EXPECT_EQ(w.Slider1.Min, 0);
    EXPECT_EQ(w.Slider1.Max, 100);
    EXPECT_EQ(w.Slider1.Value(), 50);
    EXPECT_EQ(w.Slider1.ToolTipText, "Volume Control");
    EXPECT_EQ(w.Label1.Caption, "50");
    EXPECT_EQ(w.BorderStyle, BorderStyle::Sizable);
    EXPECT_EQ(w.MinWidth, 310 * 15);
    EXPECT_EQ(w.MinHeight, 250 * 15);
    EXPECT_GE(w.Width, w.MinWidth.get());
    EXPECT_GE(w.Height, w.MinHeight.get());
    EXPECT_TRUE(w.AcceptsFiles);
    for (const MenuEntry *entry : {&w.PrevMenu, &w.PrevPop, &w.NextMenu, &w.NextPop, &w.playmenu, &w.RemoveMenu})
        EXPECT_FALSE(entry->Enabled);
    EXPECT_FALSE(w.LoopMenu.Checked);
    EXPECT_FALSE(w.OntopMenu.Checked);
    EXPECT_FALSE(w.Topmost);
    EXPECT_FALSE(engine().Timer1.Enabled());
    EXPECT_EQ(engine().Timer1.Interval(), 500);
    expectNoBox();
}

TEST_F(ListFrame, TheMarksAreReadAtLoad) {
    setListSetting("Loop", "True");
    setListSetting("Always OnTop", "True");
    open();
    EXPECT_TRUE(list().LoopMenu.Checked);
    EXPECT_TRUE(list().OntopMenu.Checked);
    EXPECT_TRUE(list().Topmost);
    EXPECT_TRUE(isIdle()) << "the loop mark has no other effect";
}

TEST_F(ListFrame, AMarkThatIsNoBooleanIsPassedOver) {
    setListSetting("Loop", "perhaps");
    setListSetting("Always OnTop", "");
    open();
    EXPECT_FALSE(list().LoopMenu.Checked);
    EXPECT_FALSE(list().OntopMenu.Checked);
    EXPECT_TRUE(list().ListSaved) << "the load went on";
    EXPECT_TRUE(list().AcceptsFiles);
}

TEST_F(ListFrame, TheMarksAreStoredAsTheWindowCloses) {
    open();
    close();
    EXPECT_EQ(listSetting("Loop"), "False");
    EXPECT_EQ(listSetting("Always OnTop"), "False");
    open();
    click(list().LoopMenu.Click);
    click(list().OntopMenu.Click);
    EXPECT_TRUE(list().Topmost);
    close();
    EXPECT_EQ(listSetting("Loop"), "True");
    EXPECT_EQ(listSetting("Always OnTop"), "True");
    open();
    click(list().OntopMenu.Click);
    EXPECT_FALSE(list().Topmost);
    EXPECT_FALSE(list().OntopMenu.Checked);
}

TEST_F(ListFrame, AFailedStoreDoesNotKeepTheWindowOpen) {
    open();
    world.registry.writeError = ErrorNumber::DiskFull;
    EXPECT_TRUE(close());
}

TEST_F(ListFrame, EveryWindowStartsEmpty) {
    openWith({"/a.mp3"});
    close();
    open();
    EXPECT_TRUE(rows().empty());
    EXPECT_TRUE(list().PlayQueue.empty());
}

TEST_F(ListFrame, ClosingAnEmptyListAsksNothing) {
    open().ListSaved = false;
    EXPECT_TRUE(close());
    expectNoBox();
}

TEST_F(ListFrame, ClosingASavedListAsksNothing) {
    openWith({"/a.mp3"});
    EXPECT_TRUE(close());
    expectNoBox();
}

TEST_F(ListFrame, ClosingAnUnsavedListAsks) {
    openWith({"/a.mp3"}).ListSaved = false;
    world.boxes.answers = {BoxResult::No};
    EXPECT_TRUE(close());
    expectBox(kExitQuestion, BoxIcon::Question, BoxPlace::Foreground, BoxButtons::YesNoCancel);
    EXPECT_TRUE(world.dialogs.saved.empty());
    EXPECT_TRUE(world.app().form1->Visible);
}

TEST_F(ListFrame, YesSavesAndCloses) {
    openWith({"/a.mp3"}).ListSaved = false;
    world.boxes.answers = {BoxResult::Yes};
    answerDialog("/m/b.ply");
    EXPECT_TRUE(close());
    EXPECT_EQ(world.files.text("/m/b.ply"), "/a.mp3\r\n");
}

TEST_F(ListFrame, YesAndACancelledDialogClosesAllTheSame) {
    openWith({"/a.mp3"}).ListSaved = false;
    world.boxes.answers = {BoxResult::Yes};
    EXPECT_TRUE(close());
    EXPECT_EQ(world.dialogs.saved.size(), 1U);
    EXPECT_FALSE(isOpen());
}

TEST_F(ListFrame, CancelKeepsTheWindowOpenButTakesItsProcedureAway) {
    openWith({"/a.mp3"}).ListSaved = false;
    world.boxes.answers = {BoxResult::Cancel};
    EXPECT_FALSE(close());
    EXPECT_TRUE(isOpen());
    EXPECT_FALSE(world.app().form1->Visible);
    EXPECT_FALSE(list().AcceptsFiles);
    EXPECT_EQ(list().MinWidth, 0);
    EXPECT_EQ(list().MinHeight, 0);
    world.files.add("/b.mp3", 1);
    list().userDroppedFiles({"/b.mp3"});
    EXPECT_THAT(rows(), ElementsAre("/a.mp3")) << "no drop until it is opened anew";
    EXPECT_FALSE(list().SystemCommand(512));
    press(kSpace);
    EXPECT_TRUE(isPlaying()) << "the hot keys stay";
    world.boxes.answers = {BoxResult::Yes, BoxResult::No};
    EXPECT_TRUE(close());
    open();
    EXPECT_TRUE(list().AcceptsFiles);
    EXPECT_EQ(list().MinWidth, 4650);
}

TEST_F(ListFrame, ClosingARunningListAsks) {
    openWith({"/a.mp3"});
    click(list().LoopMenu.Click);
    play();
    world.boxes.answers = {BoxResult::No};
    EXPECT_FALSE(close());
    expectBox(kQuitAnyway, BoxIcon::Question, BoxPlace::Foreground, BoxButtons::YesNoButNoPreferred);
    EXPECT_TRUE(isPlaying());
    EXPECT_TRUE(world.media.playing);
    EXPECT_EQ(listSetting("Loop"), "True") << "stored already";
    EXPECT_TRUE(list().AcceptsFiles);
    world.boxes.answers = {BoxResult::Yes};
    world.log.clear();
    EXPECT_TRUE(close());
    EXPECT_THAT(world.log.of({"cd.StopPlay", "engine.stop"}), ElementsAre("cd.StopPlay", "engine.stop", "cd.StopPlay"));
    EXPECT_FALSE(world.media.playing);
}

TEST_F(ListFrame, AfterARefusedCloseTheEndOfADiscItemGoesUnseen) {
    for (int i = 0; i < 3; ++i) world.cd.addTrack(750);
    world.cd.state = DriveState::Playing;
    openWith({"/Track01.cda", "/b.mp3"});
    play();
    world.boxes.answers = {BoxResult::No};
    close();
    EXPECT_FALSE(engine().Timer1.Enabled());
    world.cd.state = DriveState::Idle;
    world.advance(5000);
    EXPECT_EQ(now(), "Playing File: Track01.cda (1 of 2)");
}

TEST_F(ListFrame, ClosingARunningUnsavedListAsksTwice) {
    openWith({"/a.mp3"}).ListSaved = false;
    play();
    world.boxes.answers = {BoxResult::Yes, BoxResult::Cancel};
    EXPECT_FALSE(close());
    EXPECT_EQ(world.boxes.shown.size(), 2U);
    EXPECT_EQ(world.boxes.shown[1].text, kExitQuestion);
    EXPECT_FALSE(list().PlayActive);
    EXPECT_FALSE(world.media.playing);
}

TEST_F(ListFrame, ClosingDuringThePauseAsksNothingAndNothingPlaysAfterwards) {
    openWith({"/a.mp3", "/b.mp3"});
    play();
    bool closed = false;
    duringThePause([&] { closed = list().Unload(); });
    list().NextMenu.Click();
    world.runUntilIdle();
    EXPECT_TRUE(closed);
    expectNoBox();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(opened().size(), 1U);
    EXPECT_EQ(world.media.file, "") << "the engine is gone";
    EXPECT_TRUE(world.app().form1->Visible);
}

TEST_F(ListFrame, ClosingWhileAFailureIsToldEndsTheRun) {
    world.media.broken = {"/a.mp3", "/b.mp3"};
    openWith({"/a.mp3", "/b.mp3"});
    world.boxes.whileUp = [&](const MessageBox &) {
        if (isOpen()) list().Unload();
    };
    play();
    EXPECT_EQ(world.boxes.shown.size(), 1U);
    EXPECT_FALSE(isOpen());
}

TEST_F(ListFrame, ClosingTheMainWindowDuringThePauseEndsTheProgram) {
    openWith({"/a.mp3"});
    duringThePause([&] { world.app().form1->Unload(); });
    play();
    EXPECT_TRUE(world.app().forms.loaded().empty());
    EXPECT_TRUE(opened().empty());
}

TEST_F(ListFrame, TheWaysToCloseAreOneWay) {
    const std::vector<std::function<void()>> ways = {[&] { list().ExitMenu.Click(); }, [&] { list().exitpop.Click(); },
                                                     [&] { pushToolbar("Exit"); }, [&] { list().userPressedKey(27); },
                                                     [&] { world.keyboard.press(kX); }};
    for (const auto &way : ways) {
        openWith({"/a.mp3"}).ListSaved = false;
        world.boxes.shown.clear();
        world.boxes.answers = {BoxResult::No};
        way();
        world.runUntilIdle();
        expectBox(kExitQuestion, BoxIcon::Question, BoxPlace::Foreground, BoxButtons::YesNoCancel);
        EXPECT_FALSE(isOpen());
    }
    open();
    list().userPressedKey('x');
    EXPECT_TRUE(isOpen());
}

TEST_F(ListFrame, AFailedHookIsToldAndTheListIsUsable) {
    letTheHookFail();
    expectBox("Subclassing failed.  Some features, such as drag & drop support, will not be available.",
              BoxIcon::Exclamation);
    EXPECT_FALSE(list().AcceptsFiles);
    EXPECT_EQ(list().MinWidth, 0);
    world.files.add("/b.mp3", 1);
    list().userDroppedFiles({"/b.mp3"});
    EXPECT_TRUE(rows().empty());
    answerDialog("/a.mp3");
    click(list().AddMenu.Click);
    EXPECT_THAT(rows(), ElementsAre("/a.mp3"));
    EXPECT_EQ(list().Slider1.Value(), 100) << "the load went on";
    list().ListSaved = true;
    EXPECT_TRUE(close());
}

TEST_F(ListFrame, HookAndUnhookArePairs) {
    open();
    Subclass subclass(list(), &Subclass::installProcedure);
    list().MinWidth = 7;
    subclass.Unhook();
    EXPECT_EQ(list().MinWidth, 7) << "without a Hook before it changes nothing";
    EXPECT_TRUE(subclass.Hook());
    EXPECT_TRUE(subclass.isHooked());
    subclass.Unhook();
    EXPECT_FALSE(subclass.isHooked());
    EXPECT_EQ(list().MinWidth, 0);
}

TEST_F(ListFrame, AWindowThatIsTooSmallGrowsAtLoad) {
    world.start();
    world.app().frmPlayList.setFactory([this] {
        auto window = std::make_unique<PlaylistWindow>(world.app(), kAudioList);
        window->Width = 100;
        window->Height = 100;
        return window;
    });
    EXPECT_EQ(list().Width, 4650);
    EXPECT_EQ(list().Height, 3750);
}

TEST_F(ListFrame, TheHotKeys) {
    openWith({"/a.mp3", "/b.mp3"});
    press(kSpace);
    EXPECT_TRUE(isPlaying());
    press(kP);
    EXPECT_EQ(list().PauseMenu.Caption, "&Resume\tAlt + R");
    press(kM);
    EXPECT_EQ(list().MuteMenu.Caption, "&Un-Mute");
    press(kPlus);
    EXPECT_EQ(now(), "Playing File:  b.mp3 (2 of 2)");
    press(kMinus);
    EXPECT_EQ(now(), "Playing File: a.mp3 (1 of 2)");
    press(kH);
    EXPECT_EQ(world.boxes.last().title, "Hot Key Information...");
    const std::vector<std::string> before = world.log.all();
    for (const std::int32_t code : {0, 13, 27, 65, 73, 83, 106, 108, 110, 112, 187, 189}) press(code);
    EXPECT_EQ(world.log.all(), before) << "all other codes do nothing";
    press(kSpace);
    EXPECT_TRUE(isIdle());
    press(kX);
    EXPECT_FALSE(isOpen());
    press(kSpace);
    EXPECT_TRUE(world.boxes.shown.size() == 1) << "a window that is gone answers to no key";
}

TEST_F(ListFrame, TheHotKeysDoNotLookAtTheMenus) {
    world.files.addText("/m/a.ply", "/m/1.mp3\r\n");
    world.boxes.answers = {BoxResult::Yes};
    registerPlaylistWindows(world.app());
    world.start("/m/a.ply");
    EXPECT_FALSE(list().playmenu.Enabled);
    press(kSpace);
    EXPECT_TRUE(isPlaying());
}

TEST_F(ListFrame, TheHotKeyBox) {
    open();
    click(list().HotKeyMenu.Click);
    expectBox("Use the following HotKeys at any time while the Audio Playlist is running to perform the given tasks:"
              "\r\n\r\n"
              "Control +  Space   =   Play / Stop Toggle\r\n"
              "Control +  P            =   Pause\r\n"
              "Control +  +            =   Seek Next (+ Numeric KeyPad)\r\n"
              "Control +  -             =   Seek Previous (- Numeric KeyPad)\r\n"
              "Control +  M           =   Mute\r\n"
              "Control +  H           =   HotKey Information (this window)\r\n"
              "Control +  X            =   Exit",
              BoxIcon::Information, BoxPlace::Foreground, BoxButtons::Ok, "Hot Key Information...");
}

TEST_F(ListFrame, TheSystemMenusItemsAnswerToAMessageFromOutside) {
    open();
    EXPECT_FALSE(list().SystemCommand(0xF060)) << "others are not of this window";
    expectNoBox();
    EXPECT_TRUE(list().SystemCommand(0x70000 + 512));
    expectBox("Choice 1 selected.", BoxIcon::Information, BoxPlace::Normal);
    EXPECT_TRUE(list().SystemCommand(513));
    expectBox("Gee, choice 2 selected! Now checked.", BoxIcon::Information, BoxPlace::Normal);
    EXPECT_TRUE(list().SystemItemChecked());
    EXPECT_TRUE(list().SystemCommand(513));
    expectBox("Gee, choice 2 selected! Now unchecked.", BoxIcon::Information, BoxPlace::Normal);
    EXPECT_FALSE(list().SystemItemChecked());
}

TEST_F(ListFrame, ThePartsFollowTheWindowsSize) {
    PlaylistWindow &w = open();
    w.setChrome(0, 600);
    for (const auto &[width, height] :
         {std::pair(4650.0, 3750.0), std::pair(7500.0, 6000.0), std::pair(30000.0, 20000.0)}) {
        w.userResized(width, height);
        const double inner = height - 600, margin = 150;
        EXPECT_EQ(w.Toolbar1.Left, 0);
        EXPECT_EQ(w.Toolbar1.Top, 0);
        EXPECT_EQ(w.Toolbar1.Width, width);
        EXPECT_EQ(w.Slider1.Left, margin);
        EXPECT_GE(w.Slider1.Top, w.Toolbar1.Height.get());
        EXPECT_EQ(w.Slider1.Left + w.Slider1.Width, w.Label1.Left.get());
        EXPECT_EQ(w.Label1.Left + w.Label1.Width, width - margin);
        EXPECT_EQ(w.Label1.Top + w.Label1.Height / 2, w.Slider1.Top + w.Slider1.Height / 2) << "centred";
        EXPECT_GE(w.Picture2.Top, w.Slider1.Top + w.Slider1.Height);
        EXPECT_EQ(w.List1.Left, margin);
        EXPECT_EQ(w.List1.Width, width - 2 * margin);
        EXPECT_GE(w.List1.Top, w.Picture2.Top + w.Picture2.Height);
        EXPECT_GT(w.List1.Height, 50 * 15) << "rows can be seen at any size";
        EXPECT_GE(w.Label2.Top, w.List1.Top + w.List1.Height);
        EXPECT_EQ(w.Label2.Top + w.Label2.Height, inner - margin);
    }
}

TEST_F(ListFrame, AMinimizedWindowKeepsItsPartsInPlace) {
    open();
    const double width = list().List1.Width;
    list().State = WindowState::Minimized;
    list().userResized(1500, 1500);
    EXPECT_EQ(list().List1.Width, width);
}

} // namespace
} // namespace tonvale::test
