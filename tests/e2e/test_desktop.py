# SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""What the desktop around the program sees of it, and what it asks of the desktop."""

import json
import os
import pathlib
import re
import shutil
import sys
import unittest

from gi.repository import Gio, GLib

from player import Desk, Player, TITLE
from session import BUILD, holds_for, wait_for

HERE = pathlib.Path(__file__).parent
MPRIS = "org.mpris.MediaPlayer2"
MPRIS_PATH = "/org/mpris/MediaPlayer2"


class DesktopDesk(Desk):
    def setUp(self):
        super().setUp()
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        self.bus = Gio.DBusConnection.new_for_address_sync(self.session.env["DBUS_SESSION_BUS_ADDRESS"], flags)
        self.bus.set_exit_on_close(False)

    def call(self, service, path, interface, method, arguments=None):
        return self.bus.call_sync(service, path, interface, method, arguments, None, Gio.DBusCallFlags.NONE, 10000,
                                  None).unpack()

    def get(self, service, path, interface, name):
        return self.call(service, path, "org.freedesktop.DBus.Properties", "Get",
                         GLib.Variant("(ss)", (interface, name)))[0]

    def start_service(self, kind):
        with open(self.session.directory / f"{kind}.log", "ab") as log:
            process = self.session.spawn("/usr/bin/python3", str(HERE / "fake_desktop.py"), kind, stdout=log)
        wait_for(lambda: self.calls(kind, "ready"), f"the service {kind}")
        return process

    def calls(self, kind, method):
        """The arguments of the calls of that method so far."""
        lines = [json.loads(line) for line in self.session.log(kind).splitlines()]
        return [line[1:] for line in lines if line[0] == method]

    def is_on_screen(self, player):
        """Whether the main window is, which is larger than any icon."""
        found = self.session.output("xdotool", "search", "--onlyvisible", "--pid", str(player.pid), "--name", TITLE)
        sizes = [self.session.output("xdotool", "getwindowgeometry", "--shell", window) for window in found.split()]
        return any(re.search(r"WIDTH=\d{3}", size) for size in sizes)

    def is_there(self, title):
        """Whether any program has a visible window of this title."""
        return bool(self.session.output("xdotool", "search", "--onlyvisible", "--name", title).strip())


class MediaKeys(DesktopDesk):
    def names(self):
        names = self.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "ListNames")[0]
        return [name for name in names if name.startswith(MPRIS)]

    def playerctl(self, *arguments):
        return self.session.output("playerctl", "--player=tonvale", *arguments).strip()

    def open_remote(self, *arguments):
        player = self.open(*arguments)
        wait_for(lambda: self.names() == [f"{MPRIS}.tonvale"], "the player on the bus")
        return player

    def test_a_panel_shows_what_plays(self):
        self.tone("b\u00e4r # 1.wav")
        player = self.open_remote(self.file("b\u00e4r # 1.wav"))
        self.wait_for_sound(player)
        wait_for(lambda: self.playerctl("status") == "Playing", "the state")
        self.assertEqual(self.playerctl("metadata", "xesam:url"), f"file://{self.session.directory}/b%C3%A4r%20%23%201.wav")
        self.assertIn("b\u00e4r # 1", self.playerctl("metadata", "title"))
        self.assertEqual(self.playerctl("metadata", "mpris:length"), "60000000")
        wait_for(lambda: float(self.playerctl("position")) >= 1, "the running position")

    def test_pause_and_play_by_media_keys(self):
        player = self.open_remote(self.tone())
        self.wait_for_sound(player)
        self.playerctl("pause")
        wait_for(self.session.is_silent, "silence in the pause")
        wait_for(lambda: self.playerctl("status") == "Paused", "the state")
        self.assertTrue(player.has_entry("Playback", "Resume"))
        self.playerctl("play-pause")
        self.wait_for_sound(player)
        self.playerctl("stop")
        wait_for(self.session.is_silent, "silence after the stop")
        wait_for(lambda: self.playerctl("status") == "Stopped", "the state")

    def test_changes_are_told_to_those_who_listen(self):
        player = self.open_remote(self.tone())
        self.wait_for_sound(player)
        self.session.spawn("gdbus", "monitor", "--session", "--dest", f"{MPRIS}.tonvale")
        wait_for(lambda: "is owned by" in self.session.log("gdbus"), "the listener")
        player.choose("Playback", "Pause")
        wait_for(lambda: "'PlaybackStatus': <'Paused'>" in self.session.log("gdbus"), "the told change")
        player.range("Tonvale Volume").value = 30
        wait_for(lambda: "'Volume': <0.29" in self.session.log("gdbus") or "'Volume': <0.3" in self.session.log("gdbus"),
                 "the told volume")
        self.assertNotIn("'Position'", self.session.log("gdbus"))

    def test_seeking_and_volume(self):
        player = self.open_remote(self.tone())
        self.wait_for_sound(player)
        slider = player.range("Play Progress")
        self.playerctl("position", "40")
        wait_for(lambda: slider.value >= 40, "the slider further on")
        self.playerctl("position", "10-")
        wait_for(lambda: 29 <= slider.value < 40, "the slider further back")
        self.playerctl("volume", "0.25")
        wait_for(lambda: player.range("Tonvale Volume").value == 25, "the volume")
        self.playerctl("position", "1000+")
        wait_for(player.is_idle, "the stop past the end")

    def test_a_file_is_opened_from_the_bus(self):
        player = self.open_remote()
        name = os.fsdecode(b"caf\xe9 100%.wav")
        self.tone(name)
        self.playerctl("open", f"file://{self.session.directory}/caf%E9%20100%25.wav")
        self.wait_for_sound(player)
        self.assertEqual(self.playerctl("metadata", "xesam:url"), f"file://{self.session.directory}/caf%E9%20100%25.wav")

    def test_nonsense_from_the_bus_does_nothing(self):
        player = self.open_remote(self.tone())
        self.wait_for_sound(player)
        target = (f"{MPRIS}.tonvale", MPRIS_PATH, f"{MPRIS}.Player")
        variant = GLib.Variant
        for method, arguments in (("OpenUri", variant("(s)", ("http://orvane.example/a.mp3",))),
                                  ("OpenUri", variant("(s)", ("file:///%00",))), ("Seek", variant("(s)", ("x",))),
                                  ("Seek", None), ("Nonsense", None)):
            with self.assertRaises(GLib.Error):
                self.call(*target, method, arguments)
        for track, position in (("/stale", 0), (self.playerctl("metadata", "mpris:trackid").strip("'"), -(2**63)),
                                (self.playerctl("metadata", "mpris:trackid").strip("'"), 2**63 - 1)):
            self.call(*target, "SetPosition", variant("(ox)", (track, position)))
        for volume in (float("nan"), float("-inf"), -1.0):
            self.call(*target[:2], "org.freedesktop.DBus.Properties", "Set",
                      variant("(ssv)", (target[2], "Volume", variant("d", volume))))
        wait_for(lambda: player.range("Tonvale Volume").value == 0, "no volume at all")
        self.assertEqual(self.playerctl("status"), "Playing")

    def test_it_is_ended_from_the_bus(self):
        player = self.open_remote(self.tone())
        self.wait_for_sound(player)
        self.call(f"{MPRIS}.tonvale", MPRIS_PATH, MPRIS, "Quit")
        self.assertEqual(player.wait_until_ended(), 0)

    def test_a_second_instance_has_a_name_of_its_own(self):
        self.assertEqual(self.open().end(), 0)
        self.store.set("Multi-Instances", "1")
        self.open_remote()
        second = self.open()
        wait_for(lambda: f"{MPRIS}.tonvale.instance{second.pid}" in self.names(), "the second name")
        self.assertEqual(len(self.names()), 2)


class HotKeys(DesktopDesk):
    def setUp(self):
        super().setUp()
        self.session.set_sink_volume(60)
        self.player = self.open()
        self.session.spawn("xev", "-name", "elsewhere")
        wait_for(lambda: self.is_there("elsewhere"), "another program")
        self.session.output("xdotool", "search", "--name", "elsewhere", "windowactivate", "--sync")
        wait_for(lambda: "elsewhere" in self.session.output("xdotool", "getactivewindow", "getwindowname"), "its focus")

    def test_a_key_with_control_is_heard_while_another_program_has_the_focus(self):
        self.session.key("ctrl+m")
        wait_for(lambda: self.session.sink_volume() == 0, "muted speakers")
        # It was heard beside, not taken away.
        wait_for(lambda: re.search(r"keysym 0x6d, m", self.session.log("xev")), "the key in the other program")
        self.session.key("ctrl+m")
        wait_for(lambda: self.session.sink_volume() == 60, "speakers as before")

    def test_a_held_key_counts_once_and_one_without_control_not_at_all(self):
        self.session.key("m", "shift+m", "alt+m")
        self.session.output("xdotool", "keydown", "ctrl", "keydown", "m")
        wait_for(lambda: self.session.sink_volume() == 0, "muted speakers")
        wait_for(lambda: self.session.log("xev").count("keysym 0x6d, m") > 12, "a repeating key")
        self.assertEqual(self.session.sink_volume(), 0)
        self.session.output("xdotool", "keyup", "m", "keyup", "ctrl")

    def test_on_a_keyboard_without_latin_letters_the_place_counts(self):
        self.session.output("setxkbmap", "ru")
        wait_for(lambda: "ru" in self.session.output("setxkbmap", "-query"), "the layout")
        self.session.output("xdotool", "keydown", "37", "key", "58", "keyup", "37")
        wait_for(lambda: self.session.sink_volume() == 0, "muted speakers")


class Tray(DesktopDesk):
    ITEM = "org.kde.StatusNotifierItem"

    def hide(self, *arguments):
        player = self.open(*arguments)
        player.choose("Window", "Minimize as Tray Icon")
        wait_for(lambda: not self.is_on_screen(player), "the hidden window")
        return player

    def item(self):
        """The service of the icon in the fake tray."""
        sender, name = wait_for(lambda: self.calls("tray", "RegisterStatusNotifierItem"), "the icon")[-1]
        return name if name.startswith(("org.", ":")) else sender

    def restore_by_tasks(self, player):
        self.session.output("xdotool", "search", "--pid", str(player.pid), "--name", TITLE, "windowactivate")
        wait_for(lambda: self.is_on_screen(player), "the window")
        wait_for(lambda: TITLE in self.session.output("xdotool", "getactivewindow", "getwindowname"), "its focus")

    def test_the_icon_of_a_status_notifier_tray(self):
        self.start_service("tray")
        player = self.hide(self.tone())
        self.wait_for_sound(player)
        item = self.item()
        tip = self.get(item, "/StatusNotifierItem", self.ITEM, "ToolTip")
        self.assertIn("Orvane Tonvale  -  tone", tip[2] + tip[3])
        self.assertTrue(self.get(item, "/StatusNotifierItem", self.ITEM, "IconPixmap"))
        self.assertNotIn(TITLE, self.session.windows())
        self.call(item, "/StatusNotifierItem", self.ITEM, "Activate", GLib.Variant("(ii)", (0, 0)))
        wait_for(lambda: self.is_on_screen(player), "the window")
        wait_for(lambda: TITLE in " ".join(self.session.windows()), "its entry among the tasks")

    def test_the_menu_of_a_status_notifier_tray(self):
        self.start_service("tray")
        player = self.hide()
        item = self.item()
        menu = self.get(item, "/StatusNotifierItem", self.ITEM, "Menu")
        layout = self.call(item, menu, "com.canonical.dbusmenu", "GetLayout", GLib.Variant("(iias)", (0, -1, [])))[1]
        entries = {}

        def collect(node):
            entries[node[1].get("label", "").replace("_", "")] = node[0]
            for child in node[2]:
                collect(child)

        collect(layout)
        self.assertTrue({"Exit", "Help", "Conversions", "WAV Batch Converter", "Pause", "Restore Window"} <= set(entries))
        self.call(item, menu, "com.canonical.dbusmenu", "Event",
                  GLib.Variant("(isvu)", (entries["Restore Window"], "clicked", GLib.Variant("s", ""), 0)))
        wait_for(lambda: self.is_on_screen(player), "the window")

    def test_without_a_tray_the_window_is_minimized(self):
        player = self.hide(self.tone())
        self.wait_for_sound(player)
        self.assertIn(TITLE, " ".join(self.session.windows()))
        self.restore_by_tasks(player)
        player.choose("Window", "Minimize as Tray Icon")
        wait_for(lambda: not self.is_on_screen(player), "the window minimized once more")
        self.restore_by_tasks(player)
        self.assertEqual(player.end(), 0)

    def test_the_window_comes_back_when_the_tray_is_gone(self):
        tray = self.start_service("tray")
        player = self.hide()
        self.item()
        self.assertNotIn(TITLE, self.session.windows())
        tray.terminate()
        wait_for(lambda: TITLE in " ".join(self.session.windows()), "the window among the tasks")
        self.restore_by_tasks(player)

    def test_an_embedding_tray(self):
        self.session.spawn("trayer", "--edge", "top", "--align", "left", "--widthtype", "request")
        wait_for(lambda: "panel" in self.session.output("xdotool", "search", "--name", "panel", "getwindowname"), "the tray")
        player = self.hide()

        def icon():
            tree = self.session.output("xwininfo", "-root", "-tree")
            return re.search(r"(0x[0-9a-f]+) \"tonvale\".*? (\d\d+)x(\d\d+)\+-?\d+\+-?\d+  \+(\d+)\+(\d+)", tree)
        place = [int(number) for number in wait_for(icon, "the icon").groups()[1:]]
        self.session.click(place[2] + place[0] // 2, place[3] + place[1] // 2)
        wait_for(lambda: self.is_on_screen(player), "the window")


class ScreenSaver(DesktopDesk):
    def test_the_menu_blanks_the_screen(self):
        self.start_service("screensaver")
        player = self.open()
        player.choose("Window", "Activate Windows Screen Saver")
        wait_for(lambda: self.calls("screensaver", "SetActive"), "the call")
        self.assertEqual([call[1:] for call in self.calls("screensaver", "SetActive")], [[True]])


class BatchConverter(DesktopDesk):
    def install(self, converter):
        """A copy of the program, with a converter beside it."""
        directory = self.session.directory / "program"
        directory.mkdir()
        shutil.copy(BUILD / "tonvale", directory)
        for module in BUILD.glob("*.so"):
            (directory / module.name).symlink_to(module)
        (directory / "kzr").write_text(converter)
        (directory / "kzr").chmod(0o755)
        process = self.session.spawn(str(directory / "tonvale"))
        player = Player(self.session, process)
        self.players.append(player)
        return player.wait_until_shown()

    def test_it_is_started_and_closed_at_the_end(self):
        said = self.file("said")
        script = f"#!/bin/sh\n/usr/bin/python3 {HERE / 'batch_converter.py'} >{said}\n"
        player = self.install(script)
        player.choose("Conversions", "WAV Batch Converter")
        wait_for(lambda: self.is_there("Untitled - WAV Batch Converter"), "the converter")
        self.assertEqual(player.end(), 0)
        wait_for(lambda: "closed by its button" in pathlib.Path(said).read_text(), "the closed converter")

    def test_one_without_a_window_is_told_to_end(self):
        said = self.file("said")
        script = f"#!/bin/sh\ntrap 'echo ended >{said}; exit' TERM\necho runs >{said}\nwhile :; do sleep 0.1; done\n"
        player = self.install(script)
        player.choose("Conversions", "WAV Batch Converter")
        wait_for(lambda: os.path.exists(said) and "runs" in pathlib.Path(said).read_text(), "the converter")
        self.assertEqual(player.end(), 0)
        wait_for(lambda: "ended" in pathlib.Path(said).read_text(), "the end of the converter")


if __name__ == "__main__":
    unittest.main()
