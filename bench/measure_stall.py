# SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures how long the event loop does not answer while four files are converted in the real window, beside
that of a program that does nothing on the same busy machine.

measure_stall.py [encode|decode]...; BENCH_SECONDS and BENCH_ROUNDS make it shorter."""

import collections
import os
import pathlib
import statistics
import sys
import time

from gi.repository import GLib

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tests/e2e"))
os.environ.setdefault("TONVALE_BUILD", str(ROOT / "build/release"))

from loop_watch import LoopWatch  # noqa: E402  (after the path is set)
from measure_convert import MUSIC, run  # noqa: E402
from session import BUILD, wait_for  # noqa: E402
from test_batch import DECODED, DECODER, ENCODED, ENCODER, Batch  # noqa: E402

SECONDS = int(os.environ.get("BENCH_SECONDS", "60"))
ROUNDS = int(os.environ.get("BENCH_ROUNDS", "5"))
FILES = 4
IDLE_SECONDS = 5
AFTER_SECONDS = 0.5  # what a run leaves to be done at its end belongs to it
RUN_PATIENCE = 600
STALL_GOAL = 50  # ms
PAINTINGS_GOAL = 60  # a second

Kind = collections.namedtuple("Kind", "open title add_title folder_title end_text source result")
KINDS = {
    "encode": Kind(Batch.open_encoder, ENCODER, "Select File(s) to encode:", "Select Folder for MP3 Output:", ENCODED,
                   ".wav", ".mp3"),
    "decode": Kind(Batch.open_decoder, DECODER, "Select File(s) to Decode:", "Select Folder for WAV Output:", DECODED,
                   ".mp3", ".wav"),
}
Run = collections.namedtuple("Run", "answers seconds paintings")


class Stall(Batch):
    """The window of one kind, and an empty one of another program beside it."""

    def __init__(self, kind):
        super().__init__("measure")
        self.kind = kind

    def measure(self):
        """The answers of the idle program, and the runs."""
        sources = [self.piece(number) for number in range(FILES)]
        before = set(self.session.window_ids())
        empty = self.session.spawn(str(BUILD / "bench_empty_window"))
        empty_window, = wait_for(lambda: set(self.session.window_ids()) - before, "the empty window")
        self.player = self.kind.open(self)
        self.add(self.player, self.kind.add_title, *sources)
        window = int(self.session.output("xdotool", "search", "--onlyvisible", "--name", f"^{self.kind.title}$"))
        self.watch = LoopWatch(self.session.env["DISPLAY"],
                               {"tonvale": (window, self.player.pid), "empty": (empty_window, empty.pid)},
                               (window, self.gauge_place()))
        try:
            begin = time.monotonic()
            time.sleep(IDLE_SECONDS)
            return self.watch.answers(begin, time.monotonic()), [self.convert_all(i, sources) for i in range(ROUNDS)]
        finally:
            self.watch.close()

    def piece(self, number):
        """The path of a piece of real music."""
        music = sorted(MUSIC.glob("*.mp3"))
        wav, mp3 = self.file(f"part{number}.wav"), self.file(f"part{number}.mp3")
        run("sox", "-V1", music[number % len(music)], "-r", "44100", "-c", "2", "-b", "16", wav, "repeat", "-", "trim",
            10 * number, SECONDS)
        if self.kind.source == ".wav":
            return wav
        run("lame", "--quiet", wav, mp3)
        return mp3

    def gauge_place(self):
        gauge = self.player.find("progress bar", "Converting...")
        return gauge.call("org.a11y.atspi.Component", "GetExtents", GLib.Variant("(u)", (0,)))[0]

    def convert_all(self, number, sources):
        out = self.folder(f"out{number}")
        targets = [out / (pathlib.Path(source).stem + self.kind.result) for source in sources]
        if number:
            self.add(self.player, self.kind.add_title, *sources)
        self.activate(self.kind.title)
        self.session.key("F5")
        self.activate(self.kind.folder_title)
        self.session.output("xdotool", "type", str(out))
        begin = time.monotonic()
        self.session.key("Return")
        # Looked at from outside: questions to the window would be work for its loop.
        wait_for(lambda: all(target.exists() for target in targets), "the files", RUN_PATIENCE)
        seconds = time.monotonic() - begin
        time.sleep(AFTER_SECONDS)
        end = time.monotonic()
        wait_for(lambda: self.player.shows(self.kind.end_text) and not self.rows(self.player), "the end of the run")
        return Run(self.watch.answers(begin, end), seconds, self.watch.paintings_between(begin, end))


def row(what, name, answers):
    """Prints the median and the worst of all answers of a program; returns the worst in ms."""
    median = statistics.median(answer.seconds for answer in answers) * 1000
    worst = max(answers, key=lambda answer: answer.seconds)
    print(f"{what:<26}{name:<12}{median:>9.2f} ms{worst.seconds * 1000:>9.2f} ms  ({worst.work * 1000:.1f} at work, "
          f"{worst.without_core * 1000:.1f} without a core)")
    return worst.seconds * 1000


def met(value, goal):
    return f"goal <= {goal}: {'met' if value <= goal else 'MISSED'}"


def bench(name):
    stall = Stall(KINDS[name])
    stall.setUp()
    try:
        idle, runs = stall.measure()
    finally:
        stall.doCleanups()
    for program in ("tonvale", "empty"):
        row(f"{name}, idle" if program == "tonvale" else "", program, idle[program])
    answers = {program: [answer for each in runs for answer in each.answers[program]] for program in idle}
    ours = row(f"{name} {FILES} x {SECONDS} s", "tonvale", answers["tonvale"])
    theirs = row("", "empty", answers["empty"])
    work = max(answer.work for answer in answers["tonvale"]) * 1000
    seconds = statistics.median(each.seconds for each in runs)
    paintings = max(each.paintings / each.seconds for each in runs)
    print(f"{'':<26}worst stall = {ours:.1f} ms, {met(ours, STALL_GOAL)}; tonvale / empty = {ours / theirs:.2f}")
    print(f"{'':<26}most work at a stretch = {work:.1f} ms")
    print(f"{'':<26}a run takes {seconds:.2f} s, its gauge is painted {paintings:.1f} times a second, "
          f"{met(paintings, PAINTINGS_GOAL)}\n", flush=True)


def main(names):
    unknown = set(names) - set(KINDS)
    if unknown:
        sys.exit(f"tonvale: no such measurement: {', '.join(sorted(unknown))}; there are {', '.join(KINDS)}")
    print(f"{os.cpu_count()} cores, load {os.getloadavg()[0]:.1f}, {ROUNDS} runs of each; answers to pings:\n")
    print(f"{'':<38}{'median':>12}{'worst':>12}")
    for name in names or KINDS:
        bench(name)


if __name__ == "__main__":
    main(sys.argv[1:])
