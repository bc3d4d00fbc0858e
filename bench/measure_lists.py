# SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures a list of 100,000 rows: what Tonvale's window takes for each step, and how long audacious takes to
open the same rows. Needs the target bench_list_window."""

import os
import pathlib
import statistics
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tests/e2e"))
os.environ.setdefault("TONVALE_BUILD", str(ROOT / "build/release"))

from session import BUILD, Session, wait_for  # noqa: E402  (after the path is set)

ROWS = 100000
ROUNDS = 5
GOALS = {"load": "<= 300", "save": "<= 100", "paint": "<= 100", "remove-half": "<= 100"}


def rows():
    return [f"/home/me/Music/Artist {i // 500:03}/Album {i // 12 % 40:02}/{i:06} - a title of usual length.mp3"
            for i in range(ROWS)]


def tonvale(session, path):
    """The figures of each step, without those of the first round, which warms up."""
    text = session.output(str(BUILD / "bench_list_window"), path)
    figures = {}
    for line in text.partition("round 1\n")[2].splitlines():
        what, number = line.split()[:2]
        if what != "round":
            figures.setdefault(what, []).append(float(number))
    return figures


def audacious(session, path):
    """Milliseconds until the rows of an .m3u file are in its list, titles not looked up."""
    config = pathlib.Path(session.env["XDG_CONFIG_HOME"]) / "audacious"
    config.mkdir()
    (config / "config").write_text("[audacious]\nmetadata_on_play=TRUE\nslow_probe=FALSE\n")
    session.spawn("audacious", "-Q")
    wait_for(lambda: session.output("audtool", "version"), "audacious")
    figures = []
    for _ in range(ROUNDS + 1):
        session.output("audtool", "playlist-clear")
        wait_for(lambda: session.output("audtool", "playlist-length").strip() == "0", "an empty list")
        begin = time.monotonic()
        session.output("audtool", "playlist-addurl", path)
        wait_for(lambda: session.output("audtool", "playlist-length").strip() == str(ROWS), "the rows", 120)
        figures.append((time.monotonic() - begin) * 1000)
    return figures[1:]


def main():
    session = Session(sound=True)
    try:
        del session.env["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"]
        ply, m3u = session.directory / "list.ply", session.directory / "list.m3u"
        ply.write_text("".join(row + "\r\n" for row in rows()), newline="")
        m3u.write_text("".join(row + "\n" for row in rows()))
        ours = tonvale(session, str(ply))
        for what, numbers in ours.items():
            unit = "bytes a row" if what == "memory" else "ms"
            print(f"{what:14} {statistics.median(numbers):8.1f} {unit}  ({min(numbers):.1f} to {max(numbers):.1f})  "
                  f"{GOALS.get(what, '')}")
        theirs = audacious(session, str(m3u))
        opened = statistics.median(ours["load"]) + statistics.median(ours["paint"])
        print(f"audacious opens {statistics.median(theirs):8.1f} ms  ({min(theirs):.1f} to {max(theirs):.1f})")
        print(f"load and paint / audacious: {opened / statistics.median(theirs):.2f}  <= 0.3")
    finally:
        session.close()


main()
