// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "player/Form1Remote.h"
#include "tests/unit/fakes/PlayerTest.h"

namespace tonvale::test {
namespace {

using Status = RemotePlayer::Status;

class Remote : public PlayerTest {
protected:
    Remote() : remote(world.app()) {
        changed_ = remote.changed.connect([this] { ++changes; });
        seeked_ = remote.seeked.connect([this](double seconds) { jumps.push_back(seconds); });
    }
    void play(const std::string &path = "/m/a.mp3") {
        file(path);
        if (!world.app().form1.isLoaded()) start();
        executeFromDesktop(path);
        changes = 0;
        jumps.clear();
        world.log.clear();
    }
    // A command, carried out.
    template <class... Args, class... Given> void order(void (RemotePlayer::*command)(Args...), Given... given) {
        (remote.*command)(given...);
        world.runUntilIdle();
    }
    Form1Remote remote;
    int changes = 0;
    std::vector<double> jumps;

private:
    Connection changed_, seeked_;
};

TEST_F(Remote, WithoutAWindowNothingIsLoaded) {
    EXPECT_EQ(remote.status(), Status::Stopped);
    EXPECT_EQ(remote.title(), "");
    EXPECT_EQ(remote.path(), "");
    EXPECT_EQ(remote.length(), 0);
    EXPECT_EQ(remote.position(), 0);
    EXPECT_EQ(remote.volume(), 0);
    EXPECT_FALSE(remote.canSeek());
    order(&RemotePlayer::play);
    order(&RemotePlayer::pause);
    order(&RemotePlayer::playPause);
    order(&RemotePlayer::stop);
    order(&RemotePlayer::seek, 3.0);
    order(&RemotePlayer::setVolume, 0.5);
    order<const std::string &>(&RemotePlayer::open, std::string("/m/a.mp3"));
    order(&RemotePlayer::raise);
    order(&RemotePlayer::quit);
    EXPECT_FALSE(world.app().form1.isLoaded());
}

TEST_F(Remote, TellsWhatThePanelShows) {
    world.media.durations["/m/a.mp3"] = 200;
    play();
    world.media.position = 12.25;
    form().MMLEDSpinX1.Value(40);
    EXPECT_EQ(remote.status(), Status::Playing);
    EXPECT_EQ(remote.title(), "a.mp3");
    EXPECT_EQ(remote.path(), "/m/a.mp3");
    EXPECT_EQ(remote.length(), 200);
    EXPECT_EQ(remote.position(), 12.25);
    EXPECT_EQ(remote.volume(), 0.4);
    EXPECT_TRUE(remote.canSeek());
}

TEST_F(Remote, FollowsPauseResumeStopAndTheEnd) {
    play();
    click(form().PauseMenu.Click);
    EXPECT_EQ(remote.status(), Status::Paused);
    EXPECT_EQ(changes, 1);
    click(form().PauseMenu.Click);
    EXPECT_EQ(remote.status(), Status::Playing);
    EXPECT_EQ(changes, 2);
    click(form().StopMenu.Click);
    EXPECT_EQ(remote.status(), Status::Stopped);
    EXPECT_GE(changes, 3);
    EXPECT_EQ(remote.title(), "a.mp3");
    EXPECT_FALSE(remote.canSeek());
    play();
    world.media.finish();
    world.runUntilIdle();
    EXPECT_EQ(remote.status(), Status::Stopped);
    EXPECT_GE(changes, 1);
}

TEST_F(Remote, AFileAfterAStopInAPausePlays) {
    play();
    click(form().PauseMenu.Click);
    click(form().StopMenu.Click);
    play("/m/b.mp3");
    EXPECT_EQ(form().PauseMenu.Caption, "&Resume");
    EXPECT_EQ(remote.status(), Status::Playing);
    order(&RemotePlayer::pause);
    EXPECT_FALSE(world.media.playing);
    EXPECT_EQ(remote.status(), Status::Paused);
    order(&RemotePlayer::play);
    EXPECT_TRUE(world.media.playing);
}

TEST_F(Remote, ADeletedFileIsNotLoadedAnyMore) {
    play();
    world.app().settings->Check4.Value = 0;
    click(form().DeleteMenu.Click);
    EXPECT_EQ(remote.title(), "");
    EXPECT_EQ(remote.path(), "");
    EXPECT_EQ(remote.length(), 0);
    EXPECT_GE(changes, 1);
}

TEST_F(Remote, TheManyChangesOfAStartAreToldOnce) {
    file("/m/a.mp3");
    start();
    world.runUntilIdle();
    changes = 0;
    answerDialog("/m/a.mp3");
    form().playmenu.Click();
    world.runUntilIdle();
    EXPECT_LE(changes, 2);
    EXPECT_GE(changes, 1);
}

TEST_F(Remote, TheDisplaysTicksAreNoChangesAndNoJumps) {
    play();
    for (int second = 1; second <= 5; ++second) {
        world.media.position = second;
        world.advance(1000);
    }
    EXPECT_EQ(changes, 0);
    EXPECT_TRUE(jumps.empty());
}

TEST_F(Remote, TheUsersSeekIsAJump) {
    play();
    form().slidTracker.Value(50);
    EXPECT_EQ(jumps, (std::vector<double>{50}));
    form().slidTracker.scrollTo(20);
    ASSERT_EQ(jumps.size(), 2U);
    EXPECT_EQ(jumps.back(), 20);
}

TEST_F(Remote, SeeksExactly) {
    play();
    order(&RemotePlayer::seek, 30.4);
    EXPECT_EQ(world.media.position, 30.4);
    EXPECT_EQ(form().slidTracker.Value(), 30);
    EXPECT_EQ(positionDigits(), "00:00:30");
    EXPECT_EQ(jumps, (std::vector<double>{30.4}));
    order(&RemotePlayer::seek, 30.1); // the slider does not move
    EXPECT_EQ(world.media.position, 30.1);
    EXPECT_EQ(jumps.size(), 2U);
}

TEST_F(Remote, ASeekIsLimitedToTheMedia) {
    play();
    order(&RemotePlayer::seek, -5.0);
    EXPECT_EQ(world.media.position, 0);
    order(&RemotePlayer::seek, 1e300);
    EXPECT_EQ(world.media.position, 100);
    jumps.clear();
    order(&RemotePlayer::seek, std::numeric_limits<double>::quiet_NaN());
    EXPECT_TRUE(jumps.empty());
}

TEST_F(Remote, ACdAndAVivoFileCannotBeSought) {
    world.cd.addTrack(75 * 60);
    play("/cd/track01.cda");
    EXPECT_EQ(remote.status(), Status::Playing);
    EXPECT_EQ(remote.length(), 60);
    EXPECT_FALSE(remote.canSeek());
    EXPECT_EQ(remote.title(), "Audio Track #1");
    order(&RemotePlayer::seek, 10.0);
    EXPECT_EQ(form().slidTracker.Value(), 0);
    world.cd.position = FakeCD::fromFrames(75 * 5);
    world.advance(1000);
    EXPECT_EQ(remote.position(), 5);
}

TEST_F(Remote, PlayResumesReplaysOrDoesNothing) {
    start();
    order(&RemotePlayer::play);
    EXPECT_TRUE(world.boxes.shown.empty());
    EXPECT_TRUE(world.dialogs.opened.empty());
    play();
    order(&RemotePlayer::play);
    EXPECT_TRUE(world.log.of({"engine"}).empty()) << "it plays already";
    click(form().StopMenu.Click);
    world.log.clear();
    order(&RemotePlayer::play);
    EXPECT_EQ(world.log.of({"engine.open", "engine.play"}), (Texts{"engine.open /m/a.mp3", "engine.play"}));
    EXPECT_EQ(remote.status(), Status::Playing);
}

TEST_F(Remote, OneKeyPausesAndPlays) {
    play();
    order(&RemotePlayer::playPause);
    EXPECT_EQ(remote.status(), Status::Paused);
    order(&RemotePlayer::playPause);
    EXPECT_EQ(remote.status(), Status::Playing);
    order(&RemotePlayer::stop);
    order(&RemotePlayer::playPause);
    EXPECT_EQ(remote.status(), Status::Playing);
    order(&RemotePlayer::pause);
    order(&RemotePlayer::pause);
    EXPECT_EQ(remote.status(), Status::Paused);
}

TEST_F(Remote, StopReallyStopsWithTheLoopOn) {
    play();
    world.app().settings->Check6.Value = 1;
    world.boxes.whileUp = [](const MessageBox &) {};
    remote.stop();
    EXPECT_TRUE(world.media.playing) << "who sent it has his answer first";
    world.runUntilIdle();
    EXPECT_FALSE(world.media.playing);
    EXPECT_EQ(remote.status(), Status::Stopped);
    EXPECT_EQ(world.app().settings->Check6.Value, 0);
    expectBox("The loop option has now been disabled, in order to stop play.  To use the loop feature in the future, "
              "after stopping, simply re-enable the setting in \"Preferences\" from the Options menu.",
              BoxIcon::Information, BoxPlace::Foreground, BoxButtons::Ok, "Important Notice:");
}

TEST_F(Remote, StopWhileIdleOpensNoDialog) {
    start();
    order(&RemotePlayer::stop);
    EXPECT_TRUE(world.dialogs.opened.empty());
}

TEST_F(Remote, SetsTheVolume) {
    start();
    order(&RemotePlayer::setVolume, 0.55);
    EXPECT_EQ(form().MMLEDSpinX1.Value(), 55);
    EXPECT_EQ(form().ActiveMovie1.Volume(), -4500);
    order(&RemotePlayer::setVolume, 7.0);
    EXPECT_EQ(form().MMLEDSpinX1.Value(), 100);
    order(&RemotePlayer::setVolume, -1.0);
    EXPECT_EQ(form().MMLEDSpinX1.Value(), 0);
    changes = 0;
    order(&RemotePlayer::setVolume, std::numeric_limits<double>::infinity());
    EXPECT_EQ(changes, 0);
}

TEST_F(Remote, OpensAFileWhateverItsName) {
    start();
    for (const char *path : {"/m/a.mp3", "/m/\"quoted\".mp3", "\"x\""}) {
        file(path);
        order<const std::string &>(&RemotePlayer::open, std::string(path));
        EXPECT_EQ(remote.path(), path);
        EXPECT_EQ(world.media.file, path);
    }
    order<const std::string &>(&RemotePlayer::open, std::string());
    EXPECT_EQ(remote.path(), "\"x\"");
}

TEST_F(Remote, RaisesTheWindowFromTheTrayAndFromTheTaskList) {
    start();
    int raised = 0;
    const Connection connection = form().raised.connect([&] { ++raised; });
    click(form().traymenu.Click);
    order(&RemotePlayer::raise);
    EXPECT_TRUE(form().Visible);
    EXPECT_FALSE(form().TrayX1.Visible);
    form().State = WindowState::Minimized;
    order(&RemotePlayer::raise);
    EXPECT_EQ(form().State, WindowState::Normal);
    EXPECT_EQ(raised, 2);
}

TEST_F(Remote, RaisesTheWindowThatHasTakenThePlace) {
    start();
    Form &other = world.app().frmVideoPlay.form();
    other.Show();
    int raised = 0;
    const Connection connection = other.raised.connect([&] { ++raised; });
    order(&RemotePlayer::raise);
    EXPECT_EQ(raised, 1);
    EXPECT_FALSE(form().Visible);
}

TEST_F(Remote, QuitEndsTheProgram) {
    play();
    order(&RemotePlayer::quit);
    EXPECT_TRUE(world.app().forms.loaded().empty());
    EXPECT_EQ(remote.status(), Status::Stopped);
    EXPECT_EQ(remote.path(), "");
    EXPECT_GE(changes, 1);
}

TEST_F(Remote, FollowsANewWindowAfterTheOldOne) {
    play();
    form().Unload();
    world.runUntilIdle();
    play("/m/b.mp3");
    EXPECT_EQ(remote.title(), "b.mp3");
    click(form().PauseMenu.Click);
    EXPECT_EQ(changes, 1);
}

TEST_F(Remote, MayGoWhileItsWordsWaitInTheLoop) {
    start();
    {
        Form1Remote other(world.app());
        form().Text1.Text = "/m/a.mp3";
        other.play();
        other.pause();
    }
    world.runUntilIdle();
    EXPECT_EQ(world.media.file, "");
}

} // namespace
} // namespace tonvale::test
