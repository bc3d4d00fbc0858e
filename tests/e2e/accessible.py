# SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The accessibility tree of a session's programs, read straight off its bus: no state is kept here, so
nothing can be stale."""

from gi.repository import Gio, GLib

ROOT = "/org/a11y/atspi/accessible/root"
ACCESSIBLE = "org.a11y.atspi.Accessible"
CALL_TIMEOUT_MS = 10000
STATE_ENABLED = 8
STATE_SHOWING = 25


class Gone(Exception):
    """The object, or its program, is not there any more."""


def connect(session_bus_address):
    """The accessibility bus that belongs to a session bus."""
    flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
    session = Gio.DBusConnection.new_for_address_sync(session_bus_address, flags, None, None)
    reply = session.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None, None,
                              Gio.DBusCallFlags.NONE, CALL_TIMEOUT_MS, None)
    session.close_sync(None)
    return Gio.DBusConnection.new_for_address_sync(reply.unpack()[0], flags, None, None)


def programs(bus):
    """The root objects of all programs."""
    return Node(bus, "org.a11y.atspi.Registry", ROOT).children()


class Node:
    """One object of the tree: a window, a button, a menu entry."""

    def __init__(self, bus, service, path):
        self.bus, self.service, self.path = bus, service, path

    def call(self, interface, method, arguments=None):
        return self._call_at(self.service, self.path, interface, method, arguments)

    def _call_at(self, service, path, interface, method, arguments):
        try:
            return self.bus.call_sync(service, path, interface, method, arguments, None, Gio.DBusCallFlags.NONE,
                                      CALL_TIMEOUT_MS, None).unpack()
        except GLib.Error as error:
            raise Gone(f"{interface}.{method} of {path}: {error.message}") from error

    def get(self, interface, name):
        return self.call("org.freedesktop.DBus.Properties", "Get", GLib.Variant("(ss)", (interface, name)))[0]

    @property
    def name(self):
        return self.get(ACCESSIBLE, "Name")

    @property
    def description(self):
        return self.get(ACCESSIBLE, "Description")

    @property
    def role(self):
        return self.call(ACCESSIBLE, "GetRoleName")[0]

    @property
    def pid(self):
        bus = "org.freedesktop.DBus"
        return self._call_at(bus, "/org/freedesktop/DBus", bus, "GetConnectionUnixProcessID",
                             GLib.Variant("(s)", (self.service,)))[0]

    def children(self):
        return [Node(self.bus, service, path) for service, path in self.call(ACCESSIBLE, "GetChildren")[0]
                if not path.endswith("/null")]

    def has_state(self, state):
        low, high = self.call(ACCESSIBLE, "GetState")[0]
        return bool((low | high << 32) >> state & 1)

    def is_enabled(self):
        return self.has_state(STATE_ENABLED)

    def is_showing(self):
        return self.has_state(STATE_SHOWING)

    def walk(self):
        """This object and all below it. One that vanishes on the way is passed over."""
        yield self
        try:
            children = self.children()
        except Gone:
            return
        for child in children:
            yield from child.walk()

    def find_all(self, role=None, name=None):
        found = []
        for node in self.walk():
            try:
                if (role is None or node.role == role) and (name is None or node.name == name):
                    found.append(node)
            except Gone:
                pass
        return found

    def press(self):
        """Does what a click on it does."""
        if not self.call("org.a11y.atspi.Action", "DoAction", GLib.Variant("(i)", (0,)))[0]:
            raise AssertionError(f"{self.role} {self.name!r} has no action")

    def start_press(self):
        """The same without waiting: a click may bring up a box, and is over when that is answered."""
        return Pending(self, "org.a11y.atspi.Action", "DoAction", GLib.Variant("(i)", (0,)))

    def extents(self):
        """Left, top, width and height on the screen, in pixels."""
        return self.call("org.a11y.atspi.Component", "GetExtents", GLib.Variant("(u)", (0,)))[0]

    def centre(self):
        x, y, width, height = self.extents()
        return x + width // 2, y + height // 2

    @property
    def value(self):
        return self.get("org.a11y.atspi.Value", "CurrentValue")

    @value.setter
    def value(self, value):
        self.call("org.freedesktop.DBus.Properties", "Set",
                  GLib.Variant("(ssv)", ("org.a11y.atspi.Value", "CurrentValue", GLib.Variant("d", value))))

    @property
    def maximum(self):
        return self.get("org.a11y.atspi.Value", "MaximumValue")

    def dump(self, depth=0):
        """The tree as text, for the report of a failed test."""
        try:
            lines = [f"{'  ' * depth}{self.role} {self.name!r} {self.description!r}"]
            for child in self.children():
                lines += child.dump(depth + 1)
            return lines
        except Gone:
            return []


class Pending:
    """A call whose answer may take its time."""

    def __init__(self, node, interface, method, arguments):
        self._has_come = False
        node.bus.call(node.service, node.path, interface, method, arguments, None, Gio.DBusCallFlags.NONE, -1, None,
                      self._come)

    def _come(self, bus, result):
        bus.call_finish(result)
        self._has_come = True

    def has_come(self):
        while GLib.MainContext.default().iteration(False):
            pass
        return self._has_come
