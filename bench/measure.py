# SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures Tonvale beside other programs, in turns and on one private desktop, and prints ratios."""

import os
import pathlib
import signal
import statistics
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tests/e2e"))
os.environ["TONVALE_BUILD"] = str(ROOT / "build/release")

from desktop_watch import SoundWatch, WindowWatch  # noqa: E402  (after the path is set)
from session import BUILD, SINK, Session, wait_for  # noqa: E402

TONVALE = [str(BUILD / "tonvale")]
EMPTY = [str(BUILD / "bench_empty_window")]
AUDACIOUS = ["audacious", "-Q"]
MPV = ["mpv"]
STARTS = 11
MEMORY_ROUNDS = 3
CPU_ROUNDS = 3
CPU_SECONDS = 60
SETTLE_SECONDS = 3
PLAYED_SECONDS = 10
TICK = os.sysconf("SC_CLK_TCK")


class Bench:
    def __init__(self, size="1280x800x24"):
        self.session = Session(size=size)
        # What a user has: no accessibility client.
        del self.session.env["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"]
        self.windows = WindowWatch(self.session.env["DISPLAY"])
        self.music = self._make_music()

    def close(self):
        self.session.close()

    def _make_music(self):
        wav, mp3 = self.session.directory / "music.wav", self.session.directory / "music.mp3"
        subprocess.run(["sox", "-n", "-r", "44100", "-c", "2", wav, "synth", "180", "pluck", "A3", "sine", "440", "gain",
                        "-6"], check=True)
        subprocess.run(["lame", "--quiet", "-b", "192", wav, mp3], check=True)
        wav.unlink()
        return str(mp3)

    def make_film(self):
        film = self.session.directory / "film.avi"
        subprocess.run(["ffmpeg", "-loglevel", "error", "-f", "lavfi", "-i", "testsrc=d=120:s=1280x720:r=25", "-f", "lavfi",
                        "-i", "sine=440:d=120", "-c:v", "mpeg4", "-q:v", "5", "-c:a", "libmp3lame", film], check=True)
        return str(film)

    def launch(self, command):
        """Starts a program; returns its process id and when that was."""
        begin = time.monotonic()
        null = os.open(os.devnull, os.O_RDWR)
        actions = [(os.POSIX_SPAWN_DUP2, null, number) for number in range(3)]
        pid = os.posix_spawnp(command[0], command, self.session.env, file_actions=actions)
        os.close(null)
        return pid, begin

    def end(self, pid):
        os.kill(pid, signal.SIGTERM)
        try:
            wait_for(lambda: os.waitpid(pid, os.WNOHANG)[0], "the end of a program", 5)
        except AssertionError:
            os.kill(pid, signal.SIGKILL)
            os.waitpid(pid, 0)

    # ---- one measurement each ----

    def start_to_window(self, command):
        """Milliseconds until the window is mapped, and until it is painted."""
        self.windows.drop_events()
        pid, begin = self.launch(command)
        try:
            return [(when - begin) * 1000 for when in self.windows.next_window()]
        finally:
            self.end(pid)

    def start_to_sound(self, command):
        watch = SoundWatch(self.session.env, SINK)
        try:
            watch.wait_for_silence()
            pid, begin = self.launch(command + [self.music])
            try:
                return (watch.wait_for_sound() - begin) * 1000
            finally:
                self.end(pid)
        finally:
            watch.close()

    def memory(self, command, seconds):
        """MiB that the program takes some time after its window has come up."""
        self.windows.drop_events()
        pid, _ = self.launch(command)
        try:
            self.windows.next_window()
            time.sleep(seconds)
            return sum(pss(member) for member in family(pid)) / 1024
        finally:
            self.end(pid)

    def cpu(self, command):
        """Per cent of one core while playing music."""
        return self.load(command + [self.music])[0]

    def load(self, command):
        """Per cent of one core while playing, and MiB at the end of it."""
        self.windows.drop_events()
        pid, _ = self.launch(command)
        try:
            self.windows.next_window()
            wait_for(self.session.streams, "a stream")
            time.sleep(SETTLE_SECONDS)
            before, begin = cpu_ticks(pid), time.monotonic()
            time.sleep(CPU_SECONDS)
            share = (cpu_ticks(pid) - before) / TICK / (time.monotonic() - begin) * 100
            return share, sum(pss(member) for member in family(pid)) / 1024
        finally:
            self.end(pid)


def family(pid):
    """A process and all below it."""
    members = [pid]
    for member in members:
        try:
            for task in os.listdir(f"/proc/{member}/task"):
                members += map(int, pathlib.Path(f"/proc/{member}/task/{task}/children").read_text().split())
        except OSError:
            pass
    return members


def pss(pid):
    for line in pathlib.Path(f"/proc/{pid}/smaps_rollup").read_text().splitlines():
        if line.startswith("Pss:"):
            return int(line.split()[1])
    raise RuntimeError(f"no memory figures of process {pid}")


def cpu_ticks(pid):
    ticks = 0
    for member in family(pid):
        fields = pathlib.Path(f"/proc/{member}/stat").read_text().rpartition(")")[2].split()
        ticks += int(fields[11]) + int(fields[12])
    return ticks


def in_turns(rounds, measure, commands):
    """{name: [figures]}, the programs taking turns so that what disturbs one disturbs all. The first
    round warms up and does not count."""
    figures = {name: [] for name in commands}
    for number in range(rounds + 1):
        for name, command in commands.items():
            figure = measure(command)
            if number:
                figures[name].append(figure)
    return figures


# ---- the table ----

def row(what, unit, figures, goals):
    """`figures` are {program: [values]}, ours first; `goals` {program: most ratio}, or {"": most value}."""
    medians = {name: statistics.median(values) for name, values in figures.items()}
    for name, values in figures.items():
        print(f"{what:<26}{name:<12}{medians[name]:>9.1f} {unit:<4} ({min(values):.1f} to {max(values):.1f})")
        what = ""
    ours = medians["tonvale"]
    for peer, goal in goals.items():
        value = ours / medians[peer] if peer else ours
        against = f"tonvale / {peer} = {value:.2f}" if peer else f"tonvale = {value:.1f} {unit}"
        print(f"{'':<26}{against}, goal <= {goal:g}: {'met' if value <= goal else 'MISSED'}")
    print()


def bench_window(bench):
    commands = {"tonvale": TONVALE, "audacious": AUDACIOUS, "empty": EMPTY}
    figures = in_turns(STARTS, bench.start_to_window, commands)
    for index, what in enumerate(("start to window mapped", "start to window painted")):
        row(what, "ms", {name: [pair[index] for pair in pairs] for name, pairs in figures.items()},
            {"audacious": 0.8, "empty": 1.3})


def bench_sound(bench):
    row("start to first sound", "ms", in_turns(STARTS, bench.start_to_sound, {"tonvale": TONVALE, "mpv": MPV}),
        {"mpv": 0.8})


def bench_memory(bench):
    commands = {"tonvale": TONVALE, "audacious": AUDACIOUS}
    row("memory (PSS), idle", "MiB",
        in_turns(MEMORY_ROUNDS, lambda command: bench.memory(command, SETTLE_SECONDS), commands), {"": 35})
    playing = {name: command + [bench.music] for name, command in commands.items()}
    row("memory (PSS), playing MP3", "MiB",
        in_turns(MEMORY_ROUNDS, lambda command: bench.memory(command, PLAYED_SECONDS), playing), {"audacious": 0.9})


def bench_cpu(bench):
    row("CPU while playing MP3", "%", in_turns(CPU_ROUNDS, bench.cpu, {"tonvale": TONVALE, "audacious": AUDACIOUS}),
        {"audacious": 1.0})


def bench_film(bench):
    film = bench.make_film()
    figures = in_turns(CPU_ROUNDS, bench.load, {"tonvale": TONVALE + [film], "mpv": MPV + ["--no-config", film]})
    for index, (what, unit, goal) in enumerate((("CPU while playing a film", "%", 1.1),
                                                ("memory (PSS), film", "MiB", 1.0))):
        row(what, unit, {name: [pair[index] for pair in pairs] for name, pairs in figures.items()}, {"mpv": goal})


# On which screen the window has room for the film and the panel above it.
SCREENS = {"film": "1600x1200x24"}
BENCHES = {"window": bench_window, "sound": bench_sound, "memory": bench_memory, "cpu": bench_cpu,
           "film": bench_film}


def main(names):
    unknown = set(names) - set(BENCHES)
    if unknown:
        sys.exit(f"tonvale: no such measurement: {', '.join(sorted(unknown))}; there are {', '.join(BENCHES)}")
    for name in names or BENCHES:
        bench = Bench(SCREENS[name]) if name in SCREENS else Bench()
        try:
            BENCHES[name](bench)
        finally:
            bench.close()


if __name__ == "__main__":
    main(sys.argv[1:])
