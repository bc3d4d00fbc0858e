// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/media/engine/MidiSong.h"
#include "tests/backend/media/MediaTest.h"

#include <dirent.h>

#include <vector>

namespace tonvale {

namespace {

struct Transport : MediaTest {};

std::size_t openFiles() {
    std::size_t count = 0;
    for ([[maybe_unused]] const auto &entry : std::filesystem::directory_iterator("/proc/self/fd")) ++count;
    return count;
}

TEST_F(Transport, IsSilentUntilPlayed) {
    open(media("tone.wav"));
    loop.runFor(300ms);
    EXPECT_EQ(engine->position(), 0);
}

TEST_F(Transport, TimePassesAsOnTheClock) {
    openAndPlay(media("tone.wav"));
    ASSERT_TRUE(reachesPosition(0.5));
    const auto start = std::chrono::steady_clock::now();
    const double from = engine->position();
    ASSERT_TRUE(reachesPosition(from + 2));
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
    EXPECT_NEAR(passed.count(), 2, 0.3);
}

TEST_F(Transport, SilentFilmRunsInRealTime) {
    openAndPlay(media("silent.avi"));
    ASSERT_TRUE(reachesPosition(0.5));
    const auto start = std::chrono::steady_clock::now();
    ASSERT_TRUE(reachesPosition(engine->position() + 1));
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
    EXPECT_NEAR(passed.count(), 1, 0.3);
}

TEST_F(Transport, PositionNeverGoesBackWhilePlaying) {
    openAndPlay(media("tone.mp3"));
    double last = 0;
    EXPECT_TRUE(loop.runUntil([&] {
        const double position = engine->position();
        EXPECT_GE(position, last);
        last = position;
        return position > 2.5;
    }));
}

TEST_F(Transport, PauseHoldsAndPlayGoesOn) {
    openAndPlay(media("tone.wav"));
    ASSERT_TRUE(reachesPosition(0.5));
    engine->pause();
    loop.runFor(200ms);
    const double held = engine->position();
    loop.runFor(400ms);
    EXPECT_EQ(engine->position(), held);
    EXPECT_NEAR(held, 0.5, 0.2);
    engine->play();
    EXPECT_TRUE(reachesPosition(held + 0.3));
    EXPECT_LT(engine->position(), held + 2);
}

TEST_F(Transport, StopGoesBackToTheStart) {
    openAndPlay(media("tone.wav"));
    ASSERT_TRUE(reachesPosition(0.5));
    engine->stop();
    EXPECT_EQ(engine->position(), 0);
    loop.runFor(300ms);
    EXPECT_EQ(engine->position(), 0);
    EXPECT_NEAR(engine->duration(), 12, 0.01);
    engine->play();
    EXPECT_TRUE(reachesPosition(0.3));
    EXPECT_LT(engine->position(), 2);
    EXPECT_EQ(ended, 0);
}

TEST_F(Transport, EndsExactlyOnceAndPlaysAgain) {
    openAndPlay(media("tone.wav"));
    for (int round = 1; round <= 3; ++round) {
        engine->seek(11.7);
        ASSERT_TRUE(loop.runUntil([&] { return ended >= round; }));
        loop.runFor(200ms);
        EXPECT_EQ(ended, round);
        EXPECT_NEAR(engine->position(), 12, 0.05);
        if (round == 2) engine->stop();
        engine->play();
        ASSERT_TRUE(reachesPosition(0.1));
        EXPECT_LT(engine->position(), 2);
    }
}

TEST_F(Transport, StopAtTheEndOfTheMediaIsNoEnd) {
    openAndPlay(media("tone.wav"));
    for (int round = 0; round < 20; ++round) {
        engine->seek(11.9);
        // Somewhere around the end, and not with the same step each time.
        static_cast<void>(loop.runUntil([&] { return ended > 0; }, std::chrono::milliseconds(60 + 4 * round)));
        ended = 0;
        engine->stop();
        loop.runFor(20ms);
        EXPECT_EQ(ended, 0);
        engine->play();
    }
    EXPECT_TRUE(reachesPosition(0.2));
    EXPECT_EQ(ended, 0);
}

TEST_F(Transport, ShortMediaEndAgainAndAgain) {
    const std::string header = [] {
        std::ifstream file(media("tone.wav"), std::ios::binary);
        std::string bytes(44 + 4 * 441, '\0'); // 10 ms
        file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return bytes;
    }();
    open(write("short.wav", header));
    for (int round = 1; round <= 20; ++round) {
        engine->play();
        ASSERT_TRUE(loop.runUntil([&] { return ended == round; })) << round;
        engine->stop();
    }
    loop.runFor(100ms);
    EXPECT_EQ(ended, 20);
}

TEST_F(Transport, PlayAfterASeekToTheEndEnds) {
    open(media("tone.wav"));
    engine->seek(100);
    EXPECT_EQ(engine->position(), engine->duration());
    loop.runFor(200ms);
    EXPECT_EQ(ended, 0);
    engine->play();
    EXPECT_TRUE(hasEnded());
}

TEST_F(Transport, SeekIsExactWhilePaused) {
    for (const char *name : {"tone.wav", "tone.mp3", "vbr_without_header.mp3", "tone.asf", "song.mid"}) {
        open(media(name));
        for (const double target : {7.25, 3.5, 10.125, 0.0}) {
            engine->seek(target);
            EXPECT_EQ(engine->position(), target) << name;
            loop.runFor(100ms);
            // An ASF file is cut into packets of a tenth of a second.
            EXPECT_NEAR(engine->position(), target, 0.1) << name;
        }
    }
}

TEST_F(Transport, SeekWhilePlayingShowsTheTargetAndGoesOnFromThere) {
    openAndPlay(media("tone.mp3"));
    ASSERT_TRUE(reachesPosition(0.2));
    for (const double target : {6.0, 2.0, 9.0}) {
        engine->seek(target);
        EXPECT_EQ(engine->position(), target);
        const auto start = std::chrono::steady_clock::now();
        EXPECT_TRUE(loop.runUntil([&] {
            EXPECT_GE(engine->position(), target);
            EXPECT_LT(engine->position(), target + 2);
            return engine->position() > target + 0.3;
        }));
        EXPECT_LT(std::chrono::steady_clock::now() - start, 2s);
    }
}

TEST_F(Transport, SeekIsLimitedToTheMedia) {
    open(media("tone.wav"));
    engine->seek(-5);
    EXPECT_EQ(engine->position(), 0);
    engine->seek(1e9);
    EXPECT_EQ(engine->position(), engine->duration());
}

TEST_F(Transport, ManySeeksInARowLandAtTheLast) {
    openAndPlay(media("tone.wav"));
    for (int i = 0; i < 100; ++i) engine->seek(i % 11);
    engine->seek(5);
    EXPECT_TRUE(reachesPosition(5.3));
    EXPECT_LT(engine->position(), 7);
    EXPECT_EQ(ended, 0);
}

TEST_F(Transport, FiftyOpensInARow) {
    open(media("tone.wav"));
    const std::size_t before = openFiles();
    for (int i = 0; i < 50; ++i) {
        open(media(i % 2 == 0 ? "tone.mp3" : "mono.wav"));
        engine->play();
        EXPECT_NEAR(engine->duration(), 12, 0.12);
    }
    EXPECT_TRUE(reachesPosition(0.2));
    EXPECT_LT(engine->position(), 2);
    EXPECT_EQ(ended, 0);
    EXPECT_LE(openFiles(), before + 2);
}

TEST_F(Transport, NothingIsCalledBackForWhatWasClosed) {
    openAndPlay(media("tone.wav"));
    engine->seek(11.95);
    engine->close();
    loop.runFor(300ms);
    EXPECT_EQ(ended, 0);
    EXPECT_EQ(engine->duration(), 0);
}

TEST_F(Transport, DestroyingIsPromptAtAnyMoment) {
    for (int i = 0; i < 10; ++i) {
        makeEngine();
        openAndPlay(media(i % 2 == 0 ? "tone.mp3" : "song.mid"));
        loop.runFor(std::chrono::milliseconds(7 * i));
        const auto start = std::chrono::steady_clock::now();
        engine.reset();
        EXPECT_LT(std::chrono::steady_clock::now() - start, 1s);
    }
    loop.runFor(100ms); // what still lies in the loop must be harmless
    EXPECT_EQ(ended, 0);
}

TEST_F(Transport, TheEngineMayBeDestroyedByItsOwnCallback) {
    MediaEngine::Callbacks callbacks;
    callbacks.ended = [this] {
        engine.reset();
        ++ended;
    };
    engine = std::make_unique<MpvEngine>(loop, callbacks, options);
    openAndPlay(media("tone.wav"));
    engine->seek(11.9);
    EXPECT_TRUE(hasEnded());
    EXPECT_FALSE(engine);
}

TEST_F(Transport, OpenFromTheCallbackPlaysOn) {
    MediaEngine::Callbacks callbacks;
    callbacks.ended = [this] {
        ++ended;
        openAndPlay(media("tone.mp3"));
    };
    engine = std::make_unique<MpvEngine>(loop, callbacks, options);
    openAndPlay(media("tone.wav"));
    engine->seek(11.9);
    ASSERT_TRUE(hasEnded());
    EXPECT_TRUE(reachesPosition(0.3));
}

TEST_F(Transport, OperationsWithoutAFileDoNothing) {
    makeEngine();
    engine->play();
    engine->pause();
    engine->stop();
    engine->seek(3);
    engine->setVolume(-5000);
    engine->setBalance(100);
    engine->close();
    EXPECT_EQ(engine->position(), 0);
    EXPECT_EQ(engine->duration(), 0);
}

TEST(MidiSongTiming, KnowsWhichTickIsPlayedWhen) {
    const std::string whole = readFile(media("song.mid"));
    const MidiSong song(std::as_bytes(std::span(whole)));
    EXPECT_NEAR(song.duration(), 12, 1e-6);
    EXPECT_EQ(song.tickAt(0), 0);
    EXPECT_EQ(song.tickAt(3.0), 6 * 480);
    EXPECT_EQ(song.tickAt(9.0), 12 * 480 + 12 * 480);
    EXPECT_EQ(song.tickAt(1000), 36 * 480);
}

} // namespace

} // namespace tonvale
