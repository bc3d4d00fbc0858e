// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/backend/media/FilmTest.h"

namespace tonvale {

namespace {

struct Options : FilmTest {
    template <class Change> void change(Change apply) {
        MediaSettings settings = engine->settings();
        apply(settings);
        engine->setSettings(settings);
        EXPECT_EQ(engine->settings(), settings);
    }
    bool becomes(int x, int y, const std::function<bool(Colour)> &condition) {
        return window->becomes([&] { return condition(window->at(x, y)); });
    }
};

TEST_F(Options, AreNeutralAtFirst) {
    openAndPlay(film("quadrants.avi"));
    MediaSettings neutral;
    neutral.audioTrack = 1;
    EXPECT_EQ(engine->settings(), neutral);
}

TEST_F(Options, SpeedMovesThePositionFaster) {
    openAndPlay(film("quadrants.avi"));
    ASSERT_TRUE(reachesPosition(0.3));
    change([](MediaSettings &settings) { settings.speed = 2; });
    loop.runFor(300ms);
    const auto start = std::chrono::steady_clock::now();
    const double from = engine->position();
    ASSERT_TRUE(reachesPosition(from + 3));
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
    EXPECT_NEAR(passed.count(), 1.5, 0.4);
}

// Red at the left above, white at the right below.
TEST_F(Options, ColoursChangeAsItPlays) {
    show({320, 240});
    openAndPlay(film("quadrants.avi"));
    ASSERT_TRUE(window->showsQuadrants(0, 0, 320, 240));
    change([](MediaSettings &settings) { settings.saturation = -100; });
    EXPECT_TRUE(
        becomes(80, 60, [](Colour c) { return std::abs(c.red - c.green) < 20 && std::abs(c.red - c.blue) < 20; }));
    change([](MediaSettings &settings) { settings.saturation = 0; });
    EXPECT_TRUE(becomes(80, 60, [](Colour c) { return isLike(c, kRed); }));
    change([](MediaSettings &settings) { settings.brightness = -60; });
    EXPECT_TRUE(becomes(240, 180, [](Colour c) { return c.red < 160 && c.green < 160 && c.blue < 160; }));
    change([](MediaSettings &settings) {
        settings.brightness = 0;
        settings.contrast = -50;
    });
    EXPECT_TRUE(becomes(240, 180, [](Colour c) { return c.red < 220 && c.green < 220 && c.blue < 220; }));
    change([](MediaSettings &settings) {
        settings.contrast = 0;
        settings.hue = 67; // 120 degrees of 180
    });
    EXPECT_TRUE(becomes(80, 60, [](Colour c) { return c.red < 150 && (c.green > 100 || c.blue > 100); }));
    change([](MediaSettings &settings) { settings.hue = 0; });
    EXPECT_TRUE(window->showsQuadrants(0, 0, 320, 240));
}

TEST_F(Options, ColoursChangeWhilePaused) {
    show({320, 240});
    open(film("quadrants.avi"));
    ASSERT_TRUE(window->showsQuadrants(0, 0, 320, 240));
    change([](MediaSettings &settings) { settings.brightness = -100; });
    EXPECT_TRUE(becomes(240, 180, [](Colour c) { return c.red < 60; }));
    EXPECT_EQ(engine->position(), 0);
}

TEST_F(Options, AspectChangesTheSizeAndIsReported) {
    openAndPlay(film("quadrants.avi"));
    change([](MediaSettings &settings) { settings.aspect = PictureAspect::SixteenToNine; });
    EXPECT_TRUE(loop.runUntil([&] { return engine->pictureSize() == (PictureSize{426, 240}); }));
    change([](MediaSettings &settings) { settings.aspect = PictureAspect::Wide; });
    EXPECT_TRUE(loop.runUntil([&] { return engine->pictureSize().width > 560; }));
    change([](MediaSettings &settings) { settings.aspect = PictureAspect::AsStored; });
    EXPECT_TRUE(loop.runUntil([&] { return engine->pictureSize() == (PictureSize{320, 240}); }));
    ASSERT_EQ(changes.size(), 3u);
    EXPECT_NEAR(changes[1].width, 564, 1);
}

TEST_F(Options, DeinterlacingMeltsTheFields) {
    show({320, 240});
    openAndPlay(film("fields.mpg"));
    const auto comb = [this] {
        int difference = 0;
        for (int y = 100; y < 120; ++y) difference += std::abs(window->at(160, y).red - window->at(160, y + 1).red);
        return difference / 20;
    };
    ASSERT_TRUE(window->becomes([&] { return comb() > 200; }));
    change([](MediaSettings &settings) { settings.deinterlace = true; });
    EXPECT_TRUE(window->becomes([&] { return comb() < 40; }));
    change([](MediaSettings &settings) { settings.deinterlace = false; });
    EXPECT_TRUE(window->becomes([&] { return comb() > 200; }));
}

TEST_F(Options, TracksAreNamed) {
    open(film("tracks.mkv"));
    const std::vector<MediaTrack> tracks = engine->tracks();
    ASSERT_EQ(tracks.size(), 3u);
    EXPECT_EQ(tracks[0].kind, MediaTrack::Kind::Audio);
    EXPECT_EQ(tracks[0].id, 1);
    EXPECT_EQ(tracks[0].name, "eng, ac3");
    EXPECT_EQ(tracks[1].id, 2);
    EXPECT_EQ(tracks[1].name, "Commentary, fra, ac3");
    EXPECT_EQ(tracks[2].kind, MediaTrack::Kind::Subtitle);
    EXPECT_EQ(tracks[2].id, 1);
    EXPECT_EQ(tracks[2].name, "subrip");
    open(media("tone.wav"));
    EXPECT_EQ(engine->tracks().size(), 1u);
    engine->close();
    EXPECT_TRUE(engine->tracks().empty());
}

TEST_F(Options, AnotherAudioTrackIsHeard) {
    openAndPlay(film("tracks.mkv"));
    const auto rateIs = [this](std::int32_t rate) {
        return loop.runUntil([&] { return engine->statistics().sampleRate == rate; });
    };
    EXPECT_TRUE(rateIs(44100));
    change([](MediaSettings &settings) { settings.audioTrack = 2; });
    EXPECT_TRUE(rateIs(48000));
    change([](MediaSettings &settings) { settings.audioTrack = 0; });
    EXPECT_TRUE(loop.runUntil([&] { return engine->statistics().sampleRate == 0; }));
    const double position = engine->position();
    EXPECT_TRUE(reachesPosition(position + 0.5)); // without sound the picture goes on
}

TEST_F(Options, SubtitlesAreSeen) {
    show({320, 240});
    openAndPlay(film("tracks.mkv"));
    const auto light = [this] {
        int count = 0;
        for (int y = 0; y < 240; ++y)
            for (int x = 0; x < 320; ++x) count += window->at(x, y).red > 128 ? 1 : 0;
        return count;
    };
    ASSERT_TRUE(reachesPosition(0.5));
    EXPECT_EQ(light(), 0);
    change([](MediaSettings &settings) { settings.subtitleTrack = 1; });
    EXPECT_TRUE(window->becomes([&] { return light() > 100; }));
    change([](MediaSettings &settings) { settings.subtitleTrack = 0; });
    EXPECT_TRUE(window->becomes([&] { return light() == 0; }));
}

TEST_F(Options, HoldUntilTheNextFile) {
    show({320, 240});
    openAndPlay(film("quadrants.avi"));
    change([](MediaSettings &settings) {
        settings = {.speed = 4,
                    .hue = 10,
                    .saturation = -100,
                    .brightness = 20,
                    .contrast = 5,
                    .aspect = PictureAspect::Wide,
                    .deinterlace = true,
                    .audioTrack = 0};
    });
    engine->stop();
    EXPECT_EQ(engine->settings().speed, 4);
    openAndPlay(film("quadrants.avi"));
    MediaSettings neutral;
    neutral.audioTrack = 1;
    EXPECT_EQ(engine->settings(), neutral);
    EXPECT_EQ(engine->pictureSize(), (PictureSize{320, 240}));
    EXPECT_TRUE(window->showsQuadrants(0, 0, 320, 240));
    EXPECT_TRUE(loop.runUntil([&] { return engine->statistics().sampleRate == 44100; }));
    const auto start = std::chrono::steady_clock::now();
    const double from = engine->position();
    ASSERT_TRUE(reachesPosition(from + 1));
    EXPECT_GT(std::chrono::steady_clock::now() - start, 700ms);
}

TEST_F(Options, OutOfRangeAreLimited) {
    openAndPlay(film("quadrants.avi"));
    MediaSettings wild;
    wild.speed = 1e9;
    wild.hue = -5000;
    wild.contrast = 5000;
    wild.audioTrack = -3;
    engine->setSettings(wild);
    EXPECT_EQ(engine->settings().speed, 4);
    EXPECT_EQ(engine->settings().hue, -100);
    EXPECT_EQ(engine->settings().contrast, 100);
    wild.speed = std::numeric_limits<double>::quiet_NaN();
    engine->setSettings(wild);
    EXPECT_EQ(engine->settings().speed, 0.25);
    loop.runFor(200ms);
    EXPECT_EQ(ended, 0);
}

TEST_F(Options, WithoutAFileAreNotTaken) {
    MediaSettings settings;
    settings.speed = 2;
    engine->setSettings(settings);
    EXPECT_EQ(engine->settings(), MediaSettings{});
    EXPECT_TRUE(engine->tracks().empty());
    EXPECT_EQ(engine->statistics().videoCodec, "");
}

struct Statistics : FilmTest {};

TEST_F(Statistics, TellWhatTheFilmIs) {
    openAndPlay(film("quadrants.avi"));
    EXPECT_TRUE(loop.runUntil([&] {
        const MediaStatistics statistics = engine->statistics();
        return statistics.videoBitRate > 0 && statistics.audioBitRate > 0;
    }));
    const MediaStatistics statistics = engine->statistics();
    EXPECT_EQ(statistics.container, "avi");
    EXPECT_NE(statistics.videoCodec.find("mpeg4"), std::string::npos) << statistics.videoCodec;
    EXPECT_NE(statistics.audioCodec.find("mp3"), std::string::npos) << statistics.audioCodec;
    EXPECT_EQ(statistics.picture, (PictureSize{320, 240}));
    EXPECT_EQ(statistics.frameRate, 25);
    EXPECT_EQ(statistics.sampleRate, 44100);
    EXPECT_EQ(statistics.channels, 1);
    EXPECT_NEAR(statistics.audioBitRate, 64000, 6400);
    EXPECT_GE(statistics.droppedFrames, 0);
}

TEST_F(Statistics, OfSoundHaveNoPicture) {
    openAndPlay(media("tone.mp3"));
    EXPECT_TRUE(loop.runUntil([&] { return engine->statistics().sampleRate == 44100; }));
    const MediaStatistics statistics = engine->statistics();
    EXPECT_EQ(statistics.videoCodec, "");
    EXPECT_EQ(statistics.frameRate, 0);
    EXPECT_TRUE(statistics.picture.isEmpty());
    EXPECT_EQ(statistics.channels, 2);
    engine->close();
    EXPECT_EQ(engine->statistics().sampleRate, 0);
}

} // namespace

} // namespace tonvale
