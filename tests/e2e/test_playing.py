# SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""One file, from the command line to the speakers."""

import subprocess
import unittest

from player import Desk
from session import holds_for, wait_for


class Playing(Desk):
    def test_a_file_on_the_command_line_sounds(self):
        player = self.open(self.tone())
        self.wait_for_sound(player)
        wait_for(lambda: player.shows("tone.wav"), "the name of what plays")
        self.assertEqual(player.end(), 0)
        self.assertEqual(self.session.streams(), [])

    def test_an_mp3_file_sounds(self):
        self.tone()
        subprocess.run(["lame", "--quiet", self.file("tone.wav"), self.file("tone.mp3")], check=True)
        self.wait_for_sound(self.open(self.file("tone.mp3")))

    def test_a_path_relative_to_the_directory_sounds(self):
        self.tone("a b.wav")
        self.wait_for_sound(self.open("a b.wav"))

    def test_pause_is_silent_until_resume(self):
        player = self.open(self.tone())
        self.wait_for_sound(player)
        player.choose("Playback", "Pause")
        wait_for(self.session.is_silent, "silence in the pause")
        holds_for(1, self.session.is_silent, "silence in the pause")
        player.choose("Playback", "Resume")
        self.wait_for_sound(player)

    def test_pause_by_the_keyboard(self):
        player = self.open(self.tone())
        self.wait_for_sound(player)
        player.focus()
        self.session.key("alt+p")
        wait_for(lambda: player.find("menu item", "Pause").is_showing(), "the open menu")
        self.session.key("u")
        wait_for(lambda: player.has_entry("Playback", "Resume"), "the entry Resume")
        wait_for(self.session.is_silent, "silence in the pause")

    def test_pause_by_its_button(self):
        player = self.open(self.tone())
        self.wait_for_sound(player)
        player.push("Pause")
        wait_for(self.session.is_silent, "silence in the pause")

    def test_the_slider_seeks(self):
        player = self.open(self.tone(silent_until=50))
        wait_for(player.is_sounding, "a running stream on the sound server")
        slider = player.range("Play Progress")
        wait_for(lambda: slider.maximum == 60, "the length of the media")
        self.assertTrue(self.session.is_silent())
        slider.value = 51
        wait_for(self.session.is_audible, "sound from the later part")
        wait_for(lambda: slider.value >= 52, "the slider going on")

    def test_stop_is_silent_at_once_and_ready_to_load(self):
        player = self.open(self.tone())
        self.wait_for_sound(player)
        player.push("Stop")
        wait_for(self.session.is_silent, "silence after the stop")
        wait_for(player.is_idle, "the idle menu")
        self.assertEqual(player.end(), 0)

    def test_the_end_of_the_media_brings_the_window_back_to_idle(self):
        player = self.open(self.tone(seconds=1.5))
        wait_for(lambda: not player.is_idle(), "the running menu")
        wait_for(player.is_idle, "the idle menu")
        wait_for(self.session.is_silent, "silence at the end")

    def test_the_window_manager_closes_it(self):
        player = self.open(self.tone())
        self.wait_for_sound(player)
        player.focus()
        self.session.key("alt+F4")
        self.assertEqual(player.wait_until_ended(), 0)


if __name__ == "__main__":
    unittest.main()
