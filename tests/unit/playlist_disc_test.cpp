// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/unit/fakes/ListTest.h"

namespace tonvale::test {
namespace {

using testing::ElementsAre;

class ListDisc : public ListTest {
protected:
    void disc(int tracks) {
        for (int i = 0; i < tracks; ++i) world.cd.addTrack(750);
    }
    Texts calls() { return world.log.of({"engine.", "cd."}); }
};

TEST_F(ListDisc, ADiscTrackIsPlayedByTheReader) {
    disc(5);
    openWith({"/a.mp3", "X:\\Track03.cda"});
    play();
    world.log.clear();
    click(list().NextMenu.Click);
    EXPECT_THAT(calls(), ElementsAre("engine.stop", "cd.CloseDevice", "cd.OpenDevice", "cd.PlayTrack 3"))
        << "the fourth track, on the reader's own drive";
    EXPECT_TRUE(engine().Timer1.Enabled());
    EXPECT_EQ(now(), "Playing File:  Track03.cda (2 of 2)");
    EXPECT_TRUE(isPlaying());
}

TEST_F(ListDisc, TheTrackNumberIsWhatTheNameBeginsWithFromItsSixthLetter) {
    disc(20);
    const std::vector<std::pair<const char *, const char *>> cases = {
        {"/Track01.cda", "1"}, {"/Track12.cda", "12"}, {"/Track.cda", "0"},     {"/T.cda", "0"},
        {"/TrackXY.cda", "0"}, {"/Track7th.cda", "7"}, {"/12345678.CDA", "678"}};
    for (const auto &[row, number] : cases) {
        openWith({row});
        world.boxes.whileUp = [&](const MessageBox &) { list().playmenu.Click(); };
        play();
        EXPECT_TRUE(world.log.has(std::string("cd.PlayTrack ") + number)) << row;
        world.boxes.whileUp = nullptr;
        if (isRunning()) play();
        list().Unload();
        world.runUntilIdle();
    }
}

TEST_F(ListDisc, TheLastTracksRowFails) {
    disc(2);
    openWith({"/Track02.cda", "/a.mp3"});
    play();
    expectBox("Unable to play file: Subscript out of range", BoxIcon::Exclamation);
    EXPECT_EQ(now(), "Playing File: a.mp3 (2 of 2)");
}

TEST_F(ListDisc, ADriveThatCannotBeOpenedIsToldAndPassedOver) {
    disc(3);
    world.cd.openFails = true;
    openWith({"/Track01.cda", "/a.mp3"});
    play();
    EXPECT_EQ(world.boxes.shown.size(), 1U);
    EXPECT_EQ(world.boxes.last().text.rfind("Unable to play file: ", 0), 0U);
    EXPECT_EQ(now(), "Playing File: a.mp3 (2 of 2)");
}

TEST_F(ListDisc, TheReadersGoingIdleIsTheEndOfItsItem) {
    disc(3);
    openWith({"/Track01.cda", "/b.mp3"});
    world.cd.state = DriveState::Playing;
    play();
    world.advance(5000);
    EXPECT_EQ(now(), "Playing File: Track01.cda (1 of 2)");
    world.cd.state = DriveState::TrayOpen;
    world.advance(1000);
    EXPECT_TRUE(engine().Timer1.Enabled()) << "other states do nothing";
    world.cd.state = DriveState::Idle;
    world.advance(500);
    EXPECT_EQ(now(), "Playing File: b.mp3 (2 of 2)");
    EXPECT_FALSE(engine().Timer1.Enabled());
}

TEST_F(ListDisc, TheEndOfADiscItemThatWasPausedIsNotSeen) {
    disc(3);
    openWith({"/Track01.cda", "/b.mp3"});
    world.cd.state = DriveState::Playing;
    play();
    click(list().PauseMenu.Click);
    EXPECT_TRUE(world.log.has("cd.PausePlay"));
    world.cd.state = DriveState::Paused;
    world.advance(500);
    EXPECT_FALSE(engine().Timer1.Enabled());
    click(list().PauseMenu.Click);
    EXPECT_TRUE(world.log.has("cd.ResumePlay"));
    world.cd.state = DriveState::Idle;
    world.advance(5000);
    EXPECT_EQ(now(), "Playing File: Track01.cda (1 of 2)");
}

TEST_F(ListDisc, PauseLooksAtTheExtensionAsItStands) {
    disc(3);
    world.cd.state = DriveState::Playing;
    openWith({"/Track01.CDA"});
    play();
    EXPECT_TRUE(world.log.has("cd.PlayTrack 1"));
    click(list().PauseMenu.Click);
    EXPECT_FALSE(world.log.has("cd.PausePlay"));
    EXPECT_EQ(list().PauseMenu.Caption, "&Resume\tAlt + R");
    click(list().PauseMenu.Click);
    EXPECT_FALSE(world.log.has("cd.ResumePlay"));
}

TEST_F(ListDisc, TheReadersNotificationsAreEnds) {
    openWith({"/0.mp3", "/1.mp3", "/2.mp3", "/3.mp3"});
    play();
    for (Event<> *notification :
         {&engine().CDReader->CopyFinished, &engine().CDReader->CopyBroken, &engine().CDReader->PlayFinished}) {
        (*notification)();
        world.runUntilIdle();
    }
    EXPECT_EQ(now(), "Playing File: 3.mp3 (4 of 4)");
    play();
    engine().CDReader->CopyFinished();
    EXPECT_TRUE(isIdle());
}

TEST_F(ListDisc, AMachineWithoutAReaderPlaysFilesAllTheSame) {
    world.cd.openFails = true;
    openWith({"/a.mp3"});
    play();
    EXPECT_TRUE(isPlaying());
}

} // namespace
} // namespace tonvale::test
