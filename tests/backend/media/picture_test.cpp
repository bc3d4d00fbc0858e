// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/backend/media/FilmTest.h"

namespace tonvale {

namespace {

struct Picture : FilmTest {};

constexpr PictureSize kNoPicture{};

TEST_F(Picture, ItsSizeIsKnownWhenOpenReturns) {
    const std::pair<const char *, PictureSize> kSizes[] = {
        {"quadrants.avi", {320, 240}}, {"silent_quadrants.avi", {320, 240}},
        {"wide.mov", {426, 240}},      {"rotated.mov", {240, 320}},
        {"one.avi", {1, 1}},           {"huge.avi", {7680, 4320}},
        {"cover.mp3", kNoPicture},     {"no_picture.mpg", kNoPicture},
        {"fields.mpg", {320, 240}},    {"quadrants.avi", {320, 240}},
    };
    for (const auto &[name, size] : kSizes) {
        open(film(name));
        EXPECT_EQ(engine->pictureSize(), size) << name;
    }
    open(media("tone.wav"));
    EXPECT_EQ(engine->pictureSize(), kNoPicture);
    EXPECT_TRUE(changes.empty());
}

TEST_F(Picture, ItsColoursAreAtTheirPlaces) {
    show({320, 240});
    openAndPlay(film("quadrants.avi"));
    EXPECT_TRUE(window->attached);
    EXPECT_TRUE(window->showsQuadrants(0, 0, 320, 240));
}

TEST_F(Picture, AWindowMayComeBeforeTheFileOrAfterIt) {
    openAndPlay(film("quadrants.avi"));
    ASSERT_TRUE(reachesPosition(0.3));
    show({160, 120});
    EXPECT_TRUE(window->showsQuadrants(0, 0, 160, 120));
    EXPECT_GE(engine->position(), 0.3);
    EXPECT_LT(engine->position(), 5);
    EXPECT_EQ(ended, 0);
}

TEST_F(Picture, KeepsItsShapeWithBlackBesideIt) {
    show({640, 240});
    open(film("quadrants.avi"));
    ASSERT_TRUE(window->showsQuadrants(160, 0, 320, 240));
    EXPECT_COLOUR(window->at(20, 120), kBlack);
    EXPECT_COLOUR(window->at(620, 120), kBlack);
    window->resize({320, 480});
    ASSERT_TRUE(window->paint());
    ASSERT_TRUE(window->showsQuadrants(0, 120, 320, 240));
    EXPECT_COLOUR(window->at(160, 20), kBlack);
    EXPECT_COLOUR(window->at(160, 460), kBlack);
}

TEST_F(Picture, IsShownBeforeItPlaysAndPaintedAgainWhilePaused) {
    show({320, 240});
    open(film("quadrants.avi"));
    EXPECT_TRUE(window->showsQuadrants(0, 0, 320, 240));
    window->resize({640, 480});
    EXPECT_TRUE(window->paint());
    EXPECT_TRUE(window->showsQuadrants(0, 0, 640, 480));
    EXPECT_EQ(engine->position(), 0);
}

TEST_F(Picture, IsTurnedUpright) {
    show({240, 320});
    open(film("rotated.mov"));
    // Red was at the left above.
    const auto is = [&](int x, int y, Colour colour) { return isLike(window->at(x, y), colour); };
    EXPECT_TRUE(window->becomes([&] { return is(60, 80, kBlue) || is(60, 80, kGreen); }));
    EXPECT_TRUE(window->becomes([&] { return is(180, 80, kRed) || is(180, 80, kWhite); }));
}

TEST_F(Picture, AfterCloseThereIsNothingOfIt) {
    show({320, 240});
    openAndPlay(film("quadrants.avi"));
    ASSERT_TRUE(window->showsQuadrants(0, 0, 320, 240));
    engine->close();
    EXPECT_EQ(engine->pictureSize(), kNoPicture);
    EXPECT_TRUE(window->becomes([&] {
        static_cast<void>(window->paint());
        return isLike(window->at(80, 60), kBlack) && isLike(window->at(240, 180), kBlack);
    }));
}

TEST_F(Picture, OutlivesTheEngineAndShowsNothingThen) {
    show({320, 240});
    openAndPlay(film("quadrants.avi"));
    ASSERT_TRUE(window->showsQuadrants(0, 0, 320, 240));
    engine.reset();
    EXPECT_FALSE(window->paint());
    source->skip();
}

TEST_F(Picture, GoesOverToAnotherWindow) {
    show({320, 240});
    openAndPlay(film("quadrants.avi"));
    ASSERT_TRUE(window->showsQuadrants(0, 0, 320, 240));
    ASSERT_TRUE(reachesPosition(0.5));
    show({160, 120});
    EXPECT_TRUE(window->showsQuadrants(0, 0, 160, 120));
    EXPECT_TRUE(reachesPosition(1.2));
    EXPECT_EQ(ended, 0);
}

TEST_F(Picture, AHiddenWindowDoesNotHoldTheFilmUp) {
    show({320, 240}).hidden = true;
    openAndPlay(film("silent_quadrants.avi"));
    ASSERT_TRUE(reachesPosition(0.5));
    const auto start = std::chrono::steady_clock::now();
    ASSERT_TRUE(reachesPosition(engine->position() + 1));
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
    EXPECT_NEAR(passed.count(), 1, 0.3);
    EXPECT_EQ(window->painted, 0);
    window->hidden = false;
    EXPECT_TRUE(window->showsQuadrants(0, 0, 320, 240));
}

// The pictures of a second come in about a second, each once.
TEST_F(Picture, EveryFrameIsPainted) {
    show({160, 120});
    openAndPlay(film("quadrants.avi"));
    ASSERT_TRUE(reachesPosition(0.5));
    const int before = window->painted;
    const double from = engine->position();
    ASSERT_TRUE(reachesPosition(from + 2));
    EXPECT_NEAR(window->painted - before, 50, 12);
}

TEST_F(Picture, ChangesItsSizeInMidStream) {
    show({320, 240});
    openAndPlay(film("changing.m1v"));
    EXPECT_EQ(engine->pictureSize(), (PictureSize{160, 120}));
    EXPECT_TRUE(window->becomes([&] { return isLike(window->at(160, 120), kRed); }));
    EXPECT_TRUE(loop.runUntil([&] { return !changes.empty(); }));
    EXPECT_EQ(changes, (std::vector<PictureSize>{{320, 240}}));
    EXPECT_TRUE(window->becomes([&] { return isLike(window->at(160, 120), kBlue); }));
    EXPECT_TRUE(hasEnded());
}

TEST_F(Picture, OneDotAndEightThousandFillTheWindowAlike) {
    show({320, 240});
    openAndPlay(film("one.avi"));
    EXPECT_TRUE(window->becomes([&] { return isLike(window->at(160, 120), kRed); }));
    EXPECT_TRUE(hasEnded());
    openAndPlay(film("huge.avi"));
    EXPECT_TRUE(
        window->becomes([&] { return isLike(window->at(160, 120), kRed) && isLike(window->at(5, 5), kBlack); }));
    EXPECT_TRUE(loop.runUntil([&] { return ended == 2; }));
}

TEST_F(Picture, ABrokenOneLeavesTheSound) {
    show({320, 240});
    const auto start = std::chrono::steady_clock::now();
    openAndPlay(film("broken.avi"));
    EXPECT_LT(std::chrono::steady_clock::now() - start, 5s);
    EXPECT_EQ(engine->pictureSize(), kNoPicture);
    EXPECT_TRUE(reachesPosition(0.5));
    engine->seek(11.5);
    EXPECT_TRUE(hasEnded());
}

TEST_F(Picture, ACoverIsNotShown) {
    show({320, 240});
    openAndPlay(film("cover.mp3"));
    ASSERT_TRUE(reachesPosition(0.5));
    static_cast<void>(window->paint());
    EXPECT_COLOUR(window->at(160, 120), kBlack);
    EXPECT_NEAR(engine->duration(), 3, 0.1);
}

TEST_F(Picture, TwentyFilesInARowLeaveTheLast) {
    show({320, 240});
    const std::array names{"one.avi", "silent_quadrants.avi", "changing.m1v", "cover.mp3", "rotated.mov"};
    for (int i = 0; i < 20; ++i) {
        openAndPlay(film(names.at(static_cast<std::size_t>(i) % names.size())));
        if (i % 3 == 0) loop.runFor(20ms);
    }
    openAndPlay(film("quadrants.avi"));
    EXPECT_EQ(engine->pictureSize(), (PictureSize{320, 240}));
    EXPECT_TRUE(window->showsQuadrants(0, 0, 320, 240));
    EXPECT_EQ(ended, 0);
}

TEST_F(Picture, ClosingAndDestroyingArePromptAtAnyMoment) {
    for (int i = 0; i < 12; ++i) {
        makeEngine();
        show({320, 240});
        openAndPlay(film(i % 2 == 0 ? "quadrants.avi" : "changing.m1v"));
        loop.runFor(std::chrono::milliseconds(9 * i));
        const auto start = std::chrono::steady_clock::now();
        if (i % 3 == 0) engine->close();
        if (i % 3 == 1) window.reset();
        engine.reset();
        EXPECT_LT(std::chrono::steady_clock::now() - start, 1s);
        window.reset();
    }
    EXPECT_EQ(ended, 0);
}

TEST_F(Picture, StopShowsTheStartAgain) {
    show({320, 240});
    openAndPlay(film("changing.m1v"));
    ASSERT_TRUE(window->becomes([&] { return isLike(window->at(160, 120), kBlue); }));
    engine->stop();
    EXPECT_TRUE(window->becomes([&] { return isLike(window->at(160, 120), kRed); }));
    EXPECT_EQ(engine->position(), 0);
}

} // namespace

} // namespace tonvale
