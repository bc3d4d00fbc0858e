// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/SettingsStore.h"
#include "tests/unit/expectations.h"
#include "tests/unit/fakes/World.h"

#include <gtest/gtest.h>

namespace tonvale::test {
namespace {

class TheSettingsStore : public testing::Test {
protected:
    CallLog log;
    FakeRegistry registry{log};
    SettingsStore store{registry};
};

TEST_F(TheSettingsStore, GivesTheDefaultForAMissingKeyOnly) {
    EXPECT_EQ(store.GetSetting("App", "Settings", "Key", "fallback"), "fallback");
    store.SaveSetting("App", "Settings", "Key", "");
    EXPECT_EQ(store.GetSetting("App", "Settings", "Key", "fallback"), "");
}

TEST_F(TheSettingsStore, AnOmittedDefaultIsTheEmptyText) { EXPECT_EQ(store.GetSetting("App", "Settings", "Key"), ""); }

TEST_F(TheSettingsStore, KeepsApplicationsSectionsAndKeysApart) {
    store.SaveSetting("Orvane Tonvale", "Settings", "Loop", "a");
    store.SaveSetting("Audio PlayList", "Settings", "Loop", "b");
    store.SaveSetting("Orvane Tonvale", "Assoc Backups", "Loop", "c");
    store.SaveSetting("Orvane Tonvale", "Settings", "Temp  Location", "two blanks");
    EXPECT_EQ(store.GetSetting("Orvane Tonvale", "Settings", "Loop"), "a");
    EXPECT_EQ(store.GetSetting("Audio PlayList", "Settings", "Loop"), "b");
    EXPECT_EQ(store.GetSetting("Orvane Tonvale", "Assoc Backups", "Loop"), "c");
    EXPECT_EQ(store.GetSetting("Orvane Tonvale", "Settings", "Temp Location", "none"), "none");
}

TEST_F(TheSettingsStore, KeepsTextsAsTheyAre) {
    store.SaveSetting("App", "Settings", "Key", " \xFF \"C:\\\" ");
    EXPECT_EQ(store.GetSetting("App", "Settings", "Key"), " \xFF \"C:\\\" ");
}

TEST_F(TheSettingsStore, LiesBelowTheCurrentUser) {
    registry.failingRoot = RootKey::LocalMachine;
    registry.readError = registry.writeError = ErrorNumber::PermissionDenied;
    store.SaveSetting("App", "Settings", "Key", "x");
    EXPECT_EQ(store.GetSetting("App", "Settings", "Key"), "x");
}

TEST_F(TheSettingsStore, ThrowsWhatTheRegistryThrows) {
    registry.readError = ErrorNumber::PathFileAccessError;
    registry.writeError = ErrorNumber::DiskFull;
    EXPECT_RUNTIME_ERROR(store.GetSetting("App", "Settings", "Key"), 75);
    EXPECT_RUNTIME_ERROR(store.SaveSetting("App", "Settings", "Key", "x"), 61);
}

TEST(SettingKeys, AreExactToTheLetter) {
    EXPECT_STREQ(setting::kTempLocation, "Temp  Location");
    EXPECT_STREQ(setting::kAlwaysOntop, "Always Ontop");
    EXPECT_STREQ(setting::kListAlwaysOnTop, "Always OnTop");
    EXPECT_STREQ(setting::kVideoListFullScreen, "Vide Playlist Full Screen");
    EXPECT_STREQ(setting::kMultiInstances, "Multi-Instances");
    EXPECT_STREQ(setting::kPosition, "Position");
    EXPECT_STREQ(setting::kConfirmDelete, "Confirm Delete");
    EXPECT_STREQ(setting::kLoopOther, "Loop Other");
    EXPECT_STREQ(setting::kVolume, "Volume");
    EXPECT_STREQ(setting::kLoopNoticeDue, "ShowMsg2");
    EXPECT_STREQ(setting::kWebNoticeDue, "ShowMsg3");
    EXPECT_STREQ(setting::kPipelineNoticeDue, "ShowMsg4");
    EXPECT_STREQ(setting::kWavQualityNoticeDue, "ShowMsg222");
    EXPECT_STREQ(setting::kSameInstanceLoad, "Same Instance Load");
    EXPECT_STREQ(setting::kCddbPrompt, "CDDB Enter Prompt");
    EXPECT_STREQ(setting::kAddAudioDirectory, "Common Dialog Dir 3");
    EXPECT_STREQ(setting::kAddPictureDirectory, "Common Dialog Dir 5");
    EXPECT_STREQ(setting::kAddWavDirectory, "Common Dialog Dir 398");
    EXPECT_STREQ(setting::kAddMp3Directory, "Common Dialog Dir 399");
    EXPECT_STREQ(setting::kAssociationBackups, "Assoc Backups");
    EXPECT_STREQ(setting::kAudioListApplication, "Audio PlayList");
    EXPECT_STREQ(setting::kVivoListApplication, "Vivo PlayList");
    EXPECT_STREQ(setting::kVideoListApplication, "Video PlayList");
    EXPECT_STREQ(setting::kListLoop, "Loop");
    EXPECT_STREQ(setting::kOpenMediaDirectory, "Common Dialog Dir");
    EXPECT_STREQ(setting::kLoadListDirectory, "Common Dialog Dir 2");
    EXPECT_STREQ(setting::kLoadPictureListDirectory, "Common Dialog Dir 4");
    EXPECT_STREQ(setting::kSection, "Settings");
}

} // namespace
} // namespace tonvale::test
