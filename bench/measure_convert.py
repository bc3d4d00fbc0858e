# SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures the converters beside other programs, in turns, and prints ratios.

measure_convert.py [encode|decode|batch]...; BENCH_SECONDS and BENCH_ROUNDS make it shorter."""

import os
import pathlib
import statistics
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = pathlib.Path(os.environ.get("TONVALE_BUILD", ROOT / "build/release"))
CONVERT = str(BUILD / "bench_convert")
MUSIC = pathlib.Path("/usr/share/games/asc/music")
SECONDS = int(os.environ.get("BENCH_SECONDS", "600"))
ROUNDS = int(os.environ.get("BENCH_ROUNDS", "5"))
BATCH = 10
MEMORY_GOAL = 32  # MiB


def run(*command):
    subprocess.run([str(word) for word in command], check=True, stdout=subprocess.DEVNULL)


def make_sounds(directory):
    """{kind: WAV file}, all of them 44.1 kHz and stereo."""
    shape = ["-r", "44100", "-c", "2", "-b", "16"]
    sounds = {}
    for piece in sorted(MUSIC.glob("*.mp3")):
        sounds[piece.stem] = directory / f"{piece.stem}.wav"
        run("sox", "-V1", piece, *shape, sounds[piece.stem], "repeat", "-", "trim", "0", SECONDS)
    for kind, synth in {"noise": ["pinknoise", "gain", "-6"], "silence": ["sine", "0", "gain", "-200"]}.items():
        sounds[kind] = directory / f"{kind}.wav"
        run("sox", "-V1", "-n", *shape, sounds[kind], "synth", SECONDS, *synth)
    return sounds


def measure(commands):
    """Wall and CPU seconds of all the commands one after the other, and the most memory in MiB."""
    begin, cpu, memory = time.monotonic(), 0.0, 0
    for command in commands:
        process = subprocess.Popen([str(word) for word in command], stdout=subprocess.DEVNULL)
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = status
        if status != 0:
            sys.exit(f"tonvale: {command[0]} failed")
        cpu += usage.ru_utime + usage.ru_stime
        memory = max(memory, usage.ru_maxrss / 1024)
    return time.monotonic() - begin, cpu, memory


def in_turns(programs):
    """{name: median (wall, CPU, memory)}; the first round warms up."""
    figures = {name: [] for name in programs}
    for number in range(ROUNDS + 1):
        for name, commands in programs.items():
            figure = measure(commands)
            if number:
                figures[name].append(figure)
    return {name: [statistics.median(column) for column in zip(*values)] for name, values in figures.items()}


def table(what, figures, goals):
    """`goals` are {(peer, "wall" or "CPU"): most ratio}."""
    for name, (wall, cpu, memory) in figures.items():
        print(f"{what:<32}{name:<10}{wall:>8.2f} s{cpu:>8.2f} s CPU{memory:>8.1f} MiB")
        what = ""
    for (peer, column), goal in goals.items():
        index = 0 if column == "wall" else 1
        ratio = figures["tonvale"][index] / figures[peer][index]
        print(f"{'':<32}tonvale / {peer}, {column} = {ratio:.3f}, goal <= {goal:g}: {'met' if ratio <= goal else 'MISSED'}")
    print(f"{'':<32}memory goal <= {MEMORY_GOAL} MiB: {'met' if figures['tonvale'][2] <= MEMORY_GOAL else 'MISSED'}\n", flush=True)


def bench_encode(directory, sounds):
    out = directory / "out.mp3"
    for kind, wav in sounds.items():
        figures = in_turns({
            "tonvale": [[CONVERT, "encode", "0", wav, out]],
            "lame": [["lame", "--quiet", wav, out]],
            "ffmpeg": [["ffmpeg", "-v", "error", "-y", "-i", wav, "-c:a", "libmp3lame", "-b:a", "128k", out]],
        })
        table(f"encode {kind}", figures, {("lame", "wall"): 0.49, ("ffmpeg", "wall"): 0.52, ("lame", "CPU"): 0.95})


def bench_decode(directory, sounds):
    out, mp3 = directory / "out.wav", directory / "in.mp3"
    for kind, wav in sounds.items():
        run("lame", "--quiet", wav, mp3)
        figures = in_turns({
            "tonvale": [[CONVERT, "decode", "0", mp3, out]],
            "mpg123": [["mpg123", "-q", "-w", out, mp3]],
            "ffmpeg": [["ffmpeg", "-v", "error", "-y", "-i", mp3, out]],
        })
        table(f"decode {kind}", figures, {("mpg123", "wall"): 0.43, ("ffmpeg", "wall"): 0.43, ("mpg123", "CPU"): 0.82})


def pairs(sources, targets):
    return [path for pair in zip(sources, targets) for path in pair]


def bench_batch(directory, sounds):
    pieces = [directory / f"part{i}.wav" for i in range(BATCH)]
    for i, piece in enumerate(pieces):
        wav = list(sounds.values())[i % 3]
        run("sox", "-V1", wav, piece, "trim", i * SECONDS // (2 * BATCH), SECONDS // BATCH)
    mp3s = [piece.with_suffix(".mp3") for piece in pieces]
    outs = [piece.with_suffix(".out.wav") for piece in pieces]
    figures = in_turns({
        "tonvale": [[CONVERT, "encode", "0", *pairs(pieces, mp3s)]],
        "lame": [["lame", "--quiet", *pair] for pair in zip(pieces, mp3s)],
    })
    table(f"encode {BATCH} files", figures, {("lame", "wall"): 0.49})
    figures = in_turns({
        "tonvale": [[CONVERT, "decode", "0", *pairs(mp3s, outs)]],
        "mpg123": [["mpg123", "-q", "-w", out, mp3] for mp3, out in zip(mp3s, outs)],
    })
    table(f"decode {BATCH} files", figures, {("mpg123", "wall"): 0.40})


BENCHES = {"encode": bench_encode, "decode": bench_decode, "batch": bench_batch}


def main(names):
    unknown = set(names) - set(BENCHES)
    if unknown:
        sys.exit(f"tonvale: no such measurement: {', '.join(sorted(unknown))}; there are {', '.join(BENCHES)}")
    print(f"{os.cpu_count()} cores, load {os.getloadavg()[0]:.1f}, {SECONDS} s of sound, medians of {ROUNDS}\n")
    with tempfile.TemporaryDirectory() as scratch:
        directory = pathlib.Path(scratch)
        sounds = make_sounds(directory)
        for name in names or BENCHES:
            BENCHES[name](directory, sounds)


if __name__ == "__main__":
    main(sys.argv[1:])
