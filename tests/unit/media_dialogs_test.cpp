// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/unit/fakes/VideoTest.h"
#include "viewers/MediaOptionsWindow.h"
#include "viewers/MediaStatisticsWindow.h"
#include "viewers/frmVideoPlay.h"

namespace tonvale::test {
namespace {

// The window that fills the screen plays a film with two sound tracks and one of subtitles.
class MediaDialogs : public PlayerTest {
protected:
    MediaDialogs() {
        world.media.pictures[kFilm] = {320, 240};
        world.media.tracks = {{MediaTrack::Kind::Audio, 1, "English"},
                              {MediaTrack::Kind::Audio, 2, ""},
                              {MediaTrack::Kind::Subtitle, 1, "French"}};
        world.media.settings.audioTrack = 1;
        start();
        form().Text1.Text = kFilm;
        click(form().FullScreenAdvMenu.Click);
    }
    frmVideoPlay &window() { return static_cast<frmVideoPlay &>(*world.app().frmVideoPlay); }
    MediaPlayer &player() { return window().MediaPlayer1; }
    MediaOptionsWindow &options() { return *world.app().MediaOptions; }
    MediaStatisticsWindow &statistics() { return *world.app().MediaStatistics; }
    [[nodiscard]] bool hasOptions() { return world.app().MediaOptions.isLoaded(); }
    [[nodiscard]] bool hasStatistics() { return world.app().MediaStatistics.isLoaded(); }
    [[nodiscard]] Texts values() {
        Texts result;
        for (const auto &row : statistics().Rows) result.push_back(row.Value.Caption);
        return result;
    }
};

TEST_F(MediaDialogs, TheMenuShowsThem) {
    click(window().OptionsMenu.Click);
    EXPECT_TRUE(hasOptions() && options().Visible);
    EXPECT_FALSE(hasStatistics());
    click(window().VideoStatsMenu.Click);
    EXPECT_TRUE(hasStatistics() && statistics().Visible);
}

TEST_F(MediaDialogs, AShownOneComesToTheFront) {
    click(window().OptionsMenu.Click);
    int raised = 0;
    const Connection connection = options().raised.connect([&] { ++raised; });
    click(window().OptionsMenu.Click);
    EXPECT_EQ(raised, 1);
}

TEST_F(MediaDialogs, EscAndTheButtonCloseThem) {
    click(window().OptionsMenu.Click);
    options().userPressedKey('x');
    EXPECT_TRUE(hasOptions());
    options().userPressedKey(kKeyEscape);
    EXPECT_FALSE(hasOptions());
    click(window().OptionsMenu.Click);
    options().Command1.Click();
    EXPECT_FALSE(hasOptions());
    click(window().VideoStatsMenu.Click);
    statistics().userPressedKey(kKeyEscape);
    EXPECT_FALSE(hasStatistics());
    click(window().VideoStatsMenu.Click);
    statistics().Command1.Click();
    EXPECT_FALSE(hasStatistics());
}

TEST_F(MediaDialogs, GoWithTheWindowTheyServe) {
    click(window().OptionsMenu.Click);
    click(window().VideoStatsMenu.Click);
    window().Unload();
    EXPECT_FALSE(hasOptions());
    EXPECT_FALSE(hasStatistics());
    world.runUntilIdle();
    EXPECT_EQ(world.loop.timerCount(), 0U);
}

TEST_F(MediaDialogs, GoWithTheProgram) {
    click(window().OptionsMenu.Click);
    click(window().VideoStatsMenu.Click);
    form().Unload();
    world.advance(2000);
    EXPECT_TRUE(world.app().forms.loaded().empty());
}

TEST_F(MediaDialogs, ServeWhoeverAskedLast) {
    click(window().OptionsMenu.Click);
    const Connection asks = showDialogsOf(world.app(), form(), form().ActiveMovie1);
    form().ActiveMovie1.ShowDialog(MediaDialog::Options);
    EXPECT_FALSE(options().cmdReset.Enabled) << "nothing is open there";
    window().Unload(); // whose dialog it is no more
    EXPECT_TRUE(hasOptions());
    form().Unload();
    EXPECT_FALSE(hasOptions());
}

// ---- options --------------------------------------------------------------------------------------

class Options : public MediaDialogs {
protected:
    Options() { click(window().OptionsMenu.Click); }
    MediaSettings &settings() { return world.media.settings; }
    Slider &slider(std::size_t index) { return options().Adjustments[index].Slider; }
    Texts names(const ComboBox &box) { return box.List; }
};

TEST_F(Options, ShowWhatTheEngineHas) {
    options().Unload();
    settings() = {1.5, 10, -20, 30, -40, PictureAspect::SixteenToNine, true, 2, 1};
    click(window().OptionsMenu.Click);
    std::vector<std::int32_t> sliders;
    Texts texts, captions;
    for (const auto &adjustment : options().Adjustments) {
        sliders.push_back(adjustment.Slider.Value());
        texts.push_back(adjustment.Value.Caption);
        captions.push_back(adjustment.Name.Caption);
    }
    EXPECT_EQ(sliders, (std::vector<std::int32_t>{150, 10, -20, 30, -40}));
    EXPECT_EQ(texts, (Texts{"150 %", "10", "-20", "30", "-40"}));
    EXPECT_EQ(captions, (Texts{"&Speed", "&Hue", "Sa&turation", "&Brightness", "Co&ntrast"}));
    EXPECT_EQ(options().cboAspect.ListIndex, 2);
    EXPECT_EQ(options().chkDeinterlace.Value, 1);
    EXPECT_EQ(options().cboAudio.ListIndex, 2);
    EXPECT_EQ(options().cboSubtitles.ListIndex, 1);
    EXPECT_EQ(names(options().cboAudio), (Texts{"None", "English", "Track 2"}));
    EXPECT_EQ(names(options().cboSubtitles), (Texts{"None", "French"}));
    EXPECT_EQ(settings(), (MediaSettings{1.5, 10, -20, 30, -40, PictureAspect::SixteenToNine, true, 2, 1}))
        << "showing changes nothing";
}

TEST_F(Options, EachChangeActsAtOnceAndAlone) {
    MediaSettings expected = settings();
    const auto expect = [&](const char *what) { EXPECT_EQ(settings(), expected) << what; };
    slider(MediaOptionsWindow::kSpeed).Value(200);
    expected.speed = 2;
    expect("speed");
    slider(MediaOptionsWindow::kHue).Value(-100);
    expected.hue = -100;
    expect("hue");
    slider(MediaOptionsWindow::kSaturation).scrollTo(55); // dragged
    expected.saturation = 55;
    expect("saturation");
    slider(MediaOptionsWindow::kBrightness).Value(5);
    expected.brightness = 5;
    expect("brightness");
    slider(MediaOptionsWindow::kContrast).Value(1000); // limited
    expected.contrast = 100;
    expect("contrast");
    options().cboAspect.ListIndex = 3;
    expected.aspect = PictureAspect::Wide;
    expect("aspect");
    options().chkDeinterlace.Value = 1;
    expected.deinterlace = true;
    expect("deinterlace");
    options().cboAudio.ListIndex = 2;
    expected.audioTrack = 2;
    expect("audio track");
    options().cboSubtitles.ListIndex = 1;
    expected.subtitleTrack = 1;
    expect("subtitles");
    options().cboAudio.ListIndex = 0;
    expected.audioTrack = 0;
    expect("no audio track");
}

TEST_F(Options, TheSpeedGoesFromAQuarterToFourTimes) {
    slider(MediaOptionsWindow::kSpeed).Value(0);
    EXPECT_EQ(settings().speed, 0.25);
    EXPECT_EQ(options().Adjustments[0].Value.Caption, "25 %");
    slider(MediaOptionsWindow::kSpeed).Value(9999);
    EXPECT_EQ(settings().speed, 4);
}

TEST_F(Options, ResetBringsBackAllButTheTracks) {
    settings() = {3, 1, 2, 3, 4, PictureAspect::Wide, true, 2, 1};
    click(window().OptionsMenu.Click);
    options().cmdReset.Click();
    MediaSettings expected;
    expected.audioTrack = 2;
    expected.subtitleTrack = 1;
    EXPECT_EQ(settings(), expected);
    EXPECT_EQ(options().Adjustments[0].Value.Caption, "100 %");
    EXPECT_EQ(options().cboAspect.ListIndex, 0);
}

TEST_F(Options, FollowTheFile) {
    slider(MediaOptionsWindow::kHue).Value(50);
    settings() = {}; // what the engine does at another file
    world.media.tracks = {};
    player().FileName("/v/b.avi");
    EXPECT_EQ(slider(MediaOptionsWindow::kHue).Value(), 0);
    EXPECT_EQ(names(options().cboAudio), (Texts{"None"}));
    EXPECT_EQ(settings(), MediaSettings{});
    EXPECT_TRUE(options().cmdReset.Enabled);
}

TEST_F(Options, WithoutAFileThereIsNothingToChange) {
    player().FileName("");
    const auto &box = options();
    for (const auto &adjustment : box.Adjustments) EXPECT_FALSE(adjustment.Slider.Enabled);
    for (const Control *control : std::initializer_list<const Control *>{
             &box.cboAspect, &box.cboAudio, &box.cboSubtitles, &box.chkDeinterlace, &box.cmdReset})
        EXPECT_FALSE(control->Enabled);
    const MediaSettings before = settings();
    slider(MediaOptionsWindow::kHue).Value(50); // a late event of the view
    options().cboAudio.ListIndex = 99;
    options().cmdReset.Click();
    EXPECT_EQ(settings(), before);
    player().FileName(kFilm);
    EXPECT_TRUE(options().cboAspect.Enabled);
}

TEST_F(Options, ARowThatIsNotThereIsNoTrack) {
    options().cboAudio.ListIndex = 99;
    EXPECT_EQ(settings().audioTrack, 0);
    options().cboAspect.ListIndex = -1;
    EXPECT_EQ(settings().aspect, PictureAspect::AsStored);
    options().cboAspect.ListIndex = 99;
    EXPECT_EQ(settings().aspect, PictureAspect::AsStored);
}

// ---- statistics -------------------------------------------------------------------------------------

class Statistics : public MediaDialogs {
protected:
    Statistics() {
        world.media.statistics = {"avi", "mpeg4", "mp3", {320, 240}, 23.976, 812345, 128000, 44100, 2, 7};
        click(window().VideoStatsMenu.Click);
    }
};

TEST_F(Statistics, TellWhatPlays) {
    Texts names;
    for (const auto &row : statistics().Rows) names.push_back(row.Name.Caption);
    EXPECT_EQ(names, (Texts{"Container", "Video Codec", "Audio Codec", "Picture Size", "Frame Rate", "Video Bit Rate",
                            "Audio Bit Rate", "Sample Rate", "Channels", "Dropped Frames"}));
    EXPECT_EQ(values(), (Texts{"avi", "mpeg4", "mp3", "320 x 240", "23.976 frames/s", "812 kbit/s", "128 kbit/s",
                               "44100 Hz", "2", "7"}));
}

TEST_F(Statistics, AreKeptUpToDateWhileTheyAreShown) {
    world.media.statistics.droppedFrames = 8;
    world.media.statistics.frameRate = 25;
    world.advance(500);
    EXPECT_EQ(values().back(), "8");
    EXPECT_EQ(values()[4], "25 frames/s");
    statistics().Hide();
    world.media.statistics.droppedFrames = 9;
    world.advance(5000);
    EXPECT_EQ(values().back(), "8");
    statistics().Show();
    world.advance(500);
    EXPECT_EQ(values().back(), "9");
}

TEST_F(Statistics, WhatIsNotKnownIsADash) {
    world.media.statistics = {};
    world.advance(500);
    EXPECT_EQ(values(), Texts(10, "-"));
    world.media.statistics.frameRate = -1;
    world.media.statistics.videoBitRate = std::numeric_limits<double>::quiet_NaN();
    world.advance(500);
    EXPECT_EQ(values(), Texts(10, "-"));
}

TEST_F(Statistics, OfASoundFileHaveNoFramesToDrop) {
    world.media.statistics = {"mp3", "", "mp3", {}, 0, 0, 320000, 48000, 1, 0};
    world.advance(500);
    EXPECT_EQ(values(), (Texts{"mp3", "-", "mp3", "-", "-", "-", "320 kbit/s", "48000 Hz", "1", "-"}));
}

TEST_F(Statistics, FollowTheFileToItsEnd) {
    player().FileName("");
    EXPECT_EQ(values(), Texts(10, "-"));
    player().FileName(kFilm);
    EXPECT_EQ(values().front(), "avi");
}

} // namespace
} // namespace tonvale::test
