# SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""A film of four coloured quarters, and where on the screen it is seen."""

import re
import subprocess

# Left to right, top to bottom; none of them is a mixture of two others, or a colour of the window, but
# that the lamp is red where nothing plays.
QUARTERS = ("ff00ff", "ffff00", "0000ff", "ff0000")
FUZZ = "12%"


def write_film(path, width=320, height=240, seconds=60):
    half = f"{width // 2}x{height // 2}"
    sources = [f"color=c=0x{colour}:s={half}:r=25:d={seconds}[{name}]" for colour, name in zip(QUARTERS, "abcd")]
    graph = ";".join(sources) + ";[a][b]hstack[top];[c][d]hstack[bottom];[top][bottom]vstack"
    subprocess.run(["ffmpeg", "-y", "-loglevel", "error", "-filter_complex", graph, "-c:v", "mpeg4", "-q:v", "2",
                    str(path)], check=True)
    return str(path)


class Box:
    """A place on the screen: left, top, width and height in pixels."""

    def __init__(self, left, top, width, height):
        self.left, self.top, self.width, self.height = left, top, width, height

    def numbers(self):
        return self.left, self.top, self.width, self.height

    def is_near(self, other):
        """Edges of colours are soft, those of large pictures more so."""
        tolerance = max(3, other.width / 80)
        return all(abs(a - b) <= tolerance for a, b in zip(self.numbers(), other.numbers()))

    def __repr__(self):
        return f"{self.width}x{self.height}+{self.left}+{self.top}"


def screen(session):
    """A picture of the screen, quick to write and to read."""
    picture = session.directory / "seen.ppm"
    session.screenshot(picture)
    return picture


def seen(session, picture, colour):
    """The box around all pixels of the colour, or nothing."""
    text = session.output("convert", str(picture), "-fuzz", FUZZ, "-fill", "black", "+opaque", f"#{colour}", "-fuzz",
                          "0", "-bordercolor", "black", "-border", "1", "-trim", "-format", "%w %h %X %Y", "info:")
    width, height, left, top = (int(number) for number in re.findall(r"[-+]?\d+", text))
    return Box(left - 1, top - 1, width, height) if width > 1 else None


def film_is_at(session, box):
    """Whether the film fills this box, with each quarter in its place."""
    width, height = box.width / 2, box.height / 2
    places = [Box(box.left + column * width, box.top + row * height, width, height)
              for row in (0, 1) for column in (0, 1)]
    picture = screen(session)
    return all((area := seen(session, picture, colour)) and area.is_near(place)
               for colour, place in zip(QUARTERS, places))


def film_is_seen(session):
    return seen(session, screen(session), QUARTERS[0]) is not None
