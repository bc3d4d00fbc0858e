# SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The small windows, the help, the recent files, and every entry of the menus."""

import os
import pathlib
import unittest

from pixels import write_film
from player import Desk, TITLE
from session import BUILD, holds_for, wait_for

# What other windows open that are still to come.
STILL_TO_COME = {"CDDB Access CD Player", "Video PlayList", "Vivo PlayList", "Advanced CD Player",
                 "Advanced Video CD Player", "Convert CD Audio to MP3", "Convert CD Audio to WAV",
                 "Associate  Supported File Types"}


class Windows(Desk):
    def wait_for_title(self, title):
        wait_for(lambda: title in self.session.windows(), f"the window {title!r}")

    def wait_for_end_of(self, title):
        wait_for(lambda: title not in self.session.windows(), f"the end of {title!r}")

    def opened_by_browser(self):
        """Makes a browser the desktop's own that only says what it is told to open; returns how to read that."""
        said = pathlib.Path(self.file("opened"))
        data, config = (pathlib.Path(self.session.env[name]) for name in ("XDG_DATA_HOME", "XDG_CONFIG_HOME"))
        script = pathlib.Path(self.file("browser"))
        script.write_text(f'#!/bin/sh\necho "$1" >>{said}\n')
        script.chmod(0o755)
        (data / "applications").mkdir(parents=True)
        (data / "applications/browser.desktop").write_text(
            f"[Desktop Entry]\nType=Application\nName=Browser\nExec={script} %u\nMimeType=text/html;\n")
        (config / "mimeapps.list").write_text("[Default Applications]\ntext/html=browser.desktop\n")
        return lambda: said.read_text().split() if said.exists() else []

    def test_about_and_disclaimer_open_and_close(self):
        player = self.open()
        for entry, title, text in (("About", "About Tonvale", "Version 3.66"),
                                   ("Disclaimer", "Disclaimer:", None)):
            player.choose("Help", entry)
            self.wait_for_title(title)
            if text:
                self.assertTrue(player.find("label", text).is_showing())
            self.session.key("Escape")
            self.wait_for_end_of(title)
            player.choose("Help", entry)
            self.wait_for_title(title)
            player.push("Okay")
            self.wait_for_end_of(title)

    def test_about_is_dragged_by_its_surface(self):
        player = self.open()
        player.choose("Help", "About")
        self.wait_for_title("About Tonvale")
        label = player.find("label", "Version 3.66")
        start = label.centre()
        x, y = start
        self.session.output("xdotool", "mousemove", str(x), str(y), "mousedown", "3", "mousemove", str(x + 20),
                            str(y + 20), "mousemove", str(x + 60), str(y + 50), "mouseup", "3")
        holds_for(0.5, lambda: label.centre() == start, "the place, which the right button does not change")

        # The window manager takes the drag over, at its own time, and says at its end where the window is.
        def is_dragged():
            x, y = label.centre()
            for command in (("mousemove", x, y), ("mousedown", 1), ("mousemove", x + 20, y + 20),
                            ("mousemove", x + 60, y + 50), ("mouseup", 1)):
                self.session.output("xdotool", *(str(word) for word in command))
            return label.centre()[0] > start[0] and label.centre()[1] > start[1]

        wait_for(is_dragged, "the window further to the right and below")

    def test_help_opens_in_the_browser(self):
        opened = self.opened_by_browser()
        player = self.open()
        index = str(BUILD / "Help/index.html")
        self.assertTrue(os.path.exists(index), "the help lies beside the program")
        player.choose("Help", "Help")
        wait_for(lambda: len(opened()) == 1, "the browser")
        player.focus()
        self.session.key("F1")
        wait_for(lambda: len(opened()) == 2, "the browser once more")
        self.assertEqual({address.removeprefix("file://") for address in opened()}, {index})

    def test_a_recent_file_plays_again(self):
        path = self.tone("Old & Gold.wav")
        self.assertEqual(self.open(path).end(), 0)
        player = self.open()
        player.choose("File", f"1. {path.lower()}")
        self.wait_for_sound(player)
        wait_for(lambda: player.shows("old & gold.wav"), "the name of what plays")

    def test_a_long_recent_file_is_cut_short_in_the_menu_and_plays_all_the_same(self):
        self.assertEqual(self.open(self.tone(f"{'long ' * 40}end.wav")).end(), 0)
        player = self.open()
        player.open_menu("File")
        name = next(item.name for item in player.find_all("menu item") if item.name.startswith("1. "))
        self.session.key("Escape")
        self.assertLess(len(name), 100)
        self.assertTrue(name.endswith("long end.wav"), name)
        player.choose("File", name)
        self.wait_for_sound(player)

    def test_every_entry_of_the_file_menu(self):
        self.press_all("File", {"Exit"})

    def test_every_entry_of_the_playback_menu(self):
        self.press_all("Playback")

    def test_every_entry_of_the_conversions_menu(self):
        self.press_all("Conversions")

    def test_every_entry_of_the_options_menu(self):
        self.press_all("Options", submenus=("Video Zoom", "System Multimedia Properties"))

    def test_every_entry_of_the_window_menu(self):
        self.press_all("Window")

    def test_every_entry_of_the_help_menu(self):
        self.press_all("Help")

    def press_all(self, menu, left_out=frozenset(), submenus=()):
        """Clicks once on each entry while a film plays, twice round: some are enabled by others."""
        player = self.open(write_film(self.file("film.avi")))
        wait_for(lambda: player.has_entry("File", "Stop"), "the playing film")
        for path in [(menu,)] + [(menu, submenu) for submenu in submenus]:
            player.open_menu(*path)
            self.session.key(*["Escape"] * len(path))
        entries = [(item, item.name) for item in player.find("menu item", menu).find_all("menu item")]
        entries = [(item, name) for item, name in entries if name and name not in {menu, *submenus, *left_out}]
        pressed = set()
        for item, name in entries * 2:
            if name not in pressed and item.is_enabled():
                pressed.add(name)
                self.press(player, item)
        self.assertEqual({name for _, name in entries} - pressed - STILL_TO_COME, set())
        self.assertEqual(player.end(), 0)

    def press(self, player, entry):
        """Clicks on the entry, and brings the main window back, alone."""
        answer = entry.start_press()
        wait_for(lambda: answer.has_come() or len(self.session.windows()) > 1, f"an effect of {entry.name}")

        def is_alone():
            if self.session.windows() == [TITLE] and answer.has_come() and player.is_on_screen():
                return True
            active = self.session.output("xdotool", "getactivewindow", "getwindowname").strip()
            if active == TITLE:
                self.session.key("Escape") # full screen has the same title
            elif active:
                self.session.key("alt+F4")
            player.restore()
            return False

        wait_for(is_alone, f"the main window alone after {entry.name}")


if __name__ == "__main__":
    unittest.main()
