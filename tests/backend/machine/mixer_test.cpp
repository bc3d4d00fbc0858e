// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/mixer/MixerModule.h"
#include "platform/machine/mixer/SystemMixer.h"
#include "tests/backend/machine/Support.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>

namespace tonvale {
namespace {

using namespace test;

std::string outputOf(const std::string &command) {
    std::string text;
    FILE *pipe = ::popen((command + " 2>&1").c_str(), "r");
    if (pipe == nullptr) return text;
    for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) text += static_cast<char>(c);
    (void)::pclose(pipe);
    return text;
}

// A sound server of the test's own, with one output that leads nowhere.
class SoundServer {
public:
    explicit SoundServer(const ScratchHome &home)
        : socket_(home / "run/pulse.sock"), daemon_([this] { return run(); }) {
        if (::setenv("PULSE_SERVER", ("unix:" + socket_).c_str(), 1) != 0) throw std::runtime_error("setenv");
    }
    ~SoundServer() { (void)::unsetenv("PULSE_SERVER"); }
    SoundServer(const SoundServer &) = delete;
    SoundServer &operator=(const SoundServer &) = delete;

    [[nodiscard]] bool isReady() const {
        return waitUntil([] { return outputOf("pactl get-default-sink").find("out") == 0; });
    }
    [[nodiscard]] pid_t id() const { return daemon_.id(); }

private:
    int run() const {
        const std::string protocol = "module-native-protocol-unix auth-anonymous=1 socket=" + socket_;
        const std::string log = socket_ + ".log";
        if (std::freopen(log.c_str(), "w", stderr) == nullptr) return 97;
        ::execlp("pulseaudio", "pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no",
                 "--disallow-exit=no", "-L", "module-null-sink sink_name=out", "-L", protocol.c_str(), nullptr);
        return 98;
    }

    std::string socket_;
    Child daemon_;
};

class MixerTest : public testing::Test {
protected:
    MixerTest() {
        // No card of the machine that runs the test, and no server but the test's.
        writeFile(home / "asound.conf", "");
        (void)::setenv("ALSA_CONFIG_PATH", (home / "asound.conf").c_str(), 1);
        (void)::setenv("PULSE_SERVER", ("unix:" + (home / "run/none")).c_str(), 1);
    }
    std::optional<std::int32_t> read() {
        if (!mixer.open()) return std::nullopt;
        const auto line = mixer.speakersLine();
        const auto control = line ? mixer.volumeControl(*line) : std::nullopt;
        const auto value = control ? mixer.value(*control) : std::nullopt;
        mixer.close();
        return value;
    }
    bool write(std::int32_t value) {
        if (!mixer.open()) return false;
        const auto control = mixer.volumeControl(*mixer.speakersLine());
        const bool good = control && mixer.setValue(*control, value);
        mixer.close();
        return good;
    }
    static std::string volumes() { return outputOf("pactl get-sink-volume out"); }
    static bool shows(const std::string &part) { return volumes().find(part) != std::string::npos; }

    ScratchHome home;
    SystemMixer mixer;
};

TEST_F(MixerTest, WithoutAServerAndACardEverythingFails) {
    EXPECT_FALSE(mixer.open());
    EXPECT_FALSE(mixer.speakersLine());
    EXPECT_FALSE(mixer.volumeControl({1}));
    EXPECT_FALSE(mixer.value({1}));
    EXPECT_FALSE(mixer.setValue({1}, 5));
    mixer.close();
}

TEST_F(MixerTest, ReadsTheLoudestChannelUpToFullVolume) {
    SoundServer server(home);
    ASSERT_TRUE(server.isReady());
    outputOf("pactl set-sink-volume out 32768 65536");
    EXPECT_EQ(read(), 65536);
    outputOf("pactl set-sink-volume out 16384 8192");
    EXPECT_EQ(read(), 16384);
    outputOf("pactl set-sink-volume out 98304 98304");
    EXPECT_EQ(read(), 65536);
    ASSERT_TRUE(mixer.open());
    const auto control = mixer.volumeControl(*mixer.speakersLine());
    ASSERT_TRUE(control);
    EXPECT_EQ(control->Minimum, 0);
    EXPECT_EQ(control->Maximum, 65536);
    EXPECT_FALSE(mixer.volumeControl({99}));
    EXPECT_FALSE(mixer.value({99}));
}

TEST_F(MixerTest, AConnectionMadeAheadServesUntilItIsEnded) {
    SoundServer server(home);
    ASSERT_TRUE(server.isReady());
    outputOf("pactl set-sink-volume out 32768 32768");
    mixer.preload();
    EXPECT_EQ(read(), 32768);
    EXPECT_TRUE(write(16384));
    EXPECT_EQ(read(), 16384);
    mixer.endPreload();
    outputOf("pactl set-sink-volume out 49152 49152");
    EXPECT_EQ(read(), 49152);
}

TEST_F(MixerTest, AConnectionMadeAheadToNoServerIsTriedAgain) {
    mixer.preload();
    EXPECT_FALSE(mixer.open());
    mixer.endPreload();
    EXPECT_FALSE(mixer.open());
}

TEST_F(MixerTest, SettingKeepsTheBalance) {
    SoundServer server(home);
    ASSERT_TRUE(server.isReady());
    outputOf("pactl set-sink-volume out 30000 60000");
    EXPECT_TRUE(write(32768));
    EXPECT_TRUE(shows("front-left: 16384 /")) << volumes();
    EXPECT_TRUE(shows("front-right: 32768 /")) << volumes();
    EXPECT_EQ(read(), 32768);
}

TEST_F(MixerTest, TheBalanceOutlivesSilence) {
    SoundServer server(home);
    ASSERT_TRUE(server.isReady());
    outputOf("pactl set-sink-volume out 20000 40000");
    EXPECT_TRUE(write(0));
    EXPECT_EQ(read(), 0);
    EXPECT_TRUE(write(40000));
    EXPECT_TRUE(shows("front-left: 20000 /")) << volumes();
    EXPECT_TRUE(shows("front-right: 40000 /")) << volumes();
}

TEST_F(MixerTest, TheSamePerCentMovesNothing) {
    SoundServer server(home);
    ASSERT_TRUE(server.isReady());
    outputOf("pactl set-sink-volume out 33000 33000");
    EXPECT_TRUE(write(32768)); // both are 50 %
    EXPECT_TRUE(shows("front-left: 33000 /")) << volumes();
    outputOf("pactl set-sink-volume out 90000 90000");
    EXPECT_TRUE(write(65536));
    EXPECT_TRUE(shows("front-left: 90000 /")) << volumes();
    EXPECT_TRUE(write(70000)); // as much as full
    EXPECT_TRUE(shows("front-left: 90000 /")) << volumes();
}

TEST_F(MixerTest, AServerThatComesBackIsFoundAgain) {
    {
        SoundServer server(home);
        ASSERT_TRUE(server.isReady());
        EXPECT_TRUE(read());
    }
    (void)::setenv("PULSE_SERVER", ("unix:" + (home / "run/pulse.sock")).c_str(), 1);
    EXPECT_FALSE(read());
    SoundServer server(home);
    ASSERT_TRUE(server.isReady());
    EXPECT_TRUE(read());
}

TEST_F(MixerTest, AServerThatHangsCostsNoMoreThanTheBound) {
    SoundServer server(home);
    ASSERT_TRUE(server.isReady());
    ASSERT_TRUE(mixer.open());
    const auto control = mixer.volumeControl(*mixer.speakersLine());
    ASSERT_EQ(::kill(server.id(), SIGSTOP), 0);
    auto begin = std::chrono::steady_clock::now();
    EXPECT_FALSE(mixer.setValue(*control, 12345));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(4));
    begin = std::chrono::steady_clock::now();
    EXPECT_FALSE(mixer.open());
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(4));
    ASSERT_EQ(::kill(server.id(), SIGCONT), 0);
    EXPECT_TRUE(waitUntil([this] { return read().has_value(); }));
}

// The one mixer of ALSA's that needs no card shows a sound server's volume.
TEST_F(MixerTest, AlsaServesWhereNoServerDoes) {
    SoundServer server(home);
    ASSERT_TRUE(server.isReady());
    writeFile(home / "asound.conf", "ctl.!default { type pulse server \"unix:" + (home / "run/pulse.sock") + "\" }\n");
    (void)::setenv("PULSE_SERVER", ("unix:" + (home / "run/none")).c_str(), 1);
    const auto sound = [this](const std::string &command) {
        return outputOf("PULSE_SERVER=unix:" + (home / "run/pulse.sock") + " pactl " + command);
    };
    sound("set-sink-volume out 30000 60000");
    const auto value = read();
    ASSERT_TRUE(value);
    EXPECT_NEAR(*value, 60000, 100);
    EXPECT_TRUE(write(32768));
    EXPECT_NEAR(read().value_or(0), 32768, 100);
    const std::string after = sound("get-sink-volume out");
    EXPECT_NE(after.find("front-left: 1638"), std::string::npos) << after;
    EXPECT_NE(after.find("front-right: 3276"), std::string::npos) << after;
}

} // namespace
} // namespace tonvale
