# SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The windows that convert lists of files: real files, there and back, by the windows alone."""

import contextlib
import os
import pathlib
import re
import resource
import subprocess
import unittest

from player import Desk, Player, TITLE
from session import BUILD, holds_for, wait_for

ENCODER, DECODER = "Convert WAV to MP3", "Convert MP3 to WAV"
ENCODED, DECODED = "The file list has been successfully encoded.", "The file list has been successfully decoded."


def is_nameless(descriptor, device):
    """Whether an open file is on this device and has no name."""
    with contextlib.suppress(OSError):
        status = descriptor.stat()
        return status.st_dev == device and status.st_nlink == 0
    return False


def settled(look):
    """What does not change any more."""
    seen = [look()]

    def is_still():
        seen.append(look())
        return seen[-1] == seen[-2]

    wait_for(is_still, "an end of the changes")
    return seen[-1]


class Batch(Desk):
    session_options = {"size": "1400x900x24"}

    def open_encoder(self, player=None):
        """The encoder's window, its notice read."""
        player = player or self.open()
        player.choose("Conversions", "Convert WAV to MP3")
        player.find("push button", "OK").start_press()
        wait_for(lambda: self.is_there(ENCODER), "the encoder's window")
        return player

    def open_decoder(self, player=None):
        player = player or self.open()
        player.choose("Conversions", "Convert MP3 to WAV")
        wait_for(lambda: self.is_there(DECODER), "the decoder's window")
        return player

    def open_with_small_disk(self, place):
        """The program, for which alone a disk of 2 MiB lies at this place."""
        unshare = ("unshare", "--user", "--map-current-user", "--keep-caps", "--mount")
        if subprocess.run([*unshare, "true"], check=False).returncode != 0:
            self.skipTest("file systems of one's own are not allowed here")
        mount = 'mount -t tmpfs -o size=2m none "$0" && exec "$@"'
        process = self.session.spawn(*unshare, "sh", "-c", mount, str(place), str(BUILD / "tonvale"))
        self.players.append(Player(self.session, process))
        return self.players[-1].wait_until_shown()

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

    def encode_to(self, out, *names, player=None):
        player = self.open_encoder(player)
        for name in names:
            self.add(player, "Select File(s) to encode:", name)
        self.convert(ENCODER, "Select Folder for MP3 Output:", out)
        return player

    def decode_to(self, out, *names, player=None):
        player = self.open_decoder(player)
        for name in names:
            self.add(player, "Select File(s) to Decode:", name)
        self.convert(DECODER, "Select Folder for WAV Output:", out)
        return player

    def mpeg_audio(self, name, seconds):
        """An MP3 or MP2 file."""
        subprocess.run(["ffmpeg", "-v", "error", "-f", "lavfi", "-i", f"sine=440:duration={seconds}", "-f",
                        name[-3:].lower(), "-b:a", "128k", self.file(name)], stdin=subprocess.DEVNULL, check=True)
        return self.file(name)

    def seen_by(self, player, folder):
        """A folder as the program sees it, with the disks that are its alone."""
        return pathlib.Path(f"/proc/{player.pid}/root{folder}")

    def is_writing(self, player, folder):
        """Whether there is anything in this folder, files included that have no name yet."""
        place = self.seen_by(player, folder)
        device = place.stat().st_dev
        descriptors = pathlib.Path(f"/proc/{player.pid}/fd")
        return bool(os.listdir(place)) or any(is_nameless(file, device) for file in descriptors.iterdir())

    def expect_failure(self, player, path, out):
        """Waits until the encoder's file in work has come to nothing, and stops the run."""
        wait_for(lambda: self.works_on(player, path), "the file in work")
        wait_for(lambda: not self.is_writing(player, out), "the failure")
        holds_for(0.5, lambda: self.works_on(player, path), "the file that failed")
        self.activate(ENCODER)
        self.session.key("F5")
        wait_for(lambda: player.shows("Encode process has been stopped."), "the stop")
        self.assertEqual(self.rows(player), [path])
        self.assertEqual(os.listdir(self.seen_by(player, out)), [])

    def picture_of_failure(self, player, path):
        """What the status looks like when the file has been refused."""
        player.find("push button", "OK").start_press()
        wait_for(lambda: self.works_on(player, path), "the file that failed")
        status = next(label for label in player.find_all("label") if str(path) in label.name)
        x, y, width, height = status.extents()
        crop = f"{width}x{height}+{x}+{y}"
        self.activate(ENCODER)
        # What is on the screen comes a little later than what is said.
        return settled(lambda: self.session.output("import", "-window", "root", "-crop", crop, "-format", "%#",
                                                   "info:"))

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

    def test_both_kinds_of_mpeg_audio_are_decoded(self):
        out = self.folder("out")
        player = self.decode_to(out, self.mpeg_audio("a.mp2", 2), self.mpeg_audio("B.MP3", 1),
                                self.mpeg_audio("same.mp2", 1), self.mpeg_audio("same.mp3", 3))
        wait_for(lambda: player.shows(DECODED), "the end of the run")
        self.assertEqual(sorted(os.listdir(out)), ["B.wav", "a.wav", "same.wav"])
        for name, seconds in (("a", 2), ("B", 1), ("same", 3)):
            self.assertAlmostEqual(self.info("-D", out / f"{name}.wav"), seconds, delta=0.1)

    def test_of_two_files_with_one_name_the_second_is_left(self):
        out = self.folder("out")
        (out / "a.mp3").write_text("precious")
        (out / "a.mp3").chmod(0o400)
        for name in ("one", "two"):
            self.folder(name)
        player = self.encode_to(out, self.sound("one/a.wav", seconds=4), self.sound("two/a.wav", seconds=2))
        wait_for(lambda: player.shows(ENCODED), "the end of the run")
        self.assertEqual(os.listdir(out), ["a.mp3"])
        self.assertAlmostEqual(self.info("-D", out / "a.mp3"), 2, delta=0.1)

    def test_a_source_that_goes_during_the_run(self):
        out = self.folder("out")
        player = self.encode_to(out, self.sound("long.wav", seconds=600), self.sound("next.wav"))
        wait_for(lambda: self.works_on(player, self.file("long.wav")), "the file in work")
        for name in ("long.wav", "next.wav"):
            os.unlink(self.file(name))
        # The one in work is open already.
        player.find("push button", "OK").start_press()
        wait_for(lambda: self.works_on(player, self.file("next.wav")), "the file that failed")
        self.assertEqual(os.listdir(out), ["long.mp3"])
        self.assertAlmostEqual(self.info("-D", out / "long.mp3"), 600, delta=1)

    def test_of_a_very_long_path_the_end_is_seen(self):
        folder = self.folder("a long name " * 20 + "x") / ("x" * 200)
        folder.mkdir()
        (folder / "text.wav").write_text("not a sound")
        player = self.encode_to(self.folder("out"), str(folder / "text.wav"))
        one_of_one = self.picture_of_failure(player, folder / "text.wav")
        self.activate(ENCODER)
        self.session.key("F5")
        self.add(player, "Select File(s) to encode:", "text.wav")
        self.convert(ENCODER, "Select Folder for MP3 Output:", self.file("out"))
        self.assertNotEqual(self.picture_of_failure(player, folder / "text.wav"), one_of_one)

    def test_the_program_is_closed_behind_the_box_of_a_refused_source(self):
        pathlib.Path(self.file("text.wav")).write_text("not a sound")
        player = self.encode_to(self.folder("out"), self.sound("a.wav"), self.file("text.wav"), self.sound("b.wav"))
        player.find("push button", "OK")
        successor = self.open()
        self.assertEqual(player.wait_until_ended(), 0)
        self.assertFalse(successor.has_ended())
        self.assertEqual(os.listdir(self.file("out")), ["a.mp3"])

    def test_encoding_where_files_may_not_grow(self):
        out = self.folder("out")
        path = self.sound("long.wav", seconds=600)
        player = self.open()
        resource.prlimit(player.pid, resource.RLIMIT_FSIZE, (1_000_000, 1_000_000))
        self.encode_to(out, path, player=player)
        self.expect_failure(player, path, out)

    def test_decoding_where_files_may_not_grow(self):
        out = self.folder("out")
        player = self.open()
        resource.prlimit(player.pid, resource.RLIMIT_FSIZE, (1_000_000, 1_000_000))
        self.decode_to(out, self.mpeg_audio("long.mp3", 60), self.mpeg_audio("short.mp3", 1), player=player)
        wait_for(lambda: player.shows(DECODED), "the end of the run")
        self.assertEqual(os.listdir(out), ["short.wav"])

    def test_encoding_onto_a_full_disk(self):
        out = self.folder("out")
        player = self.open_with_small_disk(out)
        path = self.sound("long.wav", seconds=600)
        self.encode_to(out, path, player=player)
        self.expect_failure(player, path, out)

    def test_decoding_onto_a_full_disk(self):
        out = self.folder("out")
        player = self.open_with_small_disk(out)
        self.decode_to(out, self.mpeg_audio("long.mp3", 60), self.mpeg_audio("short.mp3", 1), player=player)
        wait_for(lambda: player.shows(DECODED), "the end of the run")
        self.assertEqual(os.listdir(self.seen_by(player, out)), ["short.wav"])


if __name__ == "__main__":
    unittest.main()
