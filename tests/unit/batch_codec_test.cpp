// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/unit/fakes/BatchTest.h"

// Where the encoder's window and the decoder's do not go the same way.

namespace tonvale::test {

namespace {

using testing::ElementsAre;

class Encoding : public EncodeTest {};
class Decoding : public DecodeTest {};

constexpr const char *kRefused =
    "An error occurred attempting to open the source WAV file.\r\n\r\nEnsure the media is of valid WAV content and "
    "retry the operation.  If problems persist, the source media may be corrupt or invalid.";

TEST_F(Encoding, a_first_source_that_is_no_wav_file_stalls_the_run) {
    world.files.addText(result("a"), "old");
    world.codecs.refused = {source("a")};
    openWith({source("a"), source("b")});
    convertInto("/out");
    expectBox(kRefused);
    EXPECT_EQ(world.boxes.shown.size(), 1U);
    EXPECT_TRUE(isStalled());
    EXPECT_EQ(status(), inWork(source("a"), "1 of 2"));
    EXPECT_FALSE(world.files.hasExactly(result("a"))); // gone before the source was looked at
    EXPECT_FALSE(world.log.has("codec.start"));
    stop();
    EXPECT_TRUE(isEditing());
    EXPECT_EQ(status(), twin.stopped);
    EXPECT_EQ(rows().size(), 2U);
}

TEST_F(Encoding, a_later_source_that_is_no_wav_file_stalls_the_run) {
    world.codecs.refused = {source("b")};
    openWith({source("a"), source("b"), source("c")});
    convertInto("/out");
    finish();
    expectBox(kRefused);
    EXPECT_TRUE(isStalled());
    EXPECT_EQ(status(), inWork(source("b"), "2 of 3"));
    EXPECT_EQ(opened().size(), 2U);
}

TEST_F(Encoding, the_window_can_be_closed_behind_the_box_of_a_refused_source) {
    world.codecs.refused = {source("b")};
    openWith({source("a"), source("b"), source("c")});
    world.boxes.whileUp = [&](const MessageBox &) { slot().Unload(); };
    convertInto("/out");
    finish();
    EXPECT_EQ(world.boxes.shown.size(), 1U);
    EXPECT_FALSE(slot().isLoaded());
    EXPECT_EQ(opened().size(), 2U);
    EXPECT_EQ(world.codecs.alive, 0);
}

TEST_F(Encoding, a_stalled_run_in_a_window_that_finished_one_reports_success_at_its_stop) {
    openWith({source("a")});
    convertInto("/out");
    finish();
    world.codecs.refused = {source("b")};
    window().List1.AddItem(source("b"));
    convertInto("/out");
    EXPECT_TRUE(isStalled());
    stop();
    EXPECT_EQ(status(), twin.finished);
}

TEST_F(Encoding, a_file_that_fails_half_way_holds_the_run_until_it_is_stopped) {
    openWith({source("a"), source("b")});
    convertInto("/out");
    progress(30);
    world.codecs.fail();
    world.runUntilIdle();
    EXPECT_TRUE(isConverting());
    EXPECT_EQ(status(), inWork(source("a"), "1 of 2"));
    EXPECT_EQ(window().Gauge.Value, 30);
    expectNoBox();
    stop();
    EXPECT_TRUE(isEditing());
    EXPECT_EQ(status(), twin.stopped);
    EXPECT_FALSE(world.files.hasExactly(result("a")));
}

TEST_F(Encoding, mpeg_files_are_not_accepted) {
    openWith({"/music/a.mp3"});
    convertInto("/out");
    EXPECT_EQ(opened().size(), 0U);
    EXPECT_EQ(status(), twin.stopped);
}

// What is seen of the flag while the list is being emptied.
TEST_F(Encoding, the_run_is_finished_before_the_list_is_emptied) {
    openWith({source("a")});
    convertInto("/out");
    bool atEnabled = false, atEmptied = false;
    const auto enabled = window().List1.Enabled.onChange([&] { atEnabled = window().RunFinished; });
    const auto emptied = window().List1.rowsRemoved.connect([&](auto...) { atEmptied = window().RunFinished; });
    finish();
    EXPECT_TRUE(atEnabled);
    EXPECT_TRUE(atEmptied);
}

TEST_F(Decoding, the_run_is_finished_after_the_list_is_emptied) {
    openWith({source("a")});
    convertInto("/out");
    bool atEnabled = true, atEmptied = true;
    const auto enabled = window().List1.Enabled.onChange([&] { atEnabled = window().RunFinished; });
    const auto emptied = window().List1.rowsRemoved.connect([&](auto...) { atEmptied = window().RunFinished; });
    finish();
    EXPECT_FALSE(atEnabled);
    EXPECT_FALSE(atEmptied);
    EXPECT_TRUE(window().RunFinished);
    EXPECT_EQ(status(), twin.finished);
}

TEST_F(Decoding, both_kinds_of_mpeg_audio_in_one_list) {
    openWith({"/music/a.mp3", "/music/b.mp2", "/music/C.MP3", "/music/D.Mp2"});
    convertInto("/out");
    for (int i = 0; i < 4; ++i) finish();
    EXPECT_EQ(status(), twin.finished);
    EXPECT_THAT(opened(),
                ElementsAre("codec.open /music/a.mp3 -> /out/a.wav", "codec.open /music/b.mp2 -> /out/b.wav",
                            "codec.open /music/C.MP3 -> /out/C.wav", "codec.open /music/D.Mp2 -> /out/D.wav"));
}

TEST_F(Decoding, two_kinds_of_one_name_leave_the_result_of_the_second) {
    openWith({"/music/a.mp2", "/music/a.mp3"});
    convertInto("/out");
    finish();
    EXPECT_EQ(world.log.count("files.delete /out/a.wav"), 1);
    finish();
    EXPECT_EQ(world.files.text("/out/a.wav"), "of /music/a.mp3");
    expectNoBox();
}

TEST_F(Decoding, wav_files_are_not_accepted) {
    openWith({"/music/a.wav"});
    convertInto("/out");
    EXPECT_EQ(opened().size(), 0U);
    EXPECT_EQ(status(), twin.stopped);
}

TEST_F(Decoding, a_source_that_does_not_open_is_started_without_a_box) {
    world.codecs.refused = {source("a")};
    openWith({source("a"), source("b")});
    convertInto("/out");
    EXPECT_TRUE(world.log.has("codec.start"));
    EXPECT_TRUE(isConverting());
    EXPECT_EQ(status(), inWork(source("a"), "1 of 2"));
    expectNoBox();
}

TEST_F(Decoding, where_no_end_is_told_the_run_stands_until_it_is_stopped) {
    world.codecs.refused = {source("a")};
    openWith({source("a"), source("b")});
    convertInto("/out");
    world.advance(3600 * 1000);
    EXPECT_TRUE(isConverting());
    stop();
    EXPECT_TRUE(isEditing());
    EXPECT_EQ(status(), twin.stopped);
}

TEST_F(Decoding, where_an_end_is_told_the_run_goes_on_without_that_file) {
    world.codecs.refused = {source("a")};
    openWith({source("a"), source("b")});
    convertInto("/out");
    world.codecs.fail();
    world.runUntilIdle();
    EXPECT_EQ(status(), inWork(source("b"), "2 of 2"));
    finish();
    EXPECT_EQ(status(), twin.finished);
    EXPECT_FALSE(world.files.hasExactly(result("a")));
    EXPECT_TRUE(world.files.hasExactly(result("b")));
}

} // namespace

} // namespace tonvale::test
