# SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The audio list: rows out of a .ply file, a run to its end, hot keys, a drop, the questions."""

import os
import pathlib
import re
import unittest
import urllib.parse

import drag
from player import Desk, TITLE
from session import holds_for, wait_for

LIST = "Audio PlayList"


class Playlist(Desk):
    session_options = {"size": "1400x900x24"}

    def list_file(self, *rows, name="list.ply"):
        path = pathlib.Path(self.file(name))
        path.write_bytes(b"".join(os.fsencode(row) + b"\r\n" for row in rows))
        return str(path)

    def open_list(self, *rows):
        """A list window that was opened from outside, with these rows."""
        return self.open_list_file(self.list_file(*rows))

    def open_list_file(self, path):
        player = self.start(path)
        self.answer(player, "Yes")
        wait_for(lambda: self.is_there(LIST), "the list window")
        wait_for(lambda: player.has("push button", "Play"), "the toolbar")
        return player

    def is_there(self, title):
        return title in self.session.windows()

    def answer(self, player, button):
        player.find("push button", button).start_press()

    def activate(self, title):
        search = ("xdotool", "search", "--onlyvisible", "--name", f"^{re.escape(title)}$")
        wait_for(lambda: self.session.output(*search), f"the window {title!r}")
        self.session.output(*search, "windowactivate", "--sync")

    def rows(self, player):
        return [item.name for item in player.find_all("list item")]

    def wait_for_rows(self, player, *rows):
        wait_for(lambda: self.rows(player) == list(rows), f"the rows {rows}")

    def push(self, player, key):
        player.find("push button", key).start_press()

    def change(self, player):
        """Moves the first row down, which is a change that wants to be saved."""
        self.activate(LIST)
        self.session.click(*player.find_all("list item")[0].centre())
        self.session.key("ctrl+d")

    def test_three_files_play_to_their_ends_by_themselves(self):
        names = ("a.wav", "b.wav", "c.wav")
        player = self.open_list(*(self.tone(name, seconds=1) for name in names))
        self.push(player, "Play")
        for place, name in enumerate(names, 1):
            wait_for(lambda: player.shows(f"Playing File: {name} ({place} of 3)"), f"{name} being played")
            wait_for(self.session.is_audible, "sound from the speakers")
        wait_for(lambda: player.shows("PlayList Halted."), "the end of the list")
        wait_for(self.session.is_silent, "silence at the end")
        self.assertFalse(self.is_there(TITLE), "the main window is hidden")

    def test_hot_keys_while_another_window_has_the_focus(self):
        player = self.open_list(self.tone("a.wav"), self.tone("b.wav"))
        self.session.spawn("xev", "-name", "elsewhere")
        self.activate("elsewhere")
        self.session.key("ctrl+space")
        wait_for(lambda: player.shows("Playing File: a.wav (1 of 2)"), "the first item")
        wait_for(self.session.is_audible, "sound from the speakers")
        self.session.key("ctrl+p")
        wait_for(self.session.is_silent, "silence in the pause")
        self.session.key("ctrl+KP_Add")
        wait_for(lambda: player.shows("Playing File:  b.wav (2 of 2)"), "the next item")
        self.session.key("ctrl+KP_Subtract")
        wait_for(lambda: player.shows("Playing File: a.wav (1 of 2)"), "the item before")
        self.session.key("ctrl+space")
        wait_for(lambda: player.shows("PlayList Halted."), "the end of the run")
        self.session.key("ctrl+x")
        wait_for(lambda: self.is_there(TITLE) and not self.is_there(LIST), "the main window in its place")

    def test_the_play_key_presses_no_button_of_the_window(self):
        player = self.open_list(self.tone("a.wav"))
        self.activate(LIST)
        for _ in range(2):
            self.session.key("ctrl+space")
            wait_for(lambda: player.shows("Playing File: a.wav (1 of 1)"), "the item")
            self.session.key("ctrl+space")
            wait_for(lambda: player.shows("PlayList Halted."), "the end of the run")
        holds_for(0.5, lambda: self.session.windows() == [LIST], "the list alone on screen")

    def test_the_key_that_is_a_menus_and_the_hooks_does_both(self):
        player = self.open_list(self.tone("a.wav"))
        self.activate(LIST)
        self.session.click(*player.find_all("list item")[0].centre())
        wait_for(player.find("menu item", "Deselect All").is_enabled, "a row that is selected")
        self.session.key("ctrl+p")
        wait_for(lambda: player.shows("The playlist is not currently playing."), "what the hook's Pause says")
        self.answer(player, "OK")
        wait_for(lambda: player.shows("Playing File: a.wav (1 of 1)"), "what the menu's Play does")

    def test_the_mute_key_counts_once_in_the_window_itself(self):
        self.session.set_sink_volume(60)
        self.open_list("/a.mp3")
        self.activate(LIST)
        self.session.key("ctrl+m")
        wait_for(lambda: self.session.sink_volume() == 0, "muted speakers")
        holds_for(0.5, lambda: self.session.sink_volume() == 0, "muted speakers")
        self.session.key("ctrl+m")
        wait_for(lambda: self.session.sink_volume() == 60, "speakers as before")

    def test_files_and_folders_are_dropped_in_the_order_of_their_delivery(self):
        player = self.open_list("/first.mp3")
        folder = pathlib.Path(self.file("some folder"))
        folder.mkdir()
        for name in (b"b.mp3", b"A.MP3", b"x.txt", b"track01.cda"):
            (folder / os.fsdecode(name)).touch()
        latin = os.path.join(os.fsencode(self.session.directory), b"caf\xe9 100%.mp3")
        pathlib.Path(os.fsdecode(latin)).touch()
        self.tone("z.wav", seconds=1)
        addresses = ["file://" + urllib.parse.quote(path) for path in (os.fsencode(self.file("z.wav")), latin,
                                                                       os.fsencode(folder))]
        addresses.insert(1, "https://orvane.example/a.mp3")
        drag.drop(self.session, addresses, player.find("list", "PlayList").centre())
        where = f"{folder}/"
        self.wait_for_rows(player, "/first.mp3", self.file("z.wav"), self.file("café 100%.mp3"), where + "A.MP3",
                           where + "b.mp3", where + "track01.cda")

    def test_closing_an_unsaved_list_asks_and_saves_its_bytes(self):
        rows = ("/b\udce4r.mp3", "/ü.mp3")
        player = self.open_list(*rows)
        self.change(player)
        self.session.key("Escape")
        self.answer(player, "Cancel")
        wait_for(lambda: not player.has("push button", "Cancel"), "the end of the question")
        holds_for(0.5, lambda: self.is_there(LIST), "the list window")
        self.session.key("Escape")
        self.answer(player, "Yes")
        wait_for(lambda: self.is_there("Save Current PlayList..."), "the dialog")
        self.session.output("xdotool", "type", self.file("saved"))
        self.session.key("Return")
        wait_for(lambda: self.is_there(TITLE), "the main window in its place")
        self.assertEqual(pathlib.Path(self.file("saved.ply")).read_bytes(), "/ü.mp3\r\n".encode() + b"/b\xe4r.mp3\r\n")

    def test_the_exit_key_is_a_menus_and_the_hooks_and_asks_once(self):
        player = self.open_list("/a.mp3", "/b.mp3")
        self.change(player)
        self.session.key("ctrl+x")
        self.answer(player, "Cancel")
        wait_for(lambda: not player.has("push button", "Cancel"), "the end of the question")
        holds_for(0.5, lambda: self.session.windows() == [LIST], "the list alone on screen")

    def test_closing_without_saving(self):
        player = self.open_list("/a.mp3", "/b.mp3")
        self.change(player)
        self.session.key("alt+F4")
        self.answer(player, "No")
        wait_for(lambda: self.is_there(TITLE) and not self.is_there(LIST), "the main window in its place")
        self.assertEqual(player.end(), 0)

    def test_closing_a_running_list_asks(self):
        player = self.open_list(self.tone("a.wav"))
        self.push(player, "Play")
        wait_for(self.session.is_audible, "sound from the speakers")
        self.activate(LIST)
        self.session.key("Escape")
        self.answer(player, "No")
        holds_for(0.5, self.session.is_audible, "the sound")
        self.session.key("Escape")
        self.answer(player, "Yes")
        wait_for(lambda: self.is_there(TITLE), "the main window in its place")
        wait_for(self.session.is_silent, "silence")

    def test_a_file_that_cannot_be_played_is_told_and_passed_over(self):
        player = self.open_list("/none.mp3", self.tone("a.wav"))
        self.push(player, "Play")
        wait_for(lambda: any(label.name.startswith("Unable to play file: ") for label in player.find_all("label")),
                 "the box")
        self.answer(player, "OK")
        wait_for(lambda: player.shows("Playing File: a.wav (2 of 2)"), "the next item")
        wait_for(self.session.is_audible, "sound from the speakers")

    def test_files_that_are_no_lists_do_no_harm(self):
        zeros = pathlib.Path(self.file("zeros.ply"))
        with open(zeros, "wb") as file:
            file.truncate(1 << 30)
        player = self.open_list_file(str(zeros))
        self.assertEqual(self.rows(player), [])
        player.kill()
        odd = pathlib.Path(self.file("odd.ply"))
        odd.write_bytes(b"\0\0\r\n" + b"x" * 500000 + b"\r<b>&amp;\n\t\xff\xfe\r\n\r\n/a.mp3")
        player = self.open_list_file(str(odd))
        wait_for(lambda: len(self.rows(player)) == 4, "four rows")
        self.push(player, "Play")
        wait_for(lambda: player.shows("PlayList Halted."), "a stop without a word")

    def test_play_stays_grey_until_the_list_is_clicked(self):
        player = self.open_list("/a.mp3")
        self.session.spawn("xev", "-name", "elsewhere")
        self.activate("elsewhere")
        self.activate(LIST)
        place = player.find_all("list item")[0].centre()
        player.pop_up_menu(*place)
        entry = player.find("menu item", "Play")
        self.assertFalse(entry.is_enabled())
        self.session.key("Escape")
        wait_for(lambda: not player.pop_ups(), "the closed menu")
        self.session.click(*place)
        wait_for(entry.is_enabled, "the entry being enabled")

    def test_the_window_keeps_its_least_size(self):
        self.open_list("/a.mp3")
        window = self.session.output("xdotool", "search", "--name", f"^{LIST}$").split()[0]
        self.session.output("xdotool", "windowsize", window, "50", "50")
        hints = self.session.output("xprop", "-id", window, "WM_NORMAL_HINTS")
        self.assertRegex(hints, r"minimum size: 310 by \d+")


if __name__ == "__main__":
    unittest.main()
