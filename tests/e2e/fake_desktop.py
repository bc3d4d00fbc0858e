# SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Services of a desktop that a session lacks, as a process of their own: each call that comes is a line
on standard output, a name and the arguments as JSON. Usage: fake_desktop.py tray|screensaver"""

import json
import sys

from gi.repository import Gio, GLib

SERVICES = {
    "tray": ("org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher", """
<node><interface name="org.kde.StatusNotifierWatcher">
 <method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
 <method name="RegisterStatusNotifierHost"><arg type="s" direction="in"/></method>
 <property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
 <property name="ProtocolVersion" type="i" access="read"/>
 <property name="RegisteredStatusNotifierItems" type="as" access="read"/>
</interface></node>"""),
    "screensaver": ("org.freedesktop.ScreenSaver", "/org/freedesktop/ScreenSaver", """
<node><interface name="org.freedesktop.ScreenSaver">
 <method name="SetActive"><arg type="b" direction="in"/><arg type="b" direction="out"/></method>
 <method name="Inhibit"><arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="u" direction="out"/></method>
 <method name="UnInhibit"><arg type="u" direction="in"/></method>
</interface></node>"""),
}
ANSWERS = {"SetActive": GLib.Variant("(b)", (True,)), "Inhibit": GLib.Variant("(u)", (77,))}
PROPERTIES = {"IsStatusNotifierHostRegistered": GLib.Variant("b", True), "ProtocolVersion": GLib.Variant("i", 0),
              "RegisteredStatusNotifierItems": GLib.Variant("as", [])}


def on_call(_bus, sender, _path, _interface, method, arguments, invocation):
    print(json.dumps([method, sender, *arguments.unpack()]), flush=True)
    invocation.return_value(ANSWERS.get(method))


def main():
    name, path, xml = SERVICES[sys.argv[1]]
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    bus.register_object(path, Gio.DBusNodeInfo.new_for_xml(xml).interfaces[0], on_call,
                        lambda _bus, _sender, _path, _interface, property_name: PROPERTIES[property_name], None)
    Gio.bus_own_name_on_connection(bus, name, Gio.BusNameOwnerFlags.NONE,
                                   lambda *_: print(json.dumps(["ready"]), flush=True), None)
    GLib.MainLoop().run()


if __name__ == "__main__":
    main()
