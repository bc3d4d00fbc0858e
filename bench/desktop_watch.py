# SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Sees when a program's window comes up and when its first sound is heard, to about a millisecond."""

import subprocess
import threading
import time

from Xlib import X, display

LEAST_SIZE = 50  # pixels; smaller windows are helpers
SETTLED_AFTER = 1.0  # seconds after which a new window looks as it will
SAMPLES = 2000  # pixels that are compared
ALIKE = 0.9


class WindowWatch:
    """Watches an otherwise empty display for the next window."""

    def __init__(self, name):
        self.display = display.Display(name)
        self.root = self.display.screen().root
        # No program paints its window in this colour.
        self.root.change_attributes(event_mask=X.SubstructureNotifyMask, background_pixel=0xFF00FF)
        self.root.clear_area()
        self.display.sync()

    def drop_events(self):
        self.display.sync()
        while self.display.pending_events():
            self.display.next_event()

    def next_window(self, timeout=30):
        """When the next window was mapped, and when it looked as it does a second later."""
        end = time.monotonic() + timeout
        while time.monotonic() < end:
            if not self.display.pending_events():
                time.sleep(0.0003)
                continue
            event = self.display.next_event()
            if event.type != X.MapNotify:
                continue
            mapped = time.monotonic()
            box = event.window.get_geometry()
            if box.width >= LEAST_SIZE and box.height >= LEAST_SIZE:
                return mapped, self._painted(mapped, event.window)
        raise RuntimeError("no window has come up")

    def _painted(self, mapped, window):
        looks = []
        while time.monotonic() < mapped + SETTLED_AFTER:
            # A window manager may still move or resize it.
            box = window.get_geometry()
            try:
                picture = self.root.get_image(box.x + box.width // 4, box.y + box.height // 4, box.width // 2,
                                              box.height // 2, X.ZPixmap, 0xFFFFFF)
            except Exception as error:  # python-xlib's errors have no common base
                raise RuntimeError(f"the window has gone again: {error}") from error
            looks.append((time.monotonic(), picture.data))
            time.sleep(0.0005)
        final = looks[-1][1]
        return next(when for when, data in looks if _alike(data, final))


def _alike(data, final):
    if len(data) != len(final):
        return False
    a, b = memoryview(data).cast("I"), memoryview(final).cast("I")
    step = max(1, len(a) // SAMPLES)
    same = sum(1 for i in range(0, len(a), step) if a[i] == b[i])
    return same >= ALIKE * len(range(0, len(a), step))


class SoundWatch:
    """Listens to a sink's monitor all the time, and knows when the last silence ended."""

    def __init__(self, env, sink):
        self.recorder = subprocess.Popen(
            ["parec", f"--device={sink}.monitor", "--raw", "--format=s16le", "--rate=48000", "--channels=1",
             "--latency-msec=2", "--process-time-msec=1"], env=env, stdout=subprocess.PIPE, bufsize=0)
        self.since = None  # when the present sound began
        self.heard_at = time.monotonic()  # when something, be it silence, was read last
        threading.Thread(target=self._listen, daemon=True).start()

    def _listen(self):
        while data := self.recorder.stdout.read(4096):
            now = time.monotonic()
            self.heard_at = now
            if not any(data):
                self.since = None
            elif self.since is None:
                self.since = now

    def wait_for_sound(self, timeout=30):
        return self._wait(lambda: self.since, "no sound has come", timeout)

    def wait_for_silence(self, timeout=30):
        begin = time.monotonic()
        self._wait(lambda: self.since is None and self.heard_at > begin + 0.2, "it does not get silent", timeout)

    @staticmethod
    def _wait(condition, what, timeout):
        end = time.monotonic() + timeout
        while time.monotonic() < end:
            if value := condition():
                return value
            time.sleep(0.0005)
        raise RuntimeError(what)

    def close(self):
        self.recorder.terminate()
        self.recorder.wait()
