# SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""What outlives the program: its settings and the state of the speakers."""

import unittest

from player import Desk
from session import wait_for

REGISTRY_MESSAGE = ("An error occurred while accessing your system registry which prevents the load of Tonvale.  \n"
                    "Please correct the situation and reload Tonvale.")


class Settings(Desk):
    def test_the_volume_is_there_at_the_next_start(self):
        player = self.open()
        player.range("Tonvale Volume").value = 55
        self.assertEqual(player.end(), 0)
        self.assertEqual(self.store.get("Volume"), "55")
        again = self.open()
        wait_for(lambda: again.range("Tonvale Volume").value == 55, "the volume of last time")

    def test_a_first_run_stores_the_defaults(self):
        self.assertEqual(self.open().end(), 0)
        stored = {name: self.store.get(name) for name in ("Volume", "Multi-Instances", "Confirm Delete", "Loop Other")}
        self.assertEqual(stored, {"Volume": "100", "Multi-Instances": "0", "Confirm Delete": "1", "Loop Other": "0"})

    def test_a_killed_program_starts_again(self):
        player = self.open(self.tone())
        self.wait_for_sound(player)
        player.kill()
        again = self.open(self.file("tone.wav"))
        self.wait_for_sound(again)
        self.assertEqual(again.end(), 0)

    def test_a_damaged_store_is_told_and_kept(self):
        self.store.path.parent.mkdir(parents=True)
        damaged = b"this is no database" * 100
        self.store.path.write_bytes(damaged)
        player = self.start()
        box = player.find("label", REGISTRY_MESSAGE)
        self.assertTrue(box.is_showing())
        player.push("OK")
        player.wait_until_ended()
        kept = [path for path in self.store.path.parent.iterdir() if path.is_file() and path.read_bytes() == damaged]
        self.assertEqual(len(kept), 1, "the damaged file")
        self.assertNotEqual(kept[0].name, "registry.db", "must make room for a new store")

    def test_a_window_stored_out_of_reach_comes_up_in_reach(self):
        self.assertEqual(self.open().end(), 0)
        self.store.set("Position", "1")
        self.assertEqual(self.open().end(), 0)
        for place in ("L=2147483647;T=-5000;W=1;H=1;S=0;", "L=-60000;T=-60000;W=7500;H=4665;S=0;",
                      "L=19000;T=15300;W=7500;H=4665;S=0;"):
            self.store.set_place(place)
            player = self.open()
            width, height = self.session.screen_size
            def in_reach(menu):
                x, y = player.find("menu item", menu).centre()
                return 0 < x < width and 0 < y < height
            wait_for(lambda: in_reach("File") or in_reach("Help"), f"the window stored at {place}")
            player.process.terminate() # its File menu may be out of the screen
            self.assertEqual(player.wait_until_ended(), 0)

    def test_a_stored_place_is_kept(self):
        self.assertEqual(self.open().end(), 0)
        self.store.set("Position", "1")
        self.assertEqual(self.open().end(), 0)
        # The corner of the screen is one, too.
        for left, top in ((1500, 2250), (0, 0)):
            self.store.set_place(f"L={left};T={top};W=7500;H=4665;S=0;")
            player = self.open()
            x, y = player.find("menu item", "File").centre()
            self.assertTrue(0 < x - left / 15 < 60 and 0 < y - top / 15 < 60, (x, y))
            self.assertEqual(player.end(), 0)


class Speakers(Desk):
    def test_the_master_volume_is_that_of_the_speakers(self):
        self.session.set_sink_volume(40)
        player = self.open()
        spin = player.range("Master Volume")
        wait_for(lambda: spin.value == 40, "the volume of the speakers")
        spin.value = 70
        wait_for(lambda: self.session.sink_volume() == 70, "the changed volume of the speakers")

    def test_mute_and_back(self):
        self.session.set_sink_volume(60)
        player = self.open(self.tone())
        self.wait_for_sound(player)
        player.choose("Playback", "Mute")
        wait_for(lambda: self.session.sink_volume() == 0, "muted speakers")
        player.choose("Playback", "Un-Mute")
        wait_for(lambda: self.session.sink_volume() == 60, "speakers as before")

    def test_the_end_of_a_muted_program_gives_the_volume_back(self):
        self.session.set_sink_volume(60)
        player = self.open()
        player.choose("Playback", "Mute")
        wait_for(lambda: self.session.sink_volume() == 0, "muted speakers")
        self.assertEqual(player.end(), 0)
        self.assertEqual(self.session.sink_volume(), 60)


class NoSound(Desk):
    session_options = {"sound": False}

    def test_without_a_sound_server_it_plays_silently_in_real_time(self):
        player = self.open(self.tone(seconds=4))
        wait_for(lambda: not player.is_idle(), "the running menu")
        slider = player.range("Play Progress")
        positions = []

        def has_reached_the_end():
            positions.append(slider.value)
            return player.is_idle()

        wait_for(has_reached_the_end, "the end of the media")
        self.assertTrue({1, 2, 3} & set(positions), f"the slider has moved: {sorted(set(positions))}")
        told = [line for line in self.session.log("tonvale").splitlines() if "sound" in line.lower()]
        self.assertEqual(len(told), 1, told)
        self.assertEqual(player.end(), 0)


if __name__ == "__main__":
    unittest.main()
