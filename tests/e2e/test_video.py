# SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Where a film is seen on the screen, and how large."""

import re
import unittest

from pixels import Box, film_is_at, film_is_seen, write_film
from player import Desk, TITLE
from session import wait_for

# In pixels: what the window's frame, menu and panel are, and the margin beside the picture.
TITLE_HEIGHT, MENU_HEIGHT = 22, 21
PANEL_WIDTH, BASE_HEIGHT = 500, 311
MARGIN = 8
PICTURE_TOP = BASE_HEIGHT - TITLE_HEIGHT - MENU_HEIGHT - MARGIN
VIDEO_WINDOW = "Right-Click for Options..."


class Film(Desk):
    def setUp(self):
        super().setUp()
        self.path = write_film(self.file("film.avi"))

    def window(self, title=TITLE):
        """The inside of a window on the screen, or nothing."""
        found = self.session.output("xdotool", "search", "--onlyvisible", "--name", f"^{re.escape(title)}$").split()
        text = self.session.output("xwininfo", "-id", found[0]) if found else ""
        numbers = [re.search(rf"{name}:\s+(-?\d+)", text) for name in
                   ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")]
        return Box(*(int(number[1]) for number in numbers)) if all(numbers) else None

    def wait_for_window(self, width, height):
        """Waits until the frame has this size, a title of the usual height included."""
        def has_size():
            window = self.window()
            return window and (window.width, window.height + TITLE_HEIGHT) == (width, height) and window
        return wait_for(has_size, f"a window of {width}x{height}, not {self.window()}")

    def wait_for_film_in_window(self, width, height):
        """Waits until the window has grown to hold a picture of this size, and the film is there."""
        window = self.wait_for_window(max(PANEL_WIDTH, round(width + 2 * MARGIN)), round(BASE_HEIGHT + height))
        box = Box(window.left + max((window.width - width) / 2, MARGIN), window.top + MENU_HEIGHT + PICTURE_TOP,
                  width, height)
        wait_for(lambda: film_is_at(self.session, box), f"the film at {box}")
        return window

    def wait_for_film_on_screen(self):
        """Waits until the film is as large as the screen lets its shape be."""
        width, height = self.session.screen_size
        box = Box((width - height * 4 / 3) / 2, 0, height * 4 / 3, height)
        wait_for(lambda: film_is_at(self.session, box), f"the film at {box}")

    def open_film(self):
        player = self.open(self.path)
        window = self.wait_for_film_in_window(320, 240)
        return player, window

    def test_a_film_is_shown_in_its_size_in_the_middle_of_the_screen(self):
        player, window = self.open_film()
        width, height = self.session.screen_size
        frame_height = window.height + TITLE_HEIGHT
        self.assertEqual(window.left, (width - PANEL_WIDTH) // 2 + self.frame_width())
        self.assertAlmostEqual(window.top - self.title_height(), (height - frame_height) / 2, delta=1)
        player.push("Stop")
        self.wait_for_window(PANEL_WIDTH, BASE_HEIGHT)
        wait_for(lambda: not film_is_seen(self.session), "nothing of the film after the stop")

    def frame_width(self):
        return self.extents()[0]

    def title_height(self):
        return self.extents()[2]

    def extents(self):
        window = self.session.output("xdotool", "search", "--onlyvisible", "--name", f"^{TITLE}$").split()[0]
        return [int(n) for n in re.findall(r"\d+", self.session.output("xprop", "-id", window, "_NET_FRAME_EXTENTS"))]

    def test_half_and_double_size(self):
        player, _ = self.open_film()
        player.choose("Options", "Video Zoom", "Half Screen")
        self.wait_for_film_in_window(160, 120)
        player.choose("Options", "Video Zoom", "Double Original Size")
        self.wait_for_film_in_window(640, 480)

    def test_a_quarter_of_the_screen_and_the_original_size_again(self):
        player, _ = self.open_film()
        player.choose("Options", "Video Zoom", "Quarter Screen")
        # Half as high as the screen, which is the side that limits it.
        height = self.session.screen_size[1] / 2
        self.wait_for_film_in_window(height * 4 / 3, height)
        player.choose("Options", "Video Zoom", "Original Size")
        self.wait_for_film_in_window(320, 240)

    def test_full_screen_until_escape(self):
        player, _ = self.open_film()
        player.choose("Options", "Video Zoom", "Full Screen (Stretch)")
        self.wait_for_film_on_screen()
        self.session.key("Escape")
        self.wait_for_film_in_window(320, 240)

    def test_a_film_that_follows_over_the_whole_screen_is_in_front(self):
        player = self.open(write_film(self.file("large.avi"), 1120, 840))
        self.wait_for_film_on_screen()
        self.start(write_film(self.file("second.avi"), 1120, 840), program="tonvale-open")
        wait_for(lambda: player.shows("second.avi"), "the second film")
        self.wait_for_film_on_screen()
        wait_for(lambda: self.session.key("Escape") or not film_is_seen(self.session), "the end of full screen")

    def test_over_the_whole_screen_the_key_for_menus_brings_up_the_pictures_menu(self):
        player, _ = self.open_film()
        player.choose("Options", "Video Zoom", "Full Screen (Stretch)")
        self.wait_for_film_on_screen()
        self.session.key("Menu")
        wait_for(player.pop_ups, "the menu")
        self.session.key("u", "Escape")
        self.wait_for_window(PANEL_WIDTH, BASE_HEIGHT + 240)
        wait_for(lambda: player.has_entry("Playback", "Resume"), "the entry Resume")

    def test_rolled_up_there_is_no_film_and_rolled_down_there_is_the_panel(self):
        player, _ = self.open_film()
        player.choose("Window", "Roll Up")
        wait_for(lambda: self.window().height == MENU_HEIGHT, "title and menu alone")
        wait_for(lambda: not film_is_seen(self.session), "no film")
        player.choose("Window", "Roll Down")
        self.wait_for_window(PANEL_WIDTH, BASE_HEIGHT)
        self.assertFalse(film_is_seen(self.session))
        player.choose("Playback", "Stop")

    def test_the_picture_has_a_menu(self):
        player, window = self.open_film()
        player.pop_up_menu(window.left + 250, window.top + 300)
        self.session.key("u")
        wait_for(lambda: player.has_entry("Playback", "Resume"), "the entry Resume")

    def test_the_full_screen_window(self):
        player, _ = self.open_film()
        player.choose("Options", "Video Zoom", "Full Screen (Normal - Advanced Options)")
        window = wait_for(lambda: self.window(VIDEO_WINDOW), "the full screen window")
        self.assertNotIn(TITLE, self.session.windows())
        middle = [length // 2 for length in self.session.screen_size]

        def film_is_centred():
            area = self.window(VIDEO_WINDOW)
            box = Box(area.left + (area.width - 320) / 2, area.top + (area.height - 240) / 2, 320, 240)
            return area.width == self.session.screen_size[0] and film_is_at(self.session, box)

        wait_for(film_is_centred, f"the film in the middle of {window}")
        player.pop_up_menu(*middle)
        self.session.key(*["Up"] * 4, "Return") # Full Screen Mode
        self.wait_for_film_on_screen()
        self.session.key("Escape")
        self.wait_for_window(PANEL_WIDTH, BASE_HEIGHT)
        self.assertFalse(film_is_seen(self.session))


if __name__ == "__main__":
    unittest.main()
