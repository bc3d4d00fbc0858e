# SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Whatever stands on the command line: the window comes up, nothing crashes or hangs, and it ends."""

import os
import unittest

from player import Desk


class HostileFiles(Desk):
    def ends_cleanly(self, *arguments):
        player = self.open(*arguments)
        self.assertEqual(player.end(), 0, self.session.log("tonvale"))

    def still_plays(self, name):
        player = self.open(self.tone(name) if os.path.isabs(name) else os.path.basename(self.tone(name)))
        self.wait_for_sound(player)
        self.assertEqual(player.end(), 0)

    def write(self, name, content):
        path = self.file(name)
        with open(path, "wb") as file:
            file.write(content)
        return path

    def test_text_that_claims_to_be_music(self):
        self.ends_cleanly(self.write("song.mp3", b"these are only words\n" * 1000))

    def test_noise_that_claims_to_be_a_film(self):
        self.ends_cleanly(self.write("film.avi", b"RIFF\xff\xff\xff\xffAVI LIST" + os.urandom(100000)))

    def test_an_empty_file(self):
        self.ends_cleanly(self.write("empty.wav", b""))

    def test_a_directory(self):
        self.ends_cleanly(str(self.session.directory))

    def test_a_missing_file(self):
        self.ends_cleanly(self.file("nowhere.mp3"))

    def test_an_empty_argument(self):
        self.ends_cleanly("")

    def test_a_path_of_four_thousand_bytes(self):
        self.ends_cleanly("/" + "a/" * 2000 + "song.mp3")

    def test_a_name_of_four_thousand_bytes(self):
        self.ends_cleanly("a" * 4000 + ".mp3")

    def test_a_pipe_that_nobody_writes(self):
        os.mkfifo(self.file("pipe.mp3"))
        self.ends_cleanly(self.file("pipe.mp3"))

    def test_a_device_without_an_end(self):
        self.ends_cleanly("/dev/zero")

    def test_a_file_that_may_not_be_read(self):
        path = self.tone()
        os.chmod(path, 0)
        self.ends_cleanly(path)

    def test_a_truncated_file(self):
        path = self.tone()
        os.truncate(path, 1000)
        self.ends_cleanly(path)

    def test_a_name_that_is_not_utf8_plays(self):
        self.still_plays(b"caf\xe9.wav".decode("utf-8", "surrogateescape"))

    def test_a_name_with_a_line_break_plays(self):
        self.still_plays("two\nlines.wav")

    def test_a_name_with_a_leading_dash_plays(self):
        self.still_plays("-style.wav")

    def test_a_name_with_quotes_and_commas_plays(self):
        self.still_plays("%20 \"a\", 'b' = [c] \\ d.wav")

    def test_the_file_goes_while_it_plays(self):
        player = self.open(self.tone())
        self.wait_for_sound(player)
        os.truncate(self.file("tone.wav"), 0)
        os.unlink(self.file("tone.wav"))
        self.assertEqual(player.end(), 0)


if __name__ == "__main__":
    unittest.main()
