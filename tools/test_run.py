# SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Tests of ./run, with stand-ins for what it calls."""

import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

RUN = pathlib.Path(__file__).resolve().parent.parent / "run"

# Each stand-in notes that it was called, and its arguments, one a line.
NOTE = 'printf "%s\\n" "{name}" "$@" >>"$NOTES"\n'
CMAKE = NOTE.format(name="cmake") + 'mkdir -p build/release; touch build/release/build.ninja build/release/CMakeCache.txt\n'
NINJA = NOTE.format(name="ninja") + 'cp "$TONVALE" "$2/tonvale"; exit "${NINJA_FAILS:-0}"\n'
TONVALE = 'printf "%s\\0" "$PWD" "$@" >"$STARTED"\n'


class Run(unittest.TestCase):
    def setUp(self):
        self.directory = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.tree, self.elsewhere = self.directory / "my tree", self.directory / "else where"
        for folder in (self.tree / "tools", self.elsewhere, self.directory / "bin"):
            folder.mkdir(parents=True)
        shutil.copy(RUN, self.tree)
        (self.tree / "CMakePresets.json").touch()
        self.script(self.tree / "tools/need", NOTE.format(name="need"))
        self.script(self.directory / "bin/cmake", CMAKE)
        self.script(self.directory / "bin/ninja", NINJA)
        self.script(self.directory / "tonvale", TONVALE)
        self.notes, self.started = self.directory / "notes", self.directory / "started"
        self.env = {"PATH": f"{self.directory}/bin:{os.environ['PATH']}", "DISPLAY": ":0", "NOTES": str(self.notes),
                    "STARTED": str(self.started), "TONVALE": str(self.directory / "tonvale")}

    @staticmethod
    def script(path, body):
        path.write_text("#!/bin/sh\n" + body)
        path.chmod(0o755)

    def run_it(self, *arguments):
        return subprocess.run([self.tree / "run", *arguments], cwd=self.elsewhere, env=self.env, capture_output=True,
                              text=True, check=False)

    def calls(self, program):
        return self.notes.read_text().splitlines().count(program)

    def started_with(self):
        return self.started.read_bytes().split(b"\0")[:-1]

    def test_starts_the_program_with_the_file_where_the_caller_is(self):
        for name in (b"a song.mp3", b"-song.mp3", b"caf\xe9\n.mp3", b"", b"*"):
            self.assertEqual(self.run_it(name).returncode, 0)
            self.assertEqual(self.started_with(), [os.fsencode(self.elsewhere), name])

    def test_starts_without_a_file(self):
        self.assertEqual(self.run_it().returncode, 0)
        self.assertEqual(self.started_with(), [os.fsencode(self.elsewhere)])

    def test_a_file_may_be_named_like_an_option(self):
        self.run_it("--", "--build")
        self.assertEqual(self.started_with()[1:], [b"--build"])

    def test_installs_builds_and_configures_only_once(self):
        self.run_it()
        self.run_it()
        self.assertEqual([self.calls(program) for program in ("need", "cmake", "ninja")], [2, 1, 2])

    def test_configures_again_for_new_presets(self):
        self.run_it()
        os.utime(self.tree / "CMakePresets.json", (2**32, 2**32))
        self.run_it()
        self.assertEqual(self.calls("cmake"), 2)

    def test_build_alone_starts_nothing_and_needs_no_display(self):
        del self.env["DISPLAY"]
        self.assertEqual(self.run_it("--build").returncode, 0)
        self.assertFalse(self.started.exists())

    def test_a_failed_build_starts_nothing(self):
        self.env["NINJA_FAILS"] = "1"
        self.assertEqual(self.run_it().returncode, 1)
        self.assertFalse(self.started.exists())

    def test_without_a_display_it_says_so(self):
        del self.env["DISPLAY"]
        run = self.run_it("song.mp3")
        self.assertEqual((run.returncode, len(run.stderr.splitlines())), (1, 1))
        self.assertIn("--virtual", run.stderr)
        self.assertFalse(self.notes.exists())


if __name__ == "__main__":
    unittest.main()
