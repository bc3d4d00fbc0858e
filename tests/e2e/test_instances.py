# SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Several processes of the program, and the way of a file into a running one."""

import pathlib
import unittest

from player import Desk, Player
from session import BUILD, holds_for, wait_for


class Process:
    """A process that we have not started ourselves."""

    def __init__(self, pid):
        self.pid, self.returncode = pid, None

    def poll(self):
        stat = pathlib.Path(f"/proc/{self.pid}/stat")
        return None if stat.exists() and ") Z " not in stat.read_text() else 0


class Instances(Desk):
    def running(self):
        """Process ids of the programs that run."""
        pids = []
        for entry in pathlib.Path("/proc").iterdir():
            try:
                if entry.name.isdigit() and (entry / "exe").readlink() == BUILD / "tonvale":
                    # Another test's programs have another home.
                    if str(self.session.home).encode() in (entry / "environ").read_bytes():
                        pids.append(int(entry.name))
            except OSError:
                pass
        return pids

    def hand_over(self, *arguments):
        """Runs the helper program and returns its exit code."""
        return self.session.spawn(str(BUILD / "tonvale-open"), *arguments)

    def test_a_newcomer_closes_the_old_one_and_waits_for_it(self):
        old = self.open(self.tone())
        self.wait_for_sound(old)
        old.range("Tonvale Volume").value = 35
        new = self.open()
        self.assertEqual(old.wait_until_ended(), 0)
        self.assertEqual(new.range("Tonvale Volume").value, 35)
        holds_for(1, lambda: not new.has_ended(), "the newcomer")

    def test_a_newcomer_closes_all_that_run(self):
        # Of those that start at the same moment none sees the others' windows, so several may live.
        crowd = [self.start() for _ in range(4)]
        for player in crowd:
            wait_for(lambda: player.has("menu item", "File") or player.has_ended(), "a window or the end")
        last = self.open()
        wait_for(lambda: self.running() == [last.pid], "the last one alone")
        codes = [player.wait_until_ended() for player in crowd]
        self.assertEqual(set(codes), {0})

    def test_with_multiple_instances_allowed_both_live(self):
        self.assertEqual(self.open().end(), 0)
        self.store.set("Multi-Instances", "1")
        first = self.open()
        second = self.open(self.tone())
        self.wait_for_sound(second)
        holds_for(1, lambda: not first.has_ended(), "the first instance")
        self.assertEqual(second.end(), 0)
        self.assertFalse(first.has_ended())

    def test_a_file_reaches_the_running_instance(self):
        player = self.open()
        opener = self.hand_over(self.tone())
        wait_for(lambda: opener.poll() is not None, "the end of the helper")
        self.assertEqual(opener.returncode, 0)
        self.wait_for_sound(player)
        self.assertEqual(self.running(), [player.pid])

    def test_a_relative_path_with_odd_bytes_reaches_the_running_instance(self):
        player = self.open()
        name = b"od d\xff\"'\n.wav"
        self.tone(name.decode("utf-8", "surrogateescape"))
        self.hand_over(name)
        self.wait_for_sound(player)

    def test_a_file_starts_the_program_where_none_runs(self):
        opener = self.hand_over(self.tone())
        pid = wait_for(self.running, "a program")[0]
        player = Player(self.session, Process(pid)).wait_until_shown()
        self.wait_for_sound(player)
        player.choose("File", "Exit")
        wait_for(player.has_ended, "the end of the program")
        wait_for(lambda: opener.poll() is not None, "the end of the helper")

    def test_files_that_are_opened_all_at_once_go_to_one_player(self):
        openers = [self.hand_over(self.tone(f"tone{i}.wav")) for i in range(6)]
        wait_for(lambda: all(opener.poll() is not None for opener in openers), "the end of the helpers")
        self.assertEqual({opener.returncode for opener in openers}, {0})
        self.assertEqual(len(self.running()), 1)
        Player(self.session, Process(self.running()[0])).wait_until_shown()


if __name__ == "__main__":
    unittest.main()
