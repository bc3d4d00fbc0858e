// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/unit/fakes/PlayerTest.h"

namespace tonvale::test {
namespace {

class CdTrackPlay : public PlayerTest {
protected:
    CdTrackPlay() {
        start();
        world.cd.addTrack(75 * 60);
        world.cd.addTrack(75 * 100 + 74);
        world.cd.addTrack(75 * 10);
        for (const char *path : {"/cd/Track01.cda", "/cd/Track02.cda", "/cd/Track03.cda", "/m/a.mp3"}) file(path);
        world.log.clear();
    }
    void play(const std::string &path = "/cd/Track02.cda") { executeFromDesktop(path); }
    void positionOnDisc(double seconds) {
        world.cd.position = FakeCD::fromFrames(static_cast<std::int32_t>(seconds * FakeCD::kFramesPerSecond));
    }
};

TEST_F(CdTrackPlay, ShowsTheTrackAndItsLength) {
    play();
    EXPECT_TRUE(isRunning());
    EXPECT_EQ(form().Label3.Caption, "Audio Track #2");
    EXPECT_EQ(form().CurrentTrack, 1);
    EXPECT_EQ(totalDigits(), "00:01:40");
    EXPECT_EQ(form().slidTracker.Max, 100);
    EXPECT_FALSE(form().zoom.Enabled);
    EXPECT_FALSE(form().DeleteMenu.Enabled);
    EXPECT_FALSE(form().DeleteMenu2.Enabled);
    EXPECT_TRUE(form().Timer2.Enabled());
    EXPECT_TRUE(form().CDR_Timer.Enabled());
    EXPECT_FALSE(form().Timer3.Enabled());
}

TEST_F(CdTrackPlay, WaitsForTheDiscAndBlocksMeanwhile) {
    const std::int64_t begin = world.loop.now();
    bool served = false;
    world.loop.post([&] { served = true; });
    world.cd.ready = [this, begin] { return world.loop.now() - begin >= 14000; };
    std::string command = "/cd/Track01.cda";
    std::int16_t cancel = 0;
    form().Form_LinkExecute(command, cancel);
    EXPECT_FALSE(served) << "the wait does not yield";
    EXPECT_TRUE(isRunning());
    EXPECT_NEAR(static_cast<double>(world.loop.now() - begin), 14000, 500);
    world.loop.runUntilIdle();
    EXPECT_TRUE(served);
}

TEST_F(CdTrackPlay, GivesUpAfter15Seconds) {
    const std::int64_t begin = world.loop.now();
    world.cd.ready = [] { return false; };
    play();
    expectBox("CD not ready (15 second timeout).", BoxIcon::Exclamation);
    EXPECT_NEAR(static_cast<double>(world.loop.now() - begin), 15000, 1000);
    EXPECT_TRUE(world.log.of({"cd.ReadDirectory", "cd.PlayTrack"}).empty());
    EXPECT_TRUE(isIdle());
    EXPECT_FALSE(form().CDR_Timer.Enabled());
}

TEST_F(CdTrackPlay, TheWaitGoesByTheRoundedClockOfTheDay) {
    world.clock.setSecondsSinceMidnight(1000.4); // begins at 1000, so only 14.6 seconds are left
    const std::int64_t begin = world.loop.now();
    world.cd.ready = [] { return false; };
    play();
    EXPECT_NEAR(static_cast<double>(world.loop.now() - begin), 14600, 200);
}

TEST_F(CdTrackPlay, OverMidnightTheWaitEnds15SecondsIntoTheNewCount) {
    world.clock.setSecondsSinceMidnight(86390);
    const std::int64_t begin = world.loop.now();
    world.cd.ready = [] { return false; };
    play();
    expectBox("CD not ready (15 second timeout).", BoxIcon::Exclamation);
    EXPECT_NEAR(static_cast<double>(world.loop.now() - begin), 25000, 500);
}

TEST_F(CdTrackPlay, OverMidnightADiscThatComesIsPlayed) {
    world.clock.setSecondsSinceMidnight(86390);
    const std::int64_t begin = world.loop.now();
    world.cd.ready = [&] { return world.loop.now() - begin >= 20000; };
    play();
    EXPECT_TRUE(isRunning());
    EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(CdTrackPlay, ADriveThatFailsIsNotReady) {
    world.cd.ready = []() -> bool { throw RuntimeError(ErrorNumber::DeviceIOError); };
    play();
    expectBox("CD not ready (15 second timeout).", BoxIcon::Exclamation);
}

TEST_F(CdTrackPlay, ADirectoryThatCannotBeReadSaysSo) {
    world.cd.directoryReadable = false;
    play();
    expectBox("Unable to read CD directory.", BoxIcon::Exclamation);
    EXPECT_TRUE(isIdle());
    EXPECT_TRUE(world.log.of({"cd.PlayTrack"}).empty());
    EXPECT_EQ(form().Text1.Text, "/cd/Track02.cda");
}

TEST_F(CdTrackPlay, TheNumberIsWhatFollowsTheFifthCharacter) {
    const std::vector<std::pair<std::string, int>> names{{"/cd/Track03.cda", 2}, {"/cd/Piste3.cda", 2},
                                                         {"/cd/Tr.cda", -1},     {"/cd/TrackXY.cda", -1},
                                                         {"/cd/Track.cda", -1},  {"/cd/Track2b.cda", 1}};
    for (const auto &[path, index] : names) {
        world.log.clear();
        executeFromDesktop(path);
        EXPECT_EQ(world.log.of({"cd.PlayTrack"}), Texts{"cd.PlayTrack " + std::to_string(index)}) << path;
        EXPECT_EQ(form().CurrentTrack, index) << path;
        EXPECT_EQ(form().Label3.Caption, "Audio Track #" + std::to_string(index + 1)) << path;
    }
}

TEST_F(CdTrackPlay, ThePositionFollowsTheDisc) {
    play();
    positionOnDisc(60 + 7.9);
    world.advance(1000);
    EXPECT_EQ(form().slidTracker.Value(), 7);
    EXPECT_EQ(positionDigits(), "00:00:07");
    positionOnDisc(60 + 65);
    world.advance(1000);
    EXPECT_EQ(positionDigits(), "00:01:05");
}

TEST_F(CdTrackPlay, SecondsOfTheDiscAreCutBeforeTheyAreSubtracted) {
    world.cd.tracks[1].StartTime = FakeCD::fromFrames(75 * 60 + 74); // 60 whole seconds
    play();
    world.cd.position = FakeCD::fromFrames(75 * 61);
    world.advance(1000);
    EXPECT_EQ(form().slidTracker.Value(), 1);
}

TEST_F(CdTrackPlay, TheGaugeDancesEightTimesASecond) {
    play();
    world.random.value = 0;
    world.advance(125);
    EXPECT_EQ(form().MMLEDGaugeX1.Position, 30);
    world.random.value = 0.999999;
    world.advance(124);
    EXPECT_EQ(form().MMLEDGaugeX1.Position, 30);
    world.advance(1);
    EXPECT_EQ(form().MMLEDGaugeX1.Position, 100);
}

TEST_F(CdTrackPlay, EndsWhenTheSliderReachesItsMaximumAndTheCdIsNotTold) {
    play();
    world.log.clear();
    positionOnDisc(60 + 100);
    world.advance(1000);
    EXPECT_TRUE(isIdle());
    EXPECT_EQ(form().MMLEDX1.LEDColor, kRed);
    EXPECT_EQ(form().slidTracker.Value(), 0);
    EXPECT_EQ(positionDigits(), "00:00:00");
    EXPECT_FALSE(form().CDR_Timer.Enabled());
    EXPECT_FALSE(form().Timer2.Enabled());
    EXPECT_FALSE(world.log.has("cd.StopPlay"));
    EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(CdTrackPlay, AtTheEndInCapitalsDoesNotStopByItself) {
    file("/cd/TRACK02.CDA");
    play("/cd/TRACK02.CDA");
    positionOnDisc(60 + 100);
    world.advance(1000);
    EXPECT_FALSE(isIdle()) << "the end is looked for in .cda as it stands";
}

TEST_F(CdTrackPlay, EachTickWritesThePositionOfTheIdleMediaEngineToo) {
    executeFromDesktop("/m/a.mp3");
    click(form().StopMenu.Click);
    play();
    world.log.clear();
    positionOnDisc(60 + 5);
    world.advance(1000);
    EXPECT_TRUE(world.log.has("engine.seek 5"));
}

TEST_F(CdTrackPlay, TheTrackFollowsTheNameAtEachChange) {
    play();
    form().Text1.Text = "/cd/Track03.cda";
    form().slidTracker.Value(3);
    EXPECT_EQ(form().CurrentTrack, 2);
}

TEST_F(CdTrackPlay, PauseFreezesThePositionAndKeepsIt) {
    play();
    positionOnDisc(60 + 30);
    world.log.clear();
    click(form().PauseMenu.Click);
    EXPECT_EQ(world.log.of({"cd."}), (Texts{"cd.PlayPosition", "cd.PausePlay"}));
    EXPECT_FALSE(form().Timer2.Enabled());
    EXPECT_FALSE(form().CDR_Timer.Enabled());
    EXPECT_FALSE(form().Timer3.Enabled());
    EXPECT_EQ(form().MMLEDX1.LEDColor, kYellow);
}

TEST_F(CdTrackPlay, ResumePlaysOnFromThereForTheTracksPlayTime) {
    play();
    positionOnDisc(60 + 30);
    click(form().PauseMenu.Click);
    positionOnDisc(0);
    world.log.clear();
    form().PauseMenu.Click();
    EXPECT_EQ(world.log.of({"cd."}), Texts{"cd.PlayRange " + std::to_string(90 * 75) + " " + std::to_string(7574)});
    EXPECT_TRUE(form().Timer2.Enabled());
    EXPECT_TRUE(form().CDR_Timer.Enabled());
    EXPECT_TRUE(form().Timer3.Enabled());
    EXPECT_EQ(form().MMLEDX1.LEDColor, kGreen);
}

TEST_F(CdTrackPlay, PauseAndResumeFoldTheCase) {
    file("/cd/TRACK02.CDA");
    play("/cd/TRACK02.CDA");
    world.log.clear();
    click(form().PauseMenu.Click);
    form().PauseMenu.Click();
    EXPECT_EQ(world.log.of({"cd.PausePlay", "cd.PlayRange"}).size(), 2U);
}

TEST(PauseMenu, ResumeLeavesTheCdDisplayStandingStill) {
    World world;
    world.cd.addTrack(7500);
    world.files.add("/cd/Track01.cda", 44);
    Form1 &form = world.start("/cd/Track01.cda");
    form.PauseMenu.Click();
    form.PauseMenu.Click();
    world.advance(100);
    EXPECT_FALSE(form.CDR_Timer.Enabled());
    const std::int32_t still = form.slidTracker.Value();
    world.cd.position = FakeCD::fromFrames(75 * 42);
    world.advance(5000);
    EXPECT_EQ(form.slidTracker.Value(), still);
}

TEST_F(CdTrackPlay, StopTellsTheCd) {
    play();
    world.log.clear();
    click(form().playmenu.Click);
    EXPECT_EQ(world.log.of({"cd.", "engine."}), Texts{"cd.StopPlay"});
    EXPECT_TRUE(isIdle());
    EXPECT_FALSE(form().CDR_Timer.Enabled());
}

TEST_F(CdTrackPlay, StopOfANameInCapitalsLeavesTheCdPlaying) {
    file("/cd/TRACK02.CDA");
    play("/cd/TRACK02.CDA");
    world.log.clear();
    click(form().playmenu.Click);
    EXPECT_TRUE(world.log.of({"cd."}).empty());
    EXPECT_TRUE(isIdle());
}

TEST_F(CdTrackPlay, ANewFileStopsTheCd) {
    play();
    world.log.clear();
    executeFromDesktop("/m/a.mp3");
    EXPECT_TRUE(world.log.has("cd.StopPlay"));
    EXPECT_EQ(form().Label3.Caption, "a.mp3");
}

TEST_F(CdTrackPlay, DoesNotLoop) {
    world.app().settings->Check6.Value = 1;
    play();
    positionOnDisc(60 + 100);
    world.log.clear();
    world.advance(2000);
    EXPECT_TRUE(isIdle());
    EXPECT_TRUE(world.log.of({"cd.Play "}).empty());
}

TEST_F(CdTrackPlay, StartsAtOnceWhileAFileIsPlaying) {
    executeFromDesktop("/m/a.mp3");
    play();
    EXPECT_TRUE(isRunning()) << "a track goes to the playing state at once";
    EXPECT_EQ(form().Label3.Caption, "Audio Track #2");
    EXPECT_TRUE(form().CDR_Timer.Enabled());
    EXPECT_TRUE(form().Timer2.Enabled());
    EXPECT_FALSE(world.media.playing);
}

TEST_F(CdTrackPlay, ACdWithoutThatTrackShowsNoError) {
    play("/cd/Track09.cda");
    EXPECT_TRUE(world.boxes.shown.empty());
    EXPECT_EQ(form().Label3.Caption, "Audio Track #9");
}

} // namespace
} // namespace tonvale::test
