# SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The windows that convert lists of files: real files, there and back, by the windows alone."""

import os
import pathlib
import re
import subprocess
import unittest

from player import Desk, TITLE
from session import holds_for, wait_for

ENCODER, DECODER = "Convert WAV to MP3", "Convert MP3 to WAV"
ENCODED, DECODED = "The file list has been successfully encoded.", "The file list has been successfully decoded."


class Batch(Desk):
    session_options = {"size": "1400x900x24"}

    def open_window(self, *path):
        player = self.open()
        player.choose(*path)
        return player

    def open_encoder(self):
        """The encoder's window, its notice read."""
        player = self.open_window("Conversions", "Convert WAV to MP3")
        player.find("push button", "OK").start_press()
        wait_for(lambda: self.is_there(ENCODER), "the encoder's window")
        return player

    def open_decoder(self):
        player = self.open_window("Conversions", "Convert MP3 to WAV")
        wait_for(lambda: self.is_there(DECODER), "the decoder's window")
        return player

    def is_there(self, title):
        return title in self.session.windows()

    def activate(self, title):
        wait_for(lambda: self.is_there(title), f"the window {title!r}")
        pattern = f"^{re.escape(title)}$".replace("\\ ", " ")
        self.session.output("xdotool", "search", "--name", pattern, "windowactivate", "--sync")
        wait_for(lambda: self.session.output("xdotool", "getactivewindow", "getwindowname").strip() == title,
                 f"the window {title!r} in front")

    def rows(self, player):
        return [item.name for item in player.find_all("list item")]

    def works_on(self, player, path):
        """Whether this file is in work."""
        return any(f":  {path} (" in label.name for label in player.find_all("label"))

    def type_into(self, title, text):
        """Answers the file dialog of this title."""
        self.activate(title)
        self.session.output("xdotool", "type", text)
        self.session.key("Return")
        wait_for(lambda: not self.is_there(title), f"the end of the dialog {title!r}")

    def add(self, player, title, *names):
        before = len(self.rows(player))
        player.find("push button", "Add Files to List").start_press()
        several = " ".join(f'"{name}"' for name in names)
        self.type_into(title, names[0] if len(names) == 1 else several)
        wait_for(lambda: len(self.rows(player)) == before + len(names), f"{len(names)} more rows")

    def convert(self, window, title, folder):
        """Presses F5 and chooses the folder."""
        self.activate(window)
        self.session.key("F5")
        self.type_into(title, str(folder))

    def folder(self, name):
        path = pathlib.Path(self.file(name))
        path.mkdir()
        return path

    def sound(self, name, seconds=3, rate=44100, channels=2):
        subprocess.run(["sox", "-n", "-r", str(rate), "-c", str(channels), "-b", "16", self.file(name), "synth",
                        str(seconds), "sine", "300-3000", "gain", "-6"], check=True)
        return self.file(name)

    def info(self, option, path):
        return float(subprocess.run(["soxi", option, str(path)], check=True, stdout=subprocess.PIPE).stdout)

    def encode_to(self, out, *names):
        player = self.open_encoder()
        for name in names:
            self.add(player, "Select File(s) to encode:", name)
        self.convert(ENCODER, "Select Folder for MP3 Output:", out)
        return player

    def test_wav_files_become_mp3_files(self):
        out = self.folder("out")
        player = self.encode_to(out, self.sound("stereo.wav"), self.sound("MONO.WAV", seconds=2, channels=1))
        wait_for(lambda: player.shows(ENCODED), "the end of the run")
        self.assertEqual(self.rows(player), [])
        self.assertEqual(sorted(os.listdir(out)), ["MONO.mp3", "stereo.mp3"])
        self.assertAlmostEqual(self.info("-D", out / "stereo.mp3"), 3, delta=0.1)
        self.assertEqual(self.info("-c", out / "MONO.mp3"), 1)
        for name in os.listdir(out):
            check = subprocess.run(["ffmpeg", "-v", "warning", "-i", str(out / name), "-f", "null", "-"],
                                   stdin=subprocess.DEVNULL, stderr=subprocess.PIPE, check=True)
            self.assertEqual(check.stderr, b"")

    def test_mp3_files_become_wav_files(self):
        source = self.sound("tone.wav")
        for name in ("a.mp3", "b.mp3"):
            subprocess.run(["lame", "--quiet", source, self.file(name)], check=True)
        out = self.folder("out")
        player = self.open_decoder()
        self.add(player, "Select File(s) to Decode:", "a.mp3", "b.mp3")
        self.convert(DECODER, "Select Folder for WAV Output:", out)
        wait_for(lambda: player.shows(DECODED), "the end of the run")
        self.assertEqual(sorted(os.listdir(out)), ["a.wav", "b.wav"])
        self.assertEqual(self.info("-s", out / "a.wav"), self.info("-s", source))
        self.assertEqual(self.info("-b", out / "a.wav"), 16)

    def test_a_stop_keeps_the_part_done_and_the_list(self):
        out = self.folder("out")
        player = self.encode_to(out, self.sound("long.wav", seconds=1800))
        wait_for(lambda: self.works_on(player, self.file("long.wav")), "the file in work")
        # The window answers while the cores are busy.
        player.find("push button", "Encode / Stop Encoding Toggle").start_press()
        wait_for(lambda: player.shows("Encode process has been stopped."), "the stop")
        self.assertEqual(self.rows(player), [self.file("long.wav")])
        self.assertEqual(os.listdir(out), ["long.mp3"])
        self.assertLess(self.info("-D", out / "long.mp3"), 1800)

    def test_closing_the_program_in_the_middle_of_a_file(self):
        out = self.folder("out")
        player = self.encode_to(out, self.sound("long.wav", seconds=1800))
        wait_for(lambda: self.works_on(player, self.file("long.wav")), "the file in work")
        self.activate(TITLE)
        self.session.key("alt+F4")
        self.assertEqual(player.wait_until_ended(), 0)
        self.assertTrue(set(os.listdir(out)) <= {"long.mp3"}, os.listdir(out))

    def test_a_file_that_is_no_wav_stalls_the_run(self):
        pathlib.Path(self.file("text.wav")).write_text("not a sound")
        out = self.folder("out")
        player = self.encode_to(out, self.file("text.wav"))
        player.find("push button", "OK").start_press()
        wait_for(lambda: self.works_on(player, self.file("text.wav")), "the file that failed")
        holds_for(0.5, lambda: self.rows(player), "the list")
        self.activate(ENCODER)
        self.session.key("F5")
        wait_for(lambda: player.shows("Encode process has been stopped."), "the stop")
        self.assertEqual(os.listdir(out), [])


if __name__ == "__main__":
    unittest.main()
