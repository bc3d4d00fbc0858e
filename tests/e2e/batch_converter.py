# SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""A stand-in for the batch converter: a window that says "closed by its button" when it is closed so."""

import ctypes
import os

TITLE = b"Untitled - WAV Batch Converter"
CLIENT_MESSAGE = 33
XA_CARDINAL = 6


def main():
    x = ctypes.CDLL("libX11.so.6")
    x.XOpenDisplay.restype = ctypes.c_void_p
    x.XInternAtom.restype = x.XCreateSimpleWindow.restype = x.XDefaultRootWindow.restype = ctypes.c_ulong
    display = ctypes.c_void_p(x.XOpenDisplay(None))
    root = ctypes.c_ulong(x.XDefaultRootWindow(display))
    window = ctypes.c_ulong(x.XCreateSimpleWindow(display, root, 0, 0, 300, 100, 0, 0, 0))
    x.XStoreName(display, window, TITLE)
    pid = (ctypes.c_ulong * 1)(os.getpid())
    pid_atom = ctypes.c_ulong(x.XInternAtom(display, b"_NET_WM_PID", 0))
    x.XChangeProperty(display, window, pid_atom, ctypes.c_ulong(XA_CARDINAL), 32, 0, pid, 1)
    wish = (ctypes.c_ulong * 1)(x.XInternAtom(display, b"WM_DELETE_WINDOW", 0))
    x.XSetWMProtocols(display, window, wish, 1)
    x.XMapWindow(display, window)
    event = (ctypes.c_long * 24)()
    while event[0] & 0xFFFFFFFF != CLIENT_MESSAGE:
        x.XNextEvent(display, event)
    print("closed by its button", flush=True)


if __name__ == "__main__":
    main()
