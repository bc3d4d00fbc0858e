// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/Text.h"
#include "tests/unit/fakes/BatchTest.h"

#include <optional>

namespace tonvale::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class BatchRun : public BatchTest {};

INSTANTIATE_TEST_SUITE_P(Both, BatchRun, testing::Values(kEncodeTwin, kDecodeTwin), twinName);

TEST_P(BatchRun, an_empty_list_is_refused_with_a_hint) {
    open();
    pushToolbar("Convert");
    expectBox("Your list is currently empty. \r\n\r\nSelect the files you wish to be included in your list first in "
              "order to proceed.\r\n\r\n(To accomplish this, select \"Add\"  from the toolbar or Edit menu, or simply "
              "press Ctrl + A).");
    EXPECT_THAT(world.dialogs.browsed, IsEmpty());
    EXPECT_TRUE(isEditing());
}

TEST_P(BatchRun, without_a_folder_nothing_happens) {
    openWith({source("a")}).DestFolder = "/old";
    click(window().ConvertMenu.Click);
    EXPECT_THAT(world.dialogs.browsed, ElementsAre(twin.folderTitle));
    EXPECT_EQ(window().DestFolder, "");
    EXPECT_TRUE(isEditing());
    EXPECT_EQ(status(), twin.introduction);
    world.dialogs.failure = ErrorNumber::InternalError;
    click(window().ConvertMenu.Click);
    EXPECT_TRUE(isEditing());
    EXPECT_THAT(calls(), IsEmpty());
    expectNoBox();
}

TEST_P(BatchRun, one_file_from_the_command_to_the_end) {
    openWith({source("a")});
    convertInto("/out");
    EXPECT_TRUE(isConverting());
    EXPECT_EQ(status(), inWork(source("a"), "1 of 1"));
    EXPECT_EQ(window().SourceFile, source("a"));
    EXPECT_EQ(window().DestFolder, "/out");
    EXPECT_THAT(calls(), ElementsAre("codec.open " + source("a") + " -> " + result("a"), "codec.start"));
    progress(100);
    EXPECT_EQ(window().Gauge.Value, 100);
    finish();
    EXPECT_TRUE(isEditing());
    EXPECT_THAT(rows(), IsEmpty());
    EXPECT_EQ(status(), twin.finished);
    EXPECT_EQ(window().Gauge.Value, 0);
    EXPECT_TRUE(window().RunFinished);
    EXPECT_THAT(window().RunQueue, IsEmpty());
    EXPECT_TRUE(world.log.has("codec.stop"));
    EXPECT_EQ(world.files.text(result("a")), "of " + source("a"));
    expectNoBox();
}

TEST_P(BatchRun, files_are_converted_in_the_order_of_the_rows) {
    openWith({source("b"), source("a"), source("c")});
    convertInto("/out");
    EXPECT_EQ(status(), inWork(source("b"), "1 of 3"));
    finish();
    EXPECT_TRUE(isConverting());
    EXPECT_EQ(status(), inWork(source("a"), "2 of 3"));
    finish();
    EXPECT_EQ(status(), inWork(source("c"), "3 of 3"));
    EXPECT_EQ(rows().size(), 3U);
    finish();
    EXPECT_EQ(status(), twin.finished);
    EXPECT_THAT(opened(), ElementsAre("codec.open " + source("b") + " -> " + result("b"),
                                      "codec.open " + source("a") + " -> " + result("a"),
                                      "codec.open " + source("c") + " -> " + result("c")));
}

TEST_P(BatchRun, rows_that_come_during_a_run_are_not_part_of_it) {
    openWith({source("a")});
    convertInto("/out");
    window().List1.AddItem(source("late"));
    finish();
    EXPECT_EQ(opened().size(), 1U);
    EXPECT_TRUE(isEditing());
    EXPECT_THAT(rows(), IsEmpty());
}

TEST_P(BatchRun, the_gauge_shows_per_cent_with_halves_to_the_even_number) {
    openWith({source("a")});
    world.codecs.length = 200;
    convertInto("/out");
    const auto gaugeAt = [&](std::int32_t position) {
        progress(position);
        return window().Gauge.Value.get();
    };
    EXPECT_EQ(gaugeAt(1), 0);   // 0.5
    EXPECT_EQ(gaugeAt(3), 2);   // 1.5
    EXPECT_EQ(gaugeAt(5), 2);   // 2.5
    EXPECT_EQ(gaugeAt(7), 4);   // 3.5
    EXPECT_EQ(gaugeAt(8), 4);   // 4.0
    EXPECT_EQ(gaugeAt(99), 50); // 49.5
    EXPECT_EQ(gaugeAt(101), 50);
    EXPECT_EQ(gaugeAt(200), 100);
}

TEST_P(BatchRun, the_gauge_of_a_very_long_file_and_of_one_without_a_length) {
    openWith({source("a")});
    world.codecs.length = 2000000000;
    convertInto("/out");
    progress(1500000000);
    EXPECT_EQ(window().Gauge.Value, 75);
    world.codecs.length = 0;
    progress(0);
    progress(5);
    EXPECT_EQ(window().Gauge.Value, 75);
    expectNoBox();
}

TEST_P(BatchRun, a_stop_during_the_second_file_keeps_the_first_result_and_the_list) {
    openWith({source("a"), source("b"), source("c")});
    convertInto("/out");
    finish();
    progress(50);
    stop();
    EXPECT_TRUE(isEditing());
    EXPECT_EQ(status(), twin.stopped);
    EXPECT_EQ(window().Gauge.Value, 0);
    EXPECT_EQ(window().DestFolder, "");
    EXPECT_FALSE(window().RunFinished);
    EXPECT_THAT(window().RunQueue, IsEmpty());
    EXPECT_THAT(rows(), ElementsAre(source("a"), source("b"), source("c")));
    EXPECT_EQ(world.files.text(result("a")), "of " + source("a"));
    EXPECT_EQ(world.files.text(result("b")), "part of " + source("b"));
    EXPECT_FALSE(world.files.hasExactly(result("c")));
}

TEST_P(BatchRun, after_one_complete_run_every_stop_reports_success) {
    openWith({source("a")});
    convertInto("/out");
    finish();
    window().List1.AddItem(source("b"));
    convertInto("/out");
    stop();
    EXPECT_EQ(status(), twin.finished);
    EXPECT_THAT(rows(), ElementsAre(source("b")));
    window().Unload();
    world.runUntilIdle();
    show();
    window().List1.AddItem(source("b"));
    convertInto("/out");
    stop();
    EXPECT_EQ(status(), twin.stopped);
}

TEST_P(BatchRun, a_stopped_list_can_be_run_again) {
    openWith({source("a"), source("b")});
    convertInto("/out");
    finish();
    stop();
    convertInto("/other");
    EXPECT_EQ(status(), inWork(source("a"), "1 of 2"));
    EXPECT_EQ(opened().back(), "codec.open " + source("a") + " -> /other/a" + twin.result);
}

TEST_P(BatchRun, what_the_codec_tells_after_a_stop_is_ignored) {
    openWith({source("a"), source("b")});
    convertInto("/out");
    world.codecs.finishWithout();
    window().ConvertMenu.Click();
    world.runUntilIdle();
    EXPECT_TRUE(isEditing());
    EXPECT_EQ(status(), twin.stopped);
    EXPECT_EQ(opened().size(), 1U);
    EXPECT_EQ(rows().size(), 2U);
}

TEST_P(BatchRun, a_stop_that_fails_ends_the_run_all_the_same) {
    openWith({source("a")});
    convertInto("/out");
    progress(40);
    world.codecs.stopError = ErrorNumber::InternalError;
    stop();
    EXPECT_TRUE(isEditing());
    EXPECT_EQ(status(), twin.stopped);
    EXPECT_EQ(window().Gauge.Value, 0);
    expectNoBox();
}

TEST_P(BatchRun, an_existing_result_goes_without_a_question_even_one_of_the_same_run) {
    world.files.addText(result("a"), "precious");
    openWith({"/one/a" + twin.source, "/two/a" + twin.source});
    convertInto("/out");
    const std::string target = result("a");
    const Texts replaced{"files.clearAttributes " + target, "files.delete " + target};
    EXPECT_THAT(calls(), ElementsAre(replaced[0], replaced[1], "codec.open /one/a" + twin.source + " -> " + target,
                                     "codec.start"));
    world.log.clear();
    finish();
    EXPECT_THAT(calls(), ElementsAre(replaced[0], replaced[1], "codec.open /two/a" + twin.source + " -> " + target,
                                     "codec.start"));
    finish();
    EXPECT_EQ(world.files.text(target), "of /two/a" + twin.source);
    expectNoBox();
}

TEST_P(BatchRun, the_result_lands_beside_its_source_where_that_folder_is_chosen) {
    world.files.addText(source("a"), "source");
    openWith({source("a")});
    convertInto("/music");
    finish();
    EXPECT_EQ(world.files.text("/music/a" + twin.result), "of " + source("a"));
    EXPECT_EQ(world.files.text(source("a")), "source");
    EXPECT_THAT(world.log.of({"files."}), IsEmpty());
}

TEST_P(BatchRun, the_result_is_joined_with_the_separator_of_its_folder) {
    openWith({"C:\\music\\a" + twin.source});
    convertInto("D:\\out");
    EXPECT_THAT(opened(), ElementsAre("codec.open C:\\music\\a" + twin.source + " -> D:\\out\\a" + twin.result));
}

TEST_P(BatchRun, an_error_of_before_is_forgotten_as_a_file_starts) {
    openWith({source("a")});
    world.app().Err.set(RuntimeError(ErrorNumber::DiskFull));
    convertInto("/out");
    EXPECT_EQ(world.app().Err.Number, 0);
}

TEST_P(BatchRun, names_keep_their_dots_and_their_bytes) {
    openWith({"/music/a.live.\xe9" + twin.source});
    convertInto("/out");
    EXPECT_THAT(opened(),
                ElementsAre("codec.open /music/a.live.\xe9" + twin.source + " -> /out/a.live.\xe9" + twin.result));
}

TEST_P(BatchRun, extensions_are_accepted_in_capitals) {
    openWith({"/music/A" + upperCase(twin.source)});
    convertInto("/out");
    EXPECT_TRUE(isConverting());
    EXPECT_THAT(opened(), ElementsAre("codec.open /music/A" + upperCase(twin.source) + " -> " + result("A")));
}

// The command sets its caption after the stop, so that the next press is a stop once more.
TEST_P(BatchRun, a_first_file_of_another_type_stops_the_run) {
    openWith({"/music/a.txt", source("b")});
    convertInto("/out");
    EXPECT_EQ(status(), twin.stopped);
    EXPECT_TRUE(window().List1.Enabled);
    EXPECT_FALSE(window().RunActive);
    EXPECT_EQ(window().ConvertMenu.Caption, twin.stop);
    EXPECT_THAT(opened(), IsEmpty());
    EXPECT_THAT(rows(), ElementsAre("/music/a.txt", source("b")));
    stop();
    EXPECT_TRUE(isEditing());
    EXPECT_EQ(status(), twin.stopped);
    expectNoBox();
}

TEST_P(BatchRun, a_later_file_of_another_type_stops_the_run) {
    openWith({source("a"), "/music/b", source("c")});
    convertInto("/out");
    finish();
    EXPECT_TRUE(isEditing());
    EXPECT_EQ(status(), twin.stopped);
    EXPECT_EQ(opened().size(), 1U);
    EXPECT_EQ(rows().size(), 3U);
}

TEST_P(BatchRun, an_error_at_the_start_of_the_first_file_stalls_the_run) {
    for (std::optional<ErrorNumber> *error :
         {&world.files.deleteError, &world.codecs.openError, &world.codecs.startError}) {
        world.files.addText(result("a"), "old");
        if (!slot().isLoaded()) openWith({source("a"), source("b")});
        *error = ErrorNumber::PermissionDenied;
        world.boxes.shown.clear();
        convertInto("/out");
        expectBox(twin.failed, BoxIcon::Exclamation);
        EXPECT_EQ(world.boxes.shown.size(), 1U);
        EXPECT_TRUE(isStalled());
        EXPECT_EQ(status(), inWork(source("a"), "1 of 2"));
        *error = {};
        stop();
        EXPECT_TRUE(isEditing());
        EXPECT_EQ(status(), twin.stopped);
        EXPECT_EQ(rows().size(), 2U);
    }
}

TEST_P(BatchRun, an_error_at_the_start_of_a_later_file_stalls_the_run) {
    openWith({source("a"), source("b"), source("c")});
    convertInto("/out");
    world.codecs.openError = ErrorNumber::FileNotFound;
    finish();
    expectBox(twin.failed, BoxIcon::Exclamation);
    EXPECT_TRUE(isStalled());
    EXPECT_EQ(status(), inWork(source("b"), "2 of 3"));
    world.codecs.finishWithout(); // whatever it means
    world.runUntilIdle();
    EXPECT_TRUE(isStalled());
    stop();
    EXPECT_EQ(status(), twin.stopped);
    EXPECT_EQ(world.files.text(result("a")), "of " + source("a"));
}

TEST_P(BatchRun, closing_the_window_ends_the_run) {
    openWith({source("a"), source("b")});
    convertInto("/out");
    window().Unload();
    world.runUntilIdle();
    EXPECT_FALSE(slot().isLoaded());
    EXPECT_EQ(world.codecs.alive, 0);
    EXPECT_FALSE(world.codecs.running);
    EXPECT_EQ(world.files.text(result("a")), "part of " + source("a"));
    EXPECT_EQ(opened().size(), 1U);
    expectNoBox();
    show();
    EXPECT_TRUE(isEditing());
    EXPECT_THAT(rows(), IsEmpty());
}

TEST_P(BatchRun, a_file_that_ends_as_the_window_closes_starts_no_other) {
    openWith({source("a"), source("b")});
    convertInto("/out");
    world.codecs.finish();
    window().Unload();
    world.runUntilIdle();
    EXPECT_EQ(opened().size(), 1U);
}

TEST_P(BatchRun, the_end_of_the_program_ends_the_run) {
    openWith({source("a"), source("b")});
    convertInto("/out");
    world.app().form1->Unload();
    world.runUntilIdle();
    EXPECT_FALSE(slot().isLoaded());
    EXPECT_EQ(world.codecs.alive, 0);
    EXPECT_EQ(opened().size(), 1U);
}

TEST_P(BatchRun, nothing_starts_where_the_window_was_closed_behind_the_folder_dialog) {
    openWith({source("a")});
    world.dialogs.whileUp = [&] { slot().Unload(); };
    convertInto("/out");
    EXPECT_FALSE(slot().isLoaded());
    EXPECT_THAT(calls(), ElementsAre("codec.stop"));
    EXPECT_EQ(world.codecs.alive, 0);
}

TEST_P(BatchRun, the_window_can_be_closed_behind_the_box_of_a_failed_start) {
    openWith({source("a"), source("b")});
    world.codecs.startError = ErrorNumber::InternalError;
    world.boxes.whileUp = [&](const MessageBox &) { slot().Unload(); };
    convertInto("/out");
    EXPECT_FALSE(slot().isLoaded());
    EXPECT_EQ(opened().size(), 1U);
    EXPECT_EQ(world.codecs.alive, 0);
}

} // namespace

} // namespace tonvale::test
