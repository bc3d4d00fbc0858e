// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "player/VolumeControl.h"
#include "tests/unit/fakes/PlayerTest.h"

namespace tonvale::test {
namespace {

class PlayerVolume : public PlayerTest {
protected:
    PlayerVolume() { start(); }
};

TEST_F(PlayerVolume, GoesToTheEngineInHundredthsOfItsRange) {
    for (std::int32_t percent = 99; percent >= 0; --percent) {
        form().MMLEDSpinX1.Value(percent);
        EXPECT_EQ(form().ActiveMovie1.Volume(), percent * 100 - 10000) << percent;
    }
    form().MMLEDSpinX1.Value(100);
    EXPECT_EQ(form().ActiveMovie1.Volume(), 0);
    form().MMLEDSpinX1.Value(55);
    EXPECT_EQ(form().ActiveMovie1.Volume(), -4500);
}

TEST_F(PlayerVolume, ComesBackAtTheNextStartAsItWas) {
    for (std::int32_t percent = 0; percent <= 100; ++percent) {
        World other;
        other.setSetting("Volume", std::to_string(percent));
        Form1 &window = other.start();
        EXPECT_EQ(window.MMLEDSpinX1.Value(), percent);
        EXPECT_EQ(window.ActiveMovie1.Volume(), percent * 100 - 10000);
    }
}

TEST_F(PlayerVolume, HoldsForTheFileThatIsOpenedLater) {
    form().MMLEDSpinX1.Value(55);
    file("/m/a.mp3");
    executeFromDesktop("/m/a.mp3");
    EXPECT_EQ(world.media.volume, -4500);
    form().MMLEDSpinX1.Value(0);
    EXPECT_EQ(world.media.volume, -10000);
}

TEST_F(PlayerVolume, TheSpinsHaveTheirRange) {
    for (LedSpin *spin : {&form().MMLEDSpinX1, &form().MMLEDSpinX2}) {
        EXPECT_EQ(spin->Min, 0);
        EXPECT_EQ(spin->Max, 100);
        EXPECT_EQ(spin->Step, 1);
    }
}

TEST_F(PlayerVolume, BalanceFollowsItsSlider) {
    EXPECT_EQ(form().slidBalance.Min, -10000);
    EXPECT_EQ(form().slidBalance.Max, 10000);
    EXPECT_EQ(form().slidBalance.LargeChange, 1000);
    form().slidBalance.Value(-3000);
    EXPECT_EQ(form().ActiveMovie1.Balance(), -3000);
    form().slidBalance.scrollTo(2500);
    EXPECT_EQ(form().ActiveMovie1.Balance(), 2500);
    click(form().cmdBalance0.Click);
    EXPECT_EQ(form().slidBalance.Value(), 0);
    EXPECT_EQ(form().ActiveMovie1.Balance(), 0);
}

TEST_F(PlayerVolume, BalanceIsNotSaved) {
    form().slidBalance.Value(-3000);
    form().Unload();
    world.runUntilIdle();
    start();
    EXPECT_EQ(form().slidBalance.Value(), 0);
    EXPECT_EQ(form().ActiveMovie1.Balance(), 0);
}

TEST_F(PlayerVolume, TheMasterSpinSetsTheSystemsVolume) {
    world.mixer.maximum = 100;
    form().MMLEDSpinX2.Value(37);
    EXPECT_EQ(world.mixer.level, 37);
}

class MasterVolume : public testing::Test {
protected:
    CallLog log;
    FakeMixer mixer{log};
    VolumeControl volume{mixer};
};

TEST_F(MasterVolume, IsReadInPerCent) {
    for (std::int32_t percent = 0; percent <= 100; ++percent) {
        mixer.maximum = 1000;
        mixer.level = percent * 10;
        EXPECT_EQ(volume.GetMasterVolume(), percent);
    }
}

TEST_F(MasterVolume, IsReadRoundedWithTiesToEven) {
    mixer.maximum = 200;
    for (const auto &[level, percent] : {std::pair{1, 0}, {3, 2}, {5, 2}, {7, 4}}) {
        mixer.level = level;
        EXPECT_EQ(volume.GetMasterVolume(), percent);
    }
}

TEST_F(MasterVolume, AMinimumAboveZeroIsNotSubtracted) {
    mixer.minimum = 100;
    mixer.maximum = 1100;
    mixer.level = 600;
    EXPECT_EQ(volume.GetMasterVolume(), 60);
    mixer.level = 1100;
    EXPECT_EQ(volume.GetMasterVolume(), 110);
}

TEST_F(MasterVolume, AMinimumAboveZeroIsNotAdded) {
    mixer.minimum = 100;
    mixer.maximum = 1100;
    EXPECT_TRUE(volume.SetMasterVolume(50));
    EXPECT_EQ(mixer.level, 500);
}

TEST_F(MasterVolume, IsSetInPerCent) {
    mixer.maximum = 1000;
    for (std::int32_t percent = 0; percent <= 100; ++percent) {
        EXPECT_TRUE(volume.SetMasterVolume(percent));
        EXPECT_EQ(mixer.level, percent * 10);
        EXPECT_EQ(volume.GetMasterVolume(), percent);
    }
}

TEST_F(MasterVolume, SurvivesARoundTripThroughTheUsualRange) {
    for (std::int32_t percent = 0; percent <= 100; ++percent) {
        EXPECT_TRUE(volume.SetMasterVolume(percent));
        EXPECT_EQ(volume.GetMasterVolume(), percent);
    }
    volume.SetMasterVolume(50);
    EXPECT_EQ(mixer.level, 32768);
}

TEST_F(MasterVolume, IsLimitedToTheRange) {
    mixer.maximum = 1000;
    EXPECT_TRUE(volume.SetMasterVolume(150));
    EXPECT_EQ(mixer.level, 1000);
    EXPECT_TRUE(volume.SetMasterVolume(-5));
    EXPECT_EQ(mixer.level, 0);
}

TEST_F(MasterVolume, FailsWhereAStepFails) {
    for (const MixerStep step : {MixerStep::Open, MixerStep::Line, MixerStep::Control, MixerStep::Get}) {
        mixer.failing = step;
        EXPECT_EQ(volume.GetMasterVolume(), -1);
    }
    for (const MixerStep step : {MixerStep::Open, MixerStep::Line, MixerStep::Control, MixerStep::Set}) {
        mixer.failing = step;
        EXPECT_FALSE(volume.SetMasterVolume(10));
    }
    EXPECT_EQ(mixer.level, 65535);
}

TEST_F(MasterVolume, TheMixerIsClosedAfterEachCallWhateverFails) {
    for (const MixerStep step :
         {MixerStep::None, MixerStep::Open, MixerStep::Line, MixerStep::Control, MixerStep::Get, MixerStep::Set}) {
        mixer.failing = step;
        static_cast<void>(volume.GetMasterVolume());
        EXPECT_EQ(mixer.opened, mixer.closed);
        volume.SetMasterVolume(5);
        EXPECT_EQ(mixer.opened, mixer.closed);
    }
    EXPECT_GT(mixer.opened, 0);
}

TEST_F(MasterVolume, AMixerWithoutARangeIsAFailure) {
    mixer.maximum = mixer.minimum = mixer.level = 0;
    EXPECT_EQ(volume.GetMasterVolume(), -1);
}

TEST(NumberKeys, LetDigitsThePointAndControlKeysThrough) {
    for (std::int16_t code = 0; code < 256; ++code) {
        std::int16_t key = code;
        NumberKeyFilter(key);
        const bool passes = code <= 26 || code == '.' || (code >= '0' && code <= '9');
        EXPECT_EQ(key, passes ? code : 0) << code;
    }
}

} // namespace
} // namespace tonvale::test
