// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/media/MediaModule.h"
#include "tests/backend/media/MediaTest.h"

namespace tonvale {

namespace {

struct Format {
    const char *file;
    double seconds = 12;
};

std::ostream &operator<<(std::ostream &out, const Format &format) { return out << format.file; }

constexpr double kSongTail = 1;

constexpr Format kFormats[] = {
    {"tone.wav"},
    {"mono.wav"},
    {"tone.aif"},
    {"tone.aiff"},
    {"tone.aifc"},
    {"tone.au"},
    {"tone.snd"},
    {"tone.mp2"},
    {"tone.mpa"},
    {"tone.mp3"},
    {"vbr.mp3"},
    {"vbr_without_header.mp3"},
    {"tone.asf"},
    {"tone.wma"},
    {"tone.ra"},
    {"tone.rm"},
    {"tone.rmm"},
    {"tone.rpm"},
    {"tone.ram"},
    {"tone.avi"},
    {"tone.mpg"},
    {"tone.mpeg"},
    {"tone.mpv"},
    {"tone.enc"},
    {"tone.mov"},
    {"tone.qt"},
    {"tone.dat"},
    {"silent.m1v"},
    {"silent.avi"},
    {"song.mid", 12 + kSongTail},
    {"song.midi", 12 + kSongTail},
    {"song.rmi", 12 + kSongTail},
};

// Through the module, as the program does it.
class FormatTest : public MediaTest, public testing::WithParamInterface<Format> {
protected:
    FormatTest() {
        ::setenv("TONVALE_AO", "null", 1);
        MediaEngine::Callbacks callbacks;
        callbacks.ended = [this] { ++ended; };
        engine = makeMediaEngineFactory(loop, MODULE_DIRECTORY)(callbacks);
    }
};

TEST_P(FormatTest, OpensTellsItsLengthPlaysToTheEndAndComesBack) {
    engine->open(media(GetParam().file));
    EXPECT_NEAR(engine->duration(), GetParam().seconds, GetParam().seconds / 100);
    EXPECT_EQ(engine->position(), 0);

    engine->play();
    EXPECT_TRUE(reachesPosition(0.2));
    EXPECT_LT(engine->position(), 3);
    engine->seek(GetParam().seconds - 1);
    EXPECT_TRUE(hasEnded());
    EXPECT_NEAR(engine->position(), GetParam().seconds, 0.3);

    engine->stop();
    EXPECT_EQ(engine->position(), 0);
    engine->play();
    EXPECT_TRUE(reachesPosition(0.2));
    EXPECT_LT(engine->position(), 3);
    EXPECT_EQ(ended, 1);
}

std::string testName(const testing::TestParamInfo<Format> &info) {
    std::string name = info.param.file;
    std::replace(name.begin(), name.end(), '.', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(All, FormatTest, testing::ValuesIn(kFormats), testName);

struct ModuleTest : MediaTest {};

TEST_F(ModuleTest, MissingModuleIsAnErrorWithAReason) {
    try {
        static_cast<void>(makeMediaEngineFactory(loop, scratch)({}));
        FAIL();
    } catch (const RuntimeError &error) {
        EXPECT_EQ(error.number(), static_cast<std::int32_t>(ErrorNumber::CantCreateObject));
        EXPECT_NE(error.description().find("tonvale-media.so"), std::string::npos);
    }
}

TEST_F(ModuleTest, IsFoundWhereItIsInstalled) {
    std::filesystem::create_directories(scratch / "bin");
    std::filesystem::create_directories(scratch / "lib/orvane-tonvale");
    std::filesystem::copy(MODULE_DIRECTORY "/tonvale-media.so", scratch / "lib/orvane-tonvale");
    EXPECT_TRUE(makeMediaEngineFactory(loop, scratch / "bin")({}));
}

TEST_F(ModuleTest, PreloadingIsHarmlessBesideTheFirstUse) {
    const std::jthread preload = preloadMediaModule(MODULE_DIRECTORY);
    const std::jthread missing = preloadMediaModule(scratch);
    EXPECT_TRUE(makeMediaEngineFactory(loop, MODULE_DIRECTORY)({}));
}

TEST_F(ModuleTest, ErrorsOfTheModuleArriveAsRuntimeErrors) {
    engine = makeMediaEngineFactory(loop, MODULE_DIRECTORY)({});
    EXPECT_EQ(openError(scratch / "missing.mp3"), static_cast<std::int32_t>(ErrorNumber::FileNotFound));
}

// Media of others, whose truth other programs have told.
struct RealFiles : MediaTest {};

TEST_F(RealFiles, LongMp3FromAPackage) {
    const std::string path = "/usr/share/games/asc/music/frontiers.mp3";
    if (!std::filesystem::exists(path)) GTEST_SKIP() << "needs the package asc-music";
    openAndPlay(path);
    EXPECT_NEAR(engine->duration(), 440.8, 4.4);
    EXPECT_TRUE(reachesPosition(0.1));
    engine->seek(engine->duration() - 0.5);
    EXPECT_TRUE(hasEnded());
}

TEST_F(RealFiles, EverySongOfAPackageOpensQuickly) {
    const std::string directory = "/usr/share/games/openttd/baseset/openmsx";
    if (!std::filesystem::exists(directory)) GTEST_SKIP() << "needs the package openttd-openmsx";
    int songs = 0;
    for (const auto &entry : std::filesystem::directory_iterator(directory)) {
        if (entry.path().extension() != ".mid") continue;
        open(entry.path());
        EXPECT_GT(engine->duration(), 20) << entry.path();
        EXPECT_LT(engine->duration(), 1200) << entry.path();
        ++songs;
    }
    EXPECT_GT(songs, 10);
}

TEST_F(RealFiles, SoundFilesOfEveryDepth) {
    const std::string directory = "/usr/lib/python3.11/test/audiodata";
    if (!std::filesystem::exists(directory)) GTEST_SKIP() << "needs the package libpython3.11-testsuite";
    for (const auto &entry : std::filesystem::directory_iterator(directory)) {
        ended = 0;
        openAndPlay(entry.path());
        EXPECT_NEAR(engine->duration(), 0.3, 0.01) << entry.path();
        EXPECT_TRUE(hasEnded()) << entry.path();
    }
}

} // namespace

} // namespace tonvale
