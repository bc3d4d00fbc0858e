// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/unit/expectations.h"
#include "tests/unit/fakes/BatchTest.h"

namespace tonvale::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class BatchWindowParts : public BatchTest {};
class EncodeNotice : public EncodeTest {};
class DecodeNotice : public DecodeTest {};

INSTANTIATE_TEST_SUITE_P(Both, BatchWindowParts, testing::Values(kEncodeTwin, kDecodeTwin), twinName);

Texts captions(const std::vector<MenuEntry *> &entries) {
    Texts result;
    for (const MenuEntry *entry : entries) result.push_back(entry->Caption.get() + "|" + entry->Shortcut);
    return result;
}

TEST_P(BatchWindowParts, it_says_how_to_begin) {
    open();
    EXPECT_EQ(window().Name, twin.name);
    EXPECT_EQ(window().Caption, twin.caption);
    EXPECT_EQ(status(), twin.introduction);
    EXPECT_EQ(window().Gauge.Caption, "Converting...");
    EXPECT_EQ(window().Gauge.Value, 0);
    EXPECT_TRUE(isEditing());
    EXPECT_FALSE(window().RunFinished);
    EXPECT_FALSE(window().AcceptsFiles);
    EXPECT_THAT(rows(), IsEmpty());
}

TEST_P(BatchWindowParts, its_menus) {
    open();
    EXPECT_THAT(captions(window().menuBar()), ElementsAre("&File|", "&Edit|"));
    EXPECT_THAT(captions(window().FileMenu.children), ElementsAre(twin.rest + "|F5", "-|", "E&xit|Ctrl+X"));
    EXPECT_THAT(captions(window().EditMenu.children),
                ElementsAre("&Add|Ctrl+A", "&Remove|Del", "-|", "Move &Up|Ctrl+U", "Move &Down|Ctrl+D"));
}

TEST_P(BatchWindowParts, its_toolbar) {
    open();
    Texts buttons;
    for (const ToolbarButton &button : window().Toolbar1.Buttons)
        buttons.push_back(button.Key + "|" + button.ToolTipText + "|" + button.Image);
    EXPECT_THAT(buttons, ElementsAre("Add|Add Files to List|Add", "Remove|Remove File(s) from List|Remove", "sep1||",
                                     "Convert|" + twin.convertToolTip + "|Convert", "sep2||", "Exit|Exit|Exit"));
}

TEST_P(BatchWindowParts, both_ways_out) {
    open();
    pushToolbar("Exit");
    EXPECT_FALSE(slot().isLoaded());
    show();
    click(window().ExitMenu.Click);
    EXPECT_FALSE(slot().isLoaded());
    world.runUntilIdle();
    EXPECT_EQ(world.codecs.alive, 0);
}

TEST_P(BatchWindowParts, the_main_player_plays_on) {
    world.files.add("/music/song.mp3", 1000);
    open("/music/song.mp3");
    ASSERT_TRUE(world.media.playing);
    addByDialog(source("a"));
    convertInto("/out");
    finish();
    window().Unload();
    EXPECT_TRUE(world.app().form1->Visible);
    EXPECT_TRUE(world.media.playing);
    EXPECT_THAT(world.log.of({"engine."}), IsEmpty());
}

TEST_P(BatchWindowParts, the_other_twin_can_be_open_beside_it) {
    open();
    const BatchTwin &other = twin.name == "frmEncode" ? kDecodeTwin : kEncodeTwin;
    (world.app().*other.slot).form().Show();
    world.runUntilIdle();
    EXPECT_TRUE(slot().isLoaded());
    EXPECT_TRUE((world.app().*other.slot).isLoaded());
    EXPECT_EQ(world.codecs.alive, 2);
}

const char *const kNotice =
    "This feature works correctly only on 16-bit, true wave audio.  If your WAV file is not 16-bit, this option will "
    "not product a valid MP3 file.  \r\n\r\nIt is very simple to convert your existing WAV file to 16-bit using the "
    "Batch WAV Conversion module.  \r\n\r\nHowever, lesser quality WAV files are usually much smaller in size; "
    "therefore the MP3 conversion most often will not reduce the size much as the quality has already been decreased.";

TEST_F(EncodeNotice, comes_once) {
    open();
    window().Unload();
    world.runUntilIdle();
    world.registry.setText(RootKey::CurrentUser, "Software\\Program Settings\\Orvane Tonvale\\Settings", "ShowMsg222",
                           "True");
    show();
    expectBox(kNotice, BoxIcon::Information, "Important Note:");
    EXPECT_EQ(world.setting("ShowMsg222"), "False");
    window().Unload();
    world.runUntilIdle();
    show();
    EXPECT_EQ(world.boxes.shown.size(), 1U);
}

TEST_F(EncodeNotice, comes_where_nothing_is_stored) {
    world.start();
    registerConversionWindows(world.app());
    show();
    expectBox(kNotice, BoxIcon::Information, "Important Note:");
    EXPECT_EQ(world.setting("ShowMsg222"), "False");
    EXPECT_TRUE(isEditing());
}

TEST_F(EncodeNotice, stays_away_where_it_was_seen) {
    open();
    expectNoBox();
}

TEST_F(EncodeNotice, comes_again_where_the_store_cannot_be_written) {
    world.start();
    registerConversionWindows(world.app());
    world.registry.writeError = ErrorNumber::DiskFull;
    show();
    window().Unload();
    world.runUntilIdle();
    show();
    EXPECT_EQ(world.boxes.shown.size(), 2U);
    EXPECT_TRUE(isEditing());
}

TEST_F(EncodeNotice, is_up_when_the_program_is_closed) {
    world.start();
    registerConversionWindows(world.app());
    world.boxes.whileUp = [&](const MessageBox &) { slot().Unload(); };
    EXPECT_EQ(errorOf([&] { slot().form(); }), 429);
    world.runUntilIdle();
    EXPECT_FALSE(slot().isLoaded());
    EXPECT_EQ(world.codecs.alive, 0);
}

TEST_F(DecodeNotice, there_is_none) {
    world.start();
    registerConversionWindows(world.app());
    show();
    expectNoBox();
    EXPECT_EQ(world.setting("ShowMsg222"), "(none)");
}

} // namespace

} // namespace tonvale::test
