# SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""A window that files can be dragged out of, as out of a file manager: drag_source.py ADDRESS...
Says of each drag whether what it was dropped on has taken it."""

import sys

import gi

gi.require_version("Gtk", "3.0")
from gi.repository import Gdk, Gtk  # noqa: E402  (after the version is chosen)

TITLE = "drag source"


def main(addresses):
    window = Gtk.Window(title=TITLE)
    window.set_default_size(200, 120)
    area = Gtk.EventBox()
    area.drag_source_set(Gdk.ModifierType.BUTTON1_MASK, [Gtk.TargetEntry.new("text/uri-list", 0, 0)],
                         Gdk.DragAction.COPY)
    text = "".join(address + "\r\n" for address in addresses).encode()

    def deliver(_area, _context, data, *_):
        data.set(data.get_target(), 8, text)
        print("delivered", flush=True)

    area.connect("drag-data-get", deliver)
    area.connect("drag-failed", lambda *_: print("refused", flush=True))
    window.add(area)
    window.connect("destroy", Gtk.main_quit)
    window.show_all()
    Gtk.main()


main(sys.argv[1:])
