# SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""A drag with the mouse out of another program."""

import os
import pathlib
import sys

from session import wait_for

STEPS = 12
ATTEMPTS = 5


def drop(session, addresses, place):
    """Drags these addresses, as a file manager delivers them, to a place on the screen."""
    source = pathlib.Path(__file__).with_name("drag_source.py")
    session.spawn(sys.executable, str(source), *addresses, env=session.env | {"GDK_BACKEND": "x11"})
    wait_for(lambda: "drag source" in session.windows(), "the window to drag from")
    window = session.output("xdotool", "search", "--onlyvisible", "--name", "^drag source$").split()[0]
    session.output("xdotool", "windowmove", "--sync", window, "1150", "700")
    # Where the button is released before the window below has had the time to say yes, it has said no.
    if not any(_drag(session, place) == "delivered" for _ in range(ATTEMPTS)):
        raise AssertionError("the drop was refused")


def _drag(session, place):
    """What the program that is dragged from says at the end."""
    known = len(_outcomes(session))
    x, y = 1200, 760
    session.output("xdotool", "mousemove", str(x), str(y), "mousedown", "1")
    for step in range(1, STEPS + 1):
        session.output("xdotool", "mousemove", str(x + (place[0] - x) * step // STEPS),
                       str(y + (place[1] - y) * step // STEPS))
    session.output("xdotool", "mousemove", str(place[0] + 3), str(place[1] + 3), "mouseup", "1")
    return wait_for(lambda: _outcomes(session)[known:], "the end of the drag")[0]


def _outcomes(session):
    lines = session.log(os.path.basename(sys.executable)).splitlines()
    return [line for line in lines if line in ("delivered", "refused")]
