// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/unit/fakes/ListTest.h"

namespace tonvale::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ListDrop : public ListTest {
protected:
    void drop(const Texts &names) {
        list().userDroppedFiles(names);
        world.runUntilIdle();
    }
    void dropFile(const std::string &name) {
        world.files.add(name, 1);
        drop({name});
    }
    void folder(const std::string &path, const Texts &files) { world.files.folders[path] = files; }
};

TEST_F(ListDrop, TakesFilesByTheirEndingInTheOrderOfDelivery) {
    open();
    Texts accepted;
    for (const char *ending : {".mp2", ".mp3", ".asf", ".wav", ".aif", ".ram", ".rmm", ".rpm", ".mid", ".rmi", ".snd",
                               ".aifc", ".aiff", ".midi", ".ra", ".rm", ".au"})
        accepted.push_back(std::string("/m/z") + ending);
    for (const std::string &name : accepted) world.files.add(name, 1);
    drop(accepted);
    EXPECT_EQ(rows(), accepted);
}

TEST_F(ListDrop, PassesOverWhatIsNoneOfThem) {
    open();
    for (const char *name : {"/m/a.cda", "/m/a.txt", "/m/a", "/m/a.mp4", "/m/a.mp3.bak", "/m/a.mpeg"}) dropFile(name);
    EXPECT_THAT(rows(), IsEmpty());
    expectNoBox();
}

TEST_F(ListDrop, TheCaseOfTheNameIsKept) {
    open();
    dropFile("/M/A.MP3");
    dropFile("/M/B.Ra");
    EXPECT_THAT(rows(), ElementsAre("/M/A.MP3", "/M/B.Ra"));
}

TEST_F(ListDrop, AFolderHasItsOwnSetOfTypes) {
    open();
    folder("/m/pop", {"a.mp3", "b.rm", "c.cda", "d.AIFF", "e.aifc", "f.rmm", "g.txt", "h.au"});
    drop({"/m/pop"});
    EXPECT_THAT(rows(), ElementsAre("/m/pop/a.mp3", "/m/pop/c.cda", "/m/pop/d.AIFF", "/m/pop/h.au"));
    dropFile("/m/pop/b.rm");
    dropFile("/m/pop/c.cda");
    EXPECT_EQ(rows().back(), "/m/pop/b.rm");
}

TEST_F(ListDrop, AFolderMayEndInItsSeparator) {
    open();
    folder("/m/", {"a.mp3"});
    folder("/", {"b.mp3"});
    drop({"/m/", "/"});
    EXPECT_THAT(rows(), ElementsAre("/m/a.mp3", "/b.mp3"));
}

TEST_F(ListDrop, WhatIsNotThereAndAnEmptyFolderGiveNothing) {
    open();
    folder("/empty", {});
    drop({"/none", "", "   ", "/empty"});
    EXPECT_THAT(rows(), IsEmpty());
    expectNoBox();
}

TEST_F(ListDrop, AFolderThatCannotBeReadDoesNotStopTheOthers) {
    open();
    folder("/secret", {"a.mp3"});
    world.files.readError = ErrorNumber::PermissionDenied;
    world.files.add("/b.mp3", 1);
    drop({"/secret", "/b.mp3"});
    EXPECT_THAT(rows(), ElementsAre("/b.mp3"));
    expectNoBox();
}

TEST_F(ListDrop, LeavesTheSavedMarkTheExtentAndTheCommandsAlone) {
    open().List1.textWidth = [](const std::string &) { return 30000; };
    dropFile("/a.mp3");
    EXPECT_TRUE(list().ListSaved);
    EXPECT_EQ(list().List1.HorizontalExtent, 0);
    EXPECT_FALSE(list().playmenu.Enabled);
}

TEST_F(ListDrop, DuringARunTheRowsJoinTheListOnly) {
    openWith({"/a.mp3"});
    play();
    dropFile("/b.mp3");
    expectNoBox();
    EXPECT_THAT(rows(), ElementsAre("/a.mp3", "/b.mp3"));
    EXPECT_EQ(list().PlayQueue, Texts{"/a.mp3"});
}

TEST_F(ListDrop, RowsThatWereOnlyDroppedAreLostWithoutAQuestion) {
    open();
    dropFile("/a.mp3");
    list().Unload();
    expectNoBox();
    EXPECT_FALSE(isOpen());
}

TEST_F(ListDrop, NamesOfAnyKindAreTakenAsTheyAre) {
    open();
    const std::string longName = "/" + std::string(4000, 'x') + ".mp3";
    dropFile("/\xFF\xFE<b>&.mp3");
    dropFile(longName);
    dropFile("/line\nend.mp3");
    EXPECT_THAT(rows(), ElementsAre("/\xFF\xFE<b>&.mp3", longName, "/line\nend.mp3"));
}

} // namespace
} // namespace tonvale::test
