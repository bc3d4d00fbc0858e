# SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Sees how long the event loops of programs take to answer, and when a part of a window is painted."""

import collections
import pathlib
import select
import threading
import time

from Xlib import X, display
from Xlib.ext import damage
from Xlib.protocol import event

INTERVAL = 0.005  # seconds between pings
PATIENCE = 30

# When a ping was sent, and seconds until its answer; how many of these the program's first thread has worked,
# and in how many it had work and no core to do it on. In the rest it slept, or waited for something.
Answer = collections.namedtuple("Answer", "sent seconds work without_core")


class LoopWatch:
    """Pings windows all the time, as a window manager does to know whether a program is alive. The answer comes
    out of the program's event loop: a loop that is busy answers late."""

    def __init__(self, name, windows, part):
        """`windows` are {program: (window, process id)}; `part` is a window and the place on the screen (x, y, width,
        height) of that in it whose paintings are counted."""
        self.display = display.Display(name)
        self.root = self.display.screen().root
        self.root.change_attributes(event_mask=X.StructureNotifyMask)  # with this mask Qt sends its answers
        self.protocols = self.display.intern_atom("WM_PROTOCOLS")
        self.ping = self.display.intern_atom("_NET_WM_PING")
        self.programs = {window: (program, pathlib.Path(f"/proc/{pid}/schedstat"))
                         for program, (window, pid) in windows.items()}
        self._answers = {program: [] for program in windows}
        self._paintings = []
        self._waiting = {}  # {(number, window): (when sent, core_time() then)}
        self._ends = False
        self._watch_part(*part)
        self.display.sync()
        self._thread = threading.Thread(target=self._run, daemon=True)
        self._thread.start()

    def answers(self, begin, end):
        """{program: answers to what was sent within this time}, complete if the loops have answered since."""
        return {program: [answer for answer in answers if begin <= answer.sent < end]
                for program, answers in self._answers.items()}

    def paintings_between(self, begin, end):
        return sum(begin <= when < end for when in self._paintings)

    def close(self):
        """Ends when all pings are answered."""
        self._ends = True
        self._thread.join(PATIENCE)
        if self._thread.is_alive() or self._waiting:
            raise RuntimeError("an event loop does not answer any more")
        self.display.close()

    def _watch_part(self, window, place):
        corner = self.root.translate_coords(window, 0, 0)
        self.place = (place[0] - corner.x, place[1] - corner.y, *place[2:])
        self.display.damage_query_version()
        self.damage_notify = self.display.extension_event.DamageNotify
        self.display.create_resource_object("window", window).damage_create(damage.DamageReportRawRectangles)

    def _run(self):
        number, due = 0, time.monotonic()
        while not self._ends or self._waiting:
            now = time.monotonic()
            if now >= due and not self._ends:
                number, due = number + 1, max(due + INTERVAL, now)
                self._send(number)
            select.select([self.display], [], [], INTERVAL if self._ends else max(0, due - time.monotonic()))
            while self.display.pending_events():
                self._take(self.display.next_event())

    def _send(self, number):
        for window, (_, statistics) in self.programs.items():
            message = event.ClientMessage(window=window, client_type=self.protocols,
                                          data=(32, [self.ping, number, window, 0, 0]))
            self._waiting[number, window] = time.monotonic(), core_time(statistics)
            # Without a mask it is for the window's owner.
            self.display.send_event(window, message, event_mask=0)
        self.display.flush()

    def _take(self, happened):
        now = time.monotonic()
        if happened.type == X.ClientMessage and happened.client_type == self.protocols:
            kind, number, window = happened.data[1][:3]
            if kind == self.ping and (number, window) in self._waiting:
                sent, before = self._waiting.pop((number, window))
                program, statistics = self.programs[window]
                work, without_core = (after - start for after, start in zip(core_time(statistics), before))
                self._answers[program].append(Answer(sent, now - sent, work, without_core))
        elif happened.type == self.damage_notify and self._touches(happened.area):
            self._paintings.append(now)

    def _touches(self, area):
        x, y, width, height = self.place
        return area.x < x + width and x < area.x + area.width and area.y < y + height and y < area.y + area.height


def core_time(statistics):
    """Seconds that a program's first thread has worked, and those in which it had work and no core."""
    work, without_core = statistics.read_text().split()[:2]
    return int(work) / 1e9, int(without_core) / 1e9
