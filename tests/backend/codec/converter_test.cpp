// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

// What the encoder and the decoder have in common: how they run, stop and fail.

#include "platform/codec/engine/DoneRanges.h"
#include "tests/backend/codec/CodecTest.h"

#include <sys/resource.h>
#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <thread>

namespace tonvale::test {

namespace {

using Kind = Converting::Kind;
using namespace std::chrono_literals;

const Wave kWave{16000, 2};

class Converter : public CodecTest, public testing::WithParamInterface<Kind> {
protected:
    // A source that takes some time.
    std::string makeSource(int seconds) {
        const std::string wav = waveBytes(kWave, music(kWave, std::int64_t{kWave.sampleRate} * seconds));
        source_ = write("source", wav);
        if (GetParam() == Kind::Decoder) {
            std::filesystem::rename(source_, path("source.wav"));
            (void)output("lame --quiet -b 32 '" + path("source.wav") + "' '" + source_ + "'");
            std::filesystem::remove(path("source.wav"));
        }
        return source_;
    }
    // An endless repetition of silence: so long that it never ends in a test.
    std::string makeEndlessSource() {
        if (GetParam() == Kind::Encoder) {
            source_ = write("source", waveHeader({44100, 2}, 2'000'000'000));
            std::filesystem::resize_file(source_, 2'000'000'044);
            return source_;
        }
        const std::string short_ = readFile(makeSource(20));
        std::string all;
        while (all.size() < 30'000'000) all += short_;
        return write("source", all);
    }
    std::string target() const { return path("target"); }
    bool isRunning(Converting &converting) {
        return loop.runUntil([&] { return converting.positions.size() > 2; });
    }
    // What both write, as samples.
    std::vector<std::int16_t> heard() {
        return words(GetParam() == Kind::Decoder ? samplesOf(readFile(target())) : libraryDecode(target()));
    }
    static constexpr std::int64_t kSlack = 2 * 600 * 2;

    std::string source_;
};

TEST_P(Converter, RunsToTheEnd) {
    Converting converting(loop, GetParam(), 2);
    EXPECT_EQ(converting.length(), 0);
    ASSERT_EQ(converting.open(makeSource(60), target()), 0);
    EXPECT_EQ(files(), std::vector<std::string>{"source"});
    converting.start();
    EXPECT_GT(converting.length(), 0);
    const std::int32_t length = converting.length();
    ASSERT_TRUE(loop.runUntil([&] { return converting.hasEnded(); }, 60s));
    EXPECT_EQ(converting.done, 1);
    EXPECT_TRUE(std::ranges::is_sorted(converting.positions));
    EXPECT_LE(converting.positions.back(), length);
    EXPECT_EQ(files(), (std::vector<std::string>{"source", "target"}));
    EXPECT_FALSE(loop.runUntil([&] { return converting.done > 1; }, 20ms));
}

TEST_P(Converter, TellsOfItsProgress) {
    Converting converting(loop, GetParam(), 2);
    ASSERT_EQ(converting.open(makeEndlessSource(), target()), 0);
    converting.start();
    const auto begin = std::chrono::steady_clock::now();
    ASSERT_TRUE(loop.runUntil([&] { return converting.positions.size() >= 12; }));
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - begin;
    EXPECT_LT(static_cast<double>(converting.positions.size()) / time.count(), 60);
    EXPECT_TRUE(std::ranges::is_sorted(converting.positions));
}

TEST_P(Converter, DoesNotFillALoopThatIsBusy) {
    Converting converting(loop, GetParam(), 2);
    ASSERT_EQ(converting.open(makeEndlessSource(), target()), 0);
    converting.start();
    ASSERT_TRUE(isRunning(converting));
    const std::size_t before = converting.positions.size();
    std::this_thread::sleep_for(300ms); // what blocks the loop
    loop.doEvents();
    EXPECT_LE(converting.positions.size(), before + 2);
}

TEST_P(Converter, LeavesThePartThatWasDoneAtAStop) {
    makeSource(120);
    Converting whole(loop, GetParam(), 2);
    ASSERT_EQ(whole.open(source_, target()), 0);
    whole.start();
    ASSERT_TRUE(loop.runUntil([&] { return whole.hasEnded(); }, 60s));
    const auto all = heard();
    std::size_t parts = 0;
    for (int delay = 2; delay < 600; delay = delay * 3 / 2 + 3) {
        std::filesystem::remove(target());
        Converting converting(loop, GetParam(), 2);
        ASSERT_EQ(converting.open(source_, target()), 0);
        converting.start();
        std::this_thread::sleep_for(std::chrono::milliseconds(delay)); // any moment will do
        converting.stop();
        if (!exists(target())) continue;
        const auto part = heard();
        ASSERT_LE(part.size(), all.size());
        // The last frames of a part have no successors to complete them.
        const std::size_t sure = part.size() - std::min(part.size(), std::size_t{kSlack});
        EXPECT_TRUE(std::equal(part.begin(), part.begin() + static_cast<std::ptrdiff_t>(sure), all.begin()));
        parts += part.size() > kSlack && part.size() < all.size() ? 1 : 0;
        if (GetParam() == Kind::Encoder) {
            EXPECT_EQ(output("mpg123 -t -q '" + target() + "'"), "");
            // Of very short files it says that it is not sure.
            if (part.size() > 100'000) {
                EXPECT_EQ(output("ffmpeg -v warning -i '" + target() + "' -f null -"), "");
            }
        }
        EXPECT_EQ(files(), (std::vector<std::string>{"source", "target"}));
    }
    EXPECT_GT(parts, 0U);
}

TEST_P(Converter, StopsSoonAndSaysNothingMore) {
    Converting converting(loop, GetParam(), 4);
    ASSERT_EQ(converting.open(makeEndlessSource(), target()), 0);
    converting.start();
    ASSERT_TRUE(isRunning(converting));
    ASSERT_TRUE(waitUntil([&] { return loop.hasWaiting(); })); // which comes too late
    const auto begin = std::chrono::steady_clock::now();
    converting.stop();
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 1s);
    const std::size_t positions = converting.positions.size();
    loop.doEvents();
    EXPECT_EQ(converting.positions.size(), positions);
    EXPECT_FALSE(converting.hasEnded());
    EXPECT_EQ(converting.length(), 0);
    converting.stop();
    converting.start();
    EXPECT_FALSE(loop.runUntil([&] { return converting.hasEnded(); }, 20ms));
}

TEST_P(Converter, GoesAwayInTheMiddle) {
    makeEndlessSource();
    auto converting = std::make_unique<Converting>(loop, GetParam(), 2);
    ASSERT_EQ(converting->open(source_, target()), 0);
    converting->start();
    ASSERT_TRUE(isRunning(*converting));
    converting.reset();
    loop.doEvents();
    EXPECT_EQ(files(), (std::vector<std::string>{"source", "target"}));
}

TEST_P(Converter, MayBeOpenedAndNotStarted) {
    {
        Converting converting(loop, GetParam(), 2);
        ASSERT_EQ(converting.open(makeSource(5), target()), 0);
    }
    EXPECT_EQ(files(), std::vector<std::string>{"source"});
}

TEST_P(Converter, TakesTheNextFileWhenOneHasEnded) {
    makeSource(5);
    Converting converting(loop, GetParam(), 2);
    for (int i = 1; i <= 3; ++i) {
        ASSERT_EQ(converting.open(source_, target()), 0);
        converting.start();
        ASSERT_TRUE(loop.runUntil([&] { return converting.done == i; }));
    }
}

TEST_P(Converter, LeavesTheOldFileUntilTheNewOneIsThere) {
    writeFile(target(), "old");
    Converting converting(loop, GetParam(), 2);
    ASSERT_EQ(converting.open(makeSource(30), target()), 0);
    converting.start();
    EXPECT_EQ(readFile(target()), "old");
    ASSERT_TRUE(loop.runUntil([&] { return converting.done == 1; }));
    EXPECT_GT(readFile(target()).size(), 1000U);
}

TEST_P(Converter, NeverWritesOverItsSource) {
    const std::string source = makeSource(5), before = readFile(source);
    std::filesystem::create_hard_link(source, path("hard"));
    std::filesystem::create_symlink("source", path("soft"));
    for (const std::string &other : {source, path("hard"), path("soft"), path("") + "./source"}) {
        Converting converting(loop, GetParam(), 2);
        EXPECT_EQ(converting.open(source, other), 75);
        converting.start();
        ASSERT_TRUE(loop.runUntil([&] { return converting.hasEnded(); }));
    }
    EXPECT_EQ(readFile(source), before);
    EXPECT_EQ(files(), (std::vector<std::string>{"hard", "soft", "source"}));
}

TEST_P(Converter, RefusesPlacesWhereNothingCanBeWritten) {
    makeSource(5);
    std::filesystem::create_directory(path("directory"));
    ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
    Converting converting(loop, GetParam(), 2);
    EXPECT_EQ(converting.open(source_, path("directory")), 75);
    EXPECT_EQ(converting.open(source_, path("pipe")), 75);
    EXPECT_EQ(converting.open(source_, path("missing/target")), 76);
    EXPECT_EQ(converting.open(source_, path("source/target")), 76);
    EXPECT_NE(converting.open(source_, "/proc/target"), 0);
    EXPECT_EQ(converting.open(source_, ""), 52);
    EXPECT_EQ(files(), (std::vector<std::string>{"directory", "pipe", "source"}));
}

TEST_P(Converter, ReportsAStartWithoutAnOpenFile) {
    Converting converting(loop, GetParam(), 2);
    converting.start(); // nothing to report on
    EXPECT_FALSE(loop.runUntil([&] { return converting.hasEnded(); }, 20ms));
    EXPECT_EQ(converting.open(path("missing"), target()), 53);
    converting.start();
    ASSERT_TRUE(loop.runUntil([&] { return converting.hasEnded(); }));
    EXPECT_EQ(converting.errors, GetParam() == Kind::Encoder ? std::vector{53} : std::vector<int>{});
}

// No file of this process becomes longer, as when a disk is full.
class FullDisk {
public:
    explicit FullDisk(rlim_t size) {
        (void)std::signal(SIGXFSZ, SIG_IGN);
        if (::getrlimit(RLIMIT_FSIZE, &usual_) != 0) throw std::runtime_error("getrlimit");
        const rlimit limit{size, usual_.rlim_max};
        if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) throw std::runtime_error("setrlimit");
    }
    ~FullDisk() { (void)::setrlimit(RLIMIT_FSIZE, &usual_); }
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;

private:
    rlimit usual_{};
};

TEST_P(Converter, LeavesNothingWhenTheDiskIsFull) {
    makeSource(60);
    const FullDisk disk(50'000);
    Converting converting(loop, GetParam(), 2);
    ASSERT_EQ(converting.open(source_, target()), 0);
    converting.start();
    ASSERT_TRUE(loop.runUntil([&] { return converting.hasEnded(); }));
    EXPECT_EQ(converting.errors, GetParam() == Kind::Encoder ? std::vector{61} : std::vector<int>{});
    EXPECT_EQ(files(), std::vector<std::string>{"source"});
}

TEST_P(Converter, LeavesNothingWhenThePlaceHasGone) {
    makeEndlessSource();
    std::filesystem::create_directory(path("place"));
    Converting converting(loop, GetParam(), 2);
    ASSERT_EQ(converting.open(source_, path("place/target")), 0);
    converting.start();
    ASSERT_TRUE(isRunning(converting));
    std::filesystem::remove_all(path("place"));
    converting.stop();
    EXPECT_EQ(files(), std::vector<std::string>{"source"});
}

TEST_P(Converter, NeedsTheSourceOnlyWhileItIsOpened) {
    makeSource(60);
    Converting converting(loop, GetParam(), 2);
    ASSERT_EQ(converting.open(source_, target()), 0);
    converting.start();
    std::filesystem::remove(source_);
    ASSERT_TRUE(loop.runUntil([&] { return converting.hasEnded(); }));
    EXPECT_EQ(converting.errors.size(), 0U);
    EXPECT_EQ(files(), std::vector<std::string>{"target"});
}

INSTANTIATE_TEST_SUITE_P(Both, Converter, testing::Values(Kind::Encoder, Kind::Decoder),
                         [](const auto &kind) { return kind.param == Kind::Encoder ? "Encoder" : "Decoder"; });

using Encoding = CodecTest;

TEST_F(Encoding, FailsWhenItsSourceBecomesShorter) {
    const std::string source = write("source", waveHeader({44100, 2}, 2'000'000'000));
    std::filesystem::resize_file(source, 2'000'000'044);
    Converting converting(loop, Kind::Encoder, 2);
    ASSERT_EQ(converting.open(source, path("target")), 0);
    converting.start();
    ASSERT_TRUE(loop.runUntil([&] { return converting.positions.size() > 2; }));
    std::filesystem::resize_file(source, 100);
    ASSERT_TRUE(loop.runUntil([&] { return converting.hasEnded(); }));
    EXPECT_EQ(converting.errors, std::vector{57});
    EXPECT_EQ(files(), std::vector<std::string>{"source"});
}

TEST_F(Encoding, ReportsThatThePlaceHasGoneAtTheEnd) {
    const Wave wave{8000, 1};
    const std::string source = write("source", waveBytes(wave, music(wave, 8000 * 30)));
    std::filesystem::create_directory(path("place"));
    Converting converting(loop, Kind::Encoder, 1);
    ASSERT_EQ(converting.open(source, path("place/target")), 0);
    std::filesystem::remove_all(path("place"));
    converting.start();
    ASSERT_TRUE(loop.runUntil([&] { return converting.hasEnded(); }));
    EXPECT_EQ(converting.errors, std::vector{53});
}

TEST(DoneRanges, GrowTogether) {
    DoneRanges done;
    EXPECT_EQ(done.prefix(), 0);
    done.add(10, 20);
    done.add(30, 40);
    EXPECT_EQ(done.prefix(), 0);
    done.add(0, 10);
    EXPECT_EQ(done.prefix(), 20);
    done.add(15, 35);
    EXPECT_EQ(done.prefix(), 40);
    EXPECT_EQ(done.total(), 40);
    done.add(50, 50);
    done.add(2, 5);
    EXPECT_EQ(done.total(), 40);
}

} // namespace

} // namespace tonvale::test
