// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/backend/media/MediaTest.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numeric>
#include <optional>
#include <vector>

namespace tonvale {

namespace {

constexpr const char *kSilentNotice = "tonvale: no sound server or device found; playing silently\n";

// Runs a program until the object goes.
class Process {
public:
    Process(const std::vector<std::string> &words, const std::string &output) : id_(::fork()) {
        if (id_ != 0) return;
        const int file = ::open(output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        ::dup2(file, STDOUT_FILENO);
        ::dup2(::open("/dev/null", O_WRONLY), STDERR_FILENO);
        std::vector<char *> arguments;
        for (const std::string &word : words) arguments.push_back(const_cast<char *>(word.c_str()));
        arguments.push_back(nullptr);
        ::execvp(arguments.front(), arguments.data());
        ::_exit(127);
    }
    Process(const Process &) = delete;
    Process &operator=(const Process &) = delete;
    ~Process() {
        ::kill(id_, SIGTERM);
        ::waitpid(id_, nullptr, 0);
    }

private:
    pid_t id_;
};

bool hasProgram(const char *name) {
    return std::system((std::string("command -v ") + name + " >/dev/null").c_str()) == 0;
}

// Two channels of samples from -1 to 1.
struct Sound {
    std::vector<double> left, right;

    static double level(const std::vector<double> &samples) {
        if (samples.empty()) return 0;
        const double sum = std::inner_product(samples.begin(), samples.end(), samples.begin(), 0.0);
        return std::sqrt(sum / static_cast<double>(samples.size()));
    }
    [[nodiscard]] double leftLevel() const { return level(left); }
    [[nodiscard]] double rightLevel() const { return level(right); }
};

Sound fromSamples(const std::string &bytes, int channels) {
    Sound sound;
    for (std::size_t at = 0; at + 2 * static_cast<std::size_t>(channels) <= bytes.size();
         at += 2 * static_cast<std::size_t>(channels)) {
        std::int16_t left = 0, right = 0;
        std::memcpy(&left, bytes.data() + at, 2);
        std::memcpy(&right, bytes.data() + at + 2 * static_cast<std::size_t>(channels - 1), 2);
        sound.left.push_back(left / 32768.0);
        sound.right.push_back(right / 32768.0);
    }
    return sound;
}

// Plays into a file, as fast as it goes.
struct RecordedSound : MediaTest {
    RecordedSound() {
        options.outputs = "pcm";
        std::filesystem::current_path(scratch); // the recorder's file lies in the current directory
    }
    ~RecordedSound() override { std::filesystem::current_path("/"); }

    Sound play(const std::string &name, std::int32_t volume, std::int32_t balance) {
        ended = 0;
        makeEngine();
        engine->setVolume(volume);
        engine->setBalance(balance);
        openAndPlay(media(name));
        EXPECT_TRUE(hasEnded());
        engine.reset();
        const std::string decoded = "sox -D audiodump.wav -t raw -e signed -b 16 sound.raw 2>/dev/null && "
                                    "soxi -c audiodump.wav > channels 2>/dev/null";
        EXPECT_EQ(std::system(decoded.c_str()), 0);
        return fromSamples(readFile("sound.raw"), std::stoi(readFile("channels")));
    }
};

TEST_F(RecordedSound, FullVolumeIsTheFileItself) {
    const Sound sound = play("tone.wav", 0, 0);
    const Sound original = fromSamples(readFile(media("tone.wav")).substr(44), 2);
    EXPECT_NEAR(sound.leftLevel(), original.leftLevel(), 0.001);
    EXPECT_NEAR(static_cast<double>(sound.left.size()), 12.0 * 44100, 4410);
}

TEST_F(RecordedSound, LowestVolumeIsTrueSilence) {
    const Sound sound = play("tone.wav", -10000, 0);
    EXPECT_FALSE(sound.left.empty());
    EXPECT_EQ(sound.leftLevel(), 0);
    EXPECT_EQ(sound.rightLevel(), 0);
}

TEST_F(RecordedSound, VolumeRisesAllTheWay) {
    double last = 0;
    for (const std::int32_t volume : {-9000, -7500, -5000, -2500, -500, 0}) {
        const double level = play("tone.wav", volume, 0).leftLevel();
        EXPECT_GT(level, last * 1.1) << volume;
        last = level;
    }
}

TEST_F(RecordedSound, BalanceSilencesTheFarSideAndLeavesTheNearOne) {
    const Sound centre = play("tone.wav", 0, 0);
    const Sound right = play("tone.wav", 0, 10000);
    EXPECT_LT(right.leftLevel(), 0.0001);
    EXPECT_NEAR(right.rightLevel(), centre.rightLevel(), 0.002);
    const Sound left = play("tone.wav", 0, -10000);
    EXPECT_LT(left.rightLevel(), 0.0001);
    EXPECT_NEAR(left.leftLevel(), centre.leftLevel(), 0.002);
}

TEST_F(RecordedSound, BalanceHalfWay) {
    const Sound centre = play("tone.wav", 0, 0);
    const Sound half = play("tone.wav", 0, 5000);
    EXPECT_NEAR(half.leftLevel(), centre.leftLevel() / 2, 0.01);
    EXPECT_NEAR(half.rightLevel(), centre.rightLevel(), 0.002);
}

TEST_F(RecordedSound, MonoIsBalancedAtItsOwnLevel) {
    const Sound centre = play("mono.wav", 0, 0);
    const Sound left = play("mono.wav", 0, -10000);
    EXPECT_NEAR(left.leftLevel(), centre.leftLevel(), 0.002);
    EXPECT_LT(left.rightLevel(), 0.0001);
}

TEST_F(RecordedSound, SongsCanBeHeard) {
    const Sound sound = play("song.mid", 0, 0);
    EXPECT_GT(sound.leftLevel(), 0.01);
    EXPECT_NEAR(static_cast<double>(sound.left.size()), 13.0 * 44100, 4410);
}

TEST_F(RecordedSound, ASongPlaysTheSameFromTheMiddle) {
    makeEngine();
    open(media("song.mid"));
    engine->seek(6);
    engine->play();
    ASSERT_TRUE(hasEnded());
    engine.reset();
    ASSERT_EQ(std::system("sox -D audiodump.wav -t raw -e signed -b 16 sound.raw trim -2 1 2>/dev/null"), 0);
    const double level = fromSamples(readFile("sound.raw"), 2).leftLevel();
    EXPECT_GT(level, 0.01); // the last second of notes
}

// Neither a server nor a device.
struct NoSound : MediaTest {
    NoSound() {
        options.outputs = "pulse,alsa,null";
        ::setenv("PULSE_SERVER", ("unix:" + (scratch / "nowhere").string()).c_str(), 1);
        ::setenv("ALSA_CONFIG_PATH", write("asound.conf", "").c_str(), 1);
    }
};

TEST_F(NoSound, PlaysInRealTimeAndSaysSoOnce) {
    testing::internal::CaptureStderr();
    openAndPlay(media("tone.wav"));
    ASSERT_TRUE(reachesPosition(0.5));
    const auto start = std::chrono::steady_clock::now();
    const double from = engine->position();
    ASSERT_TRUE(reachesPosition(from + 1));
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
    EXPECT_NEAR(passed.count(), 1, 0.3);
    openAndPlay(media("tone.mp3"));
    ASSERT_TRUE(reachesPosition(0.2));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), kSilentNotice);
}

// A sound server with an output that leads nowhere, and a recorder at it.
struct SoundServer : MediaTest {
    SoundServer() {
        options.outputs = "pulse";
        socket = scratch / "pulse.sock";
        ::setenv("PULSE_SERVER", ("unix:" + socket.string()).c_str(), 1);
        ::setenv("XDG_RUNTIME_DIR", scratch.c_str(), 1);
        ::setenv("HOME", scratch.c_str(), 1);
        const std::string script = "load-module module-null-sink sink_name=test rate=44100\n"
                                   "load-module module-native-protocol-unix auth-anonymous=1 socket=" +
                                   socket.string() + "\n";
        server.emplace(std::vector<std::string>{"pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1",
                                                "--use-pid-file=no", "--disable-shm=yes",
                                                "--file=" + write("server.pa", script)},
                       scratch / "server.log");
        isUp = loop.runUntil([&] { return std::system("pactl info >/dev/null 2>&1") == 0; }, 10s);
        recorder.emplace(std::vector<std::string>{"parec", "--device=test.monitor", "--format=s16le", "--rate=44100",
                                                  "--channels=2", "--latency-msec=20"},
                         scratch / "record.raw");
    }
    ~SoundServer() override { engine.reset(); }

    [[nodiscard]] Sound recorded() const { return fromSamples(readFile(scratch / "record.raw"), 2); }
    // The last tenth of a second.
    [[nodiscard]] Sound lately() const {
        Sound sound = recorded();
        const std::size_t count = std::min<std::size_t>(4410, sound.left.size());
        sound.left.erase(sound.left.begin(), sound.left.end() - static_cast<std::ptrdiff_t>(count));
        sound.right.erase(sound.right.begin(), sound.right.end() - static_cast<std::ptrdiff_t>(count));
        return sound;
    }
    bool becomes(const std::function<bool(const Sound &)> &condition, std::chrono::milliseconds limit = 5s) {
        return loop.runUntil([&] { return condition(lately()); }, limit);
    }

    std::filesystem::path socket;
    std::optional<Process> server, recorder;
    bool isUp = false;
};

TEST_F(SoundServer, HearsTheFileUnderOurNameAndNothingAfterStop) {
    if (!hasProgram("pulseaudio") || !hasProgram("parec")) GTEST_SKIP() << "needs pulseaudio and pulseaudio-utils";
    ASSERT_TRUE(isUp);
    openAndPlay(media("tone.wav"));
    EXPECT_TRUE(becomes([](const Sound &sound) { return sound.leftLevel() > 0.2; }));
    const std::string list = "pactl list sink-inputs > '" + (scratch / "inputs").string() + "'";
    EXPECT_EQ(std::system(list.c_str()), 0);
    EXPECT_NE(readFile(scratch / "inputs").find("Orvane Tonvale"), std::string::npos);
    engine->stop();
    EXPECT_TRUE(becomes([](const Sound &sound) { return sound.leftLevel() == 0; }));
    engine->play();
    EXPECT_TRUE(becomes([](const Sound &sound) { return sound.leftLevel() > 0.2; }));
}

// The first step away from the centre alone may be heard.
TEST_F(SoundServer, BalanceMovesWithoutAGap) {
    if (!hasProgram("pulseaudio") || !hasProgram("parec")) GTEST_SKIP() << "needs pulseaudio and pulseaudio-utils";
    ASSERT_TRUE(isUp);
    openAndPlay(media("tone.wav"));
    ASSERT_TRUE(becomes([](const Sound &sound) { return sound.leftLevel() > 0.2; }));
    engine->setBalance(2500);
    ASSERT_TRUE(becomes([](const Sound &sound) { return sound.leftLevel() < 0.29 && sound.leftLevel() > 0.2; }));
    const std::size_t start = recorded().right.size();
    for (std::int32_t balance = 3000; balance <= 10000; balance += 500) {
        engine->setBalance(balance);
        loop.runFor(10ms);
    }
    ASSERT_TRUE(becomes([](const Sound &sound) { return sound.leftLevel() < 0.001 && sound.rightLevel() > 0.2; }));
    engine->setBalance(0);
    ASSERT_TRUE(becomes([](const Sound &sound) { return sound.leftLevel() > 0.2; }));

    // The right side sounded all the while: no 10 ms of it are silent.
    const std::vector<double> right = recorded().right;
    for (std::size_t at = start; at + 441 < right.size(); at += 441) {
        const double peak = *std::max_element(right.begin() + static_cast<std::ptrdiff_t>(at),
                                              right.begin() + static_cast<std::ptrdiff_t>(at + 441));
        ASSERT_GT(peak, 0.3) << "at sample " << at - start;
    }
}

} // namespace

} // namespace tonvale
