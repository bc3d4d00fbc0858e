# SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The program as its user meets it: what a test may press, turn and read."""

import contextlib
import math
import os
import pathlib
import signal
import sqlite3
import struct
import sys
import time
import unittest
import wave

import accessible
from session import BUILD, Session, wait_for

TITLE = "Orvane Tonvale"
TONE_RATE = 8000


def write_tone(path, seconds, silent_until=0.0):
    """A WAV file with a tone, silent at its beginning if wished."""
    samples = [0 if i < silent_until * TONE_RATE else int(16000 * math.sin(i * 440 * 2 * math.pi / TONE_RATE))
               for i in range(int(seconds * TONE_RATE))]
    with wave.open(os.fsencode(path).decode("utf-8", "surrogateescape"), "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(TONE_RATE)
        file.writeframes(struct.pack(f"<{len(samples)}h", *samples))
    return path


class Store:
    """The settings in a session's home, as they lie on disk."""

    KEY = "Software\\Program Settings\\Orvane Tonvale\\Settings"
    CURRENT_USER = 0x80000001

    def __init__(self, session):
        self.path = pathlib.Path(session.env["XDG_CONFIG_HOME"]) / "orvane-tonvale/registry.db"

    def get(self, name):
        if not self.path.exists():
            return None
        with contextlib.closing(sqlite3.connect(f"file:{self.path}?mode=ro", uri=True)) as database:
            row = database.execute("SELECT value FROM entries WHERE root=? AND key=? AND name=?",
                                   (self.CURRENT_USER, self.KEY, name)).fetchone()
        return bytes(row[0]).decode() if row else None

    def set_place(self, text):
        """Changes the main window's place that the program has stored before."""
        with contextlib.closing(sqlite3.connect(self.path)) as database, database:
            changed = database.execute("UPDATE entries SET value=? WHERE key LIKE ? AND name='Form1'",
                                       (text.encode(), "%Form Positions")).rowcount
        if changed != 1:
            raise AssertionError("no place in the store")

    def set(self, name, text):
        """Changes a setting that the program has stored before."""
        with contextlib.closing(sqlite3.connect(self.path)) as database, database:
            changed = database.execute("UPDATE entries SET value=? WHERE root=? AND key=? AND name=?",
                                       (text.encode(), self.CURRENT_USER, self.KEY, name)).rowcount
        if changed != 1:
            raise AssertionError(f"no setting {name!r} in the store")


class Player:
    def __init__(self, session, process):
        self.session, self.process, self.pid = session, process, process.pid
        self._bus = None
        self._unfolded = set()

    # ---- what it shows ----

    @property
    def bus(self):
        if self._bus is None:
            self._bus = accessible.connect(self.session.env["DBUS_SESSION_BUS_ADDRESS"])
        return self._bus

    def tree(self):
        """The program's root object, or nothing while it has not announced itself."""
        for program in accessible.programs(self.bus):
            with contextlib.suppress(accessible.Gone):
                if program.pid == self.pid:
                    return program
        return None

    def find_all(self, role=None, name=None):
        tree = self.tree()
        return tree.find_all(role, name) if tree else []

    def has(self, role, name):
        return bool(self.find_all(role, name))

    def find(self, role, name):
        return wait_for(lambda: self.find_all(role, name), f"{role} {name!r}")[0]

    def shows(self, text):
        """Whether a label or display has this text."""
        def has_it(label):
            with contextlib.suppress(accessible.Gone):
                return text in (label.name, label.description)
            return False
        return any(has_it(label) for label in self.find_all("label"))

    def range(self, name):
        """The slider or the volume of this name."""
        def found():
            return [node for node in self.find_all(name=name) if node.role in ("slider", "spin box")]
        return wait_for(found, f"slider {name!r}")[0]

    def has_entry(self, menu, entry):
        """Whether an entry of the main menu has this caption."""
        if menu not in self._unfolded:
            # A menu is filled when it is opened for the first time, and follows from then on.
            self.open_menu(menu)
            self.session.key("Escape")
            self._unfolded.add(menu)
        return any(item.find_all("menu item", entry) for item in self.find_all("menu item", menu))

    def is_idle(self):
        return self.has_entry("File", "Load and Play File")

    def wait_until_shown(self):
        wait_for(lambda: self.has("menu item", "File") or self.has_ended(), "the main window")
        wait_for(lambda: TITLE in self.session.windows() or self.has_ended(), "the main window on screen")
        if self.has_ended():
            raise AssertionError(f"the program has ended with {self.process.returncode}: {self.session.log('tonvale')}")
        return self

    # ---- what its user does ----

    def open_menu(self, *path):
        """Opens a menu of the menu bar, and those below it, with the mouse."""
        self.focus()
        entry = self.find("menu item", path[0])
        for name in path[1:]:
            self._unfold(entry)
            entry = self._below(entry, name)
        self._unfold(entry)
        return entry

    def _unfold(self, entry):
        def is_open():
            return any(item.is_showing() for popup in entry.children() for item in popup.children())

        def opens():
            # Right after a window has come up, where it lies is not told rightly yet.
            self.session.click(*entry.centre())
            deadline = time.monotonic() + 2
            while not is_open() and time.monotonic() < deadline:
                time.sleep(0.05)
            return is_open()

        wait_for(opens, f"the open menu {entry.name}")

    def _below(self, menu, name):
        def found():
            return [item for item in menu.find_all("menu item", name) if item.path != menu.path]
        return wait_for(found, f"{menu.name} > {name}")[0]

    def choose(self, *path):
        """Chooses an entry of the main menu with the mouse."""
        self.session.click(*self._below(self.open_menu(*path[:-1]), path[-1]).centre())

    def pop_up_menu(self, x, y):
        """Brings up the menu of what lies at a place of the screen. It has the keyboard then."""
        self.session.click(x, y, button=3)
        wait_for(self.pop_ups, "a menu where the pointer is")

    def pop_ups(self):
        """Windows of ours that the window manager does not know: the menus that are open."""
        managed = self.session.window_ids()
        visible = self.session.output("xdotool", "search", "--onlyvisible", "--pid", str(self.pid)).split()
        return [window for window in visible if int(window) not in managed]

    def push(self, button):
        self.find("push button", button).press()

    def focus(self):
        self.session.output("xdotool", "search", "--onlyvisible", "--pid", str(self.pid), "--name", TITLE,
                            "windowactivate", "--sync")

    def restore(self):
        """Brings the main window back from the list of tasks."""
        self.session.output("xdotool", "search", "--pid", str(self.pid), "--name", f"^{TITLE}$", "windowactivate")

    def is_on_screen(self):
        return bool(self.session.output("xdotool", "search", "--onlyvisible", "--pid", str(self.pid), "--name",
                                        f"^{TITLE}$"))

    # ---- how it goes ----

    def has_ended(self):
        return self.process.poll() is not None

    def wait_until_ended(self):
        wait_for(self.has_ended, "the end of the program")
        return self.process.returncode

    def streams(self):
        return self.session.streams(self.pid)

    def is_sounding(self):
        return any(not stream["corked"] for stream in self.streams())

    def end(self):
        """Ends it by its menu and returns its exit code."""
        self.choose("File", "Exit")
        return self.wait_until_ended()

    def kill(self):
        self.process.send_signal(signal.SIGKILL)
        self.process.wait()


class Desk(unittest.TestCase):
    """A test with a session of its own. When it fails, a picture of the screen, the accessibility tree
    and the programs' output are kept."""

    session_options = {}

    def setUp(self):
        self.session = Session(**self.session_options)
        self.addCleanup(self.session.close)
        self.players = []
        self.store = Store(self.session)

    def start(self, *arguments, program="tonvale", **options):
        process = self.session.spawn(str(BUILD / program), *arguments, **options)
        player = Player(self.session, process)
        self.players.append(player)
        return player

    def open(self, *arguments, **options):
        return self.start(*arguments, **options).wait_until_shown()

    def file(self, name):
        return str(self.session.directory / name)

    def tone(self, name="tone.wav", seconds=60, silent_until=0.0):
        return write_tone(self.file(name), seconds, silent_until)

    def wait_for_sound(self, player):
        wait_for(player.is_sounding, "a running stream on the sound server")
        wait_for(self.session.is_audible, "sound from the speakers")

    def run(self, result=None):
        self.result = result
        return super().run(result)

    def tearDown(self):
        # Cleanups come after this, so the session is still there to be looked at.
        if any(test is self for test, _ in self.result.failures + self.result.errors):
            self._keep_evidence()

    def _keep_evidence(self):
        directory = BUILD / "e2e-failures" / self.id()
        directory.mkdir(parents=True, exist_ok=True)
        self.session.screenshot(directory / "screen.png")
        for log in self.session.directory.glob("*.log"):
            (directory / log.name).write_bytes(log.read_bytes())
        with contextlib.suppress(Exception):
            trees = ["\n".join(program.dump()) for program in accessible.programs(self.players[-1].bus)]
            (directory / "tree.txt").write_text("\n".join(trees))
        print(f"see {directory}", file=sys.stderr)
        print(self.session.log("tonvale")[-4000:], file=sys.stderr)
