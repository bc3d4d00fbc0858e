# SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""A private desktop for one test: home, display, window manager, session bus, sound server. Nothing of
the user's is read or touched, and nothing is left behind."""

import ctypes
import json
import os
import pathlib
import re
import shutil
import signal
import subprocess
import tempfile
import time

BUILD = pathlib.Path(os.environ.get("TONVALE_BUILD", "build/release")).resolve()
PATIENCE = 30  # seconds that a machine under load may take for what is usually at once
SINK = "speakers"
_PRCTL = ctypes.CDLL(None, use_errno=True).prctl
_PR_SET_PDEATHSIG, _PR_SET_CHILD_SUBREAPER = 1, 36


def wait_for(condition, what, timeout=PATIENCE):
    """Polls until `condition()` is true and returns its value; fails with `what` after the timeout."""
    end = time.monotonic() + timeout
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise AssertionError(f"waited {timeout} s in vain: {what}")
        time.sleep(0.02)


def holds_for(seconds, condition, what):
    """Fails if `condition()` gets untrue within some time."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        if not condition():
            raise AssertionError(f"did not last {seconds} s: {what}")
        time.sleep(0.02)


def _die_with_parent():
    _PRCTL(_PR_SET_PDEATHSIG, signal.SIGKILL)


class Session:
    def __init__(self, sound=True, size="1280x800x24"):
        self.screen_size = tuple(int(number) for number in size.split("x")[:2])
        # Programs that outlive the one that started them become our children, and go with us.
        _PRCTL(_PR_SET_CHILD_SUBREAPER, 1)
        self.directory = pathlib.Path(tempfile.mkdtemp(prefix="tonvale-e2e-"))
        self.home = self.directory / "home"
        self.processes = []
        self.env = self._environment()
        for name in ("HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"):
            os.makedirs(self.env[name], mode=0o700)
        try:
            self._start_display(size)
            self._start_bus()
            if sound:
                self._start_sound()
            self.spawn("openbox", "--sm-disable")
            wait_for(self._has_window_manager, "a window manager")
        except BaseException:
            self.close()
            raise

    def _environment(self):
        keep = ("PATH", "ASAN_OPTIONS", "UBSAN_OPTIONS")
        env = {name: os.environ[name] for name in keep if name in os.environ}
        env |= {"LANG": "C.UTF-8", "TZ": "UTC", "HOME": str(self.home), "TMPDIR": str(self.directory),
                "XDG_CONFIG_HOME": str(self.home / ".config"), "XDG_CACHE_HOME": str(self.home / ".cache"),
                "XDG_DATA_HOME": str(self.home / ".local/share"), "XDG_RUNTIME_DIR": str(self.directory / "run"),
                "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", "QT_QPA_PLATFORM": "xcb"}
        env["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={env['XDG_RUNTIME_DIR']}/bus"
        env["PULSE_SERVER"] = f"unix:{env['XDG_RUNTIME_DIR']}/pulse.socket"
        return env

    def spawn(self, *command, **options):
        log = open(self.directory / f"{os.path.basename(command[0])}.log", "ab")
        with log:
            options = {"stdin": subprocess.DEVNULL, "stdout": log, "stderr": log, "env": self.env} | options
            process = subprocess.Popen(command, cwd=self.directory, preexec_fn=_die_with_parent, **options)
        self.processes.append(process)
        return process

    def output(self, *command):
        """What a short command prints; empty when it fails."""
        run = subprocess.run(command, env=self.env, cwd=self.directory, stdin=subprocess.DEVNULL,
                             stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, timeout=PATIENCE, check=False)
        return run.stdout.decode("utf-8", "replace") if run.returncode == 0 else ""

    # ---- what a session is made of ----

    def _start_display(self, size):
        reader, writer = os.pipe()
        self.spawn("Xvfb", "-displayfd", str(writer), "-screen", "0", size, "-nolisten", "tcp", "-noreset",
                   pass_fds=(writer,))
        os.close(writer)
        with os.fdopen(reader, "rb") as pipe:
            number = pipe.readline().strip().decode()
        if not number:
            raise AssertionError("no display: " + self.log("Xvfb"))
        self.env["DISPLAY"] = f":{number}"

    def _start_bus(self):
        # Only the accessibility service can be started on this bus.
        services = self.directory / "services"
        services.mkdir()
        shutil.copy("/usr/share/dbus-1/services/org.a11y.Bus.service", services)
        config = self.directory / "bus.conf"
        config.write_text(f"""<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig><type>session</type><listen>{self.env['DBUS_SESSION_BUS_ADDRESS']}</listen>
<servicedir>{services}</servicedir><auth>EXTERNAL</auth>
<policy context="default"><allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/><allow own="*"/></policy>
</busconfig>""")
        self.spawn("dbus-daemon", f"--config-file={config}", "--nofork")
        socket = pathlib.Path(self.env["XDG_RUNTIME_DIR"]) / "bus"
        wait_for(socket.exists, "the session bus")

    def _start_sound(self):
        self.spawn("pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no",
                   "--realtime=no", "--high-priority=no", "--disallow-exit=yes",
                   "-L", f"module-null-sink sink_name={SINK}",
                   "-L", f"module-native-protocol-unix auth-anonymous=1 socket={self.env['PULSE_SERVER'][5:]}")
        wait_for(lambda: SINK in self.output("pactl", "list", "short", "sinks"), "a sound server")

    def _has_window_manager(self):
        return "window id" in self.output("xprop", "-root", "_NET_SUPPORTING_WM_CHECK")

    def close(self):
        end = time.monotonic() + PATIENCE
        while (children := _children()) and time.monotonic() < end:
            for pid in children:
                os.kill(pid, signal.SIGKILL)
                os.waitpid(pid, 0)
        for process in self.processes:
            process.poll()
        shutil.rmtree(self.directory, ignore_errors=True)

    # ---- looking at it ----

    def log(self, program):
        path = self.directory / f"{program}.log"
        return path.read_text(errors="replace") if path.exists() else ""

    def screenshot(self, path):
        self.output("import", "-display", self.env["DISPLAY"], "-window", "root", str(path))

    def window_ids(self):
        """The windows in the window manager's list."""
        ids = re.findall(r"0x[0-9a-f]+", self.output("xprop", "-root", "_NET_CLIENT_LIST"))
        return [int(window, 16) for window in ids]

    def windows(self):
        """Titles of the windows on screen, in the window manager's list."""
        titles = []
        for window in self.window_ids():
            properties = self.output("xprop", "-id", str(window), "_NET_WM_NAME")
            match = re.search(r'_NET_WM_NAME\(UTF8_STRING\) = "(.*)"', properties)
            titles.append(match[1] if match else "")
        return titles

    def key(self, *keys):
        self.output("xdotool", "key", "--clearmodifiers", *keys)

    def click(self, x, y, button=1):
        # Without --sync, which waits 15 s for a pointer that is there already.
        self.output("xdotool", "mousemove", str(x), str(y), "click", str(button))

    def streams(self, pid=None):
        """What plays on the sound server, all or that of one process."""
        text = self.output("pactl", "-f", "json", "list", "sink-inputs")
        streams = json.loads(text) if text.strip() else []
        return [stream for stream in streams
                if pid is None or stream["properties"].get("application.process.id") == str(pid)]

    def sink_volume(self):
        """The volume of the speakers in per cent."""
        match = re.search(r"(\d+)%", self.output("pactl", "get-sink-volume", SINK))
        return int(match[1]) if match else None

    def set_sink_volume(self, percent):
        self.output("pactl", "set-sink-volume", SINK, f"{percent}%")

    def loudness(self, seconds=0.3):
        """The largest sample, 0 to 32767, that the speakers give within some time."""
        size = int(8000 * seconds) * 2
        with self.spawn("parec", f"--device={SINK}.monitor", "--raw", "--format=s16le", "--rate=8000", "--channels=1",
                        "--latency-msec=20", stdout=subprocess.PIPE) as recorder:
            data = recorder.stdout.read(size)
            recorder.terminate()
        samples = memoryview(data[: len(data) // 2 * 2]).cast("h")
        return max((abs(sample) for sample in samples), default=0)

    def is_audible(self):
        return self.loudness() > 300

    def is_silent(self):
        return self.loudness() == 0


def _children():
    """Our child processes, zombies included."""
    found = []
    for entry in os.listdir("/proc"):
        if entry.isdigit():
            try:
                stat = pathlib.Path(f"/proc/{entry}/stat").read_text()
            except OSError:
                continue
            if int(stat.rpartition(")")[2].split()[1]) == os.getpid():
                found.append(int(entry))
    return found
