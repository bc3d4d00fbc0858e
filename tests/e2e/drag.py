# SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""A drag with the mouse out of another program."""

import pathlib
import sys

from session import wait_for

STEPS = 12


def drop(session, addresses, place):
    """Drags these addresses, as a file manager delivers them, to a place on the screen."""
    source = pathlib.Path(__file__).with_name("drag_source.py")
    session.spawn(sys.executable, str(source), *addresses, env=session.env | {"GDK_BACKEND": "x11"})
    wait_for(lambda: "drag source" in session.windows(), "the window to drag from")
    window = session.output("xdotool", "search", "--onlyvisible", "--name", "^drag source$").split()[0]
    session.output("xdotool", "windowmove", "--sync", window, "1150", "700")
    x, y = 1200, 760
    session.output("xdotool", "mousemove", str(x), str(y), "mousedown", "1")
    for step in range(1, STEPS + 1):
        session.output("xdotool", "mousemove", str(x + (place[0] - x) * step // STEPS),
                       str(y + (place[1] - y) * step // STEPS))
    session.output("xdotool", "mousemove", str(place[0] + 3), str(place[1] + 3), "mouseup", "1")
