# SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""make_rest.py DIRECTORY: writes what no encoder does.

song.mid, song.rmi: a song. tone.dat: vcd.mpg as it lies on a Video CD. tone.ra, tone.rm: given the
index that encoders of Real media write, and ffmpeg does not.
"""
import pathlib
import struct
import sys


def number(value):
    out = [value & 0x7F]
    while value := value >> 7:
        out.append(value & 0x7F | 0x80)
    return bytes(reversed(out))


def song():
    """Half of it at 120 beats a minute, half at 240: 12 seconds."""
    ticks = 480
    events = b"\x00\xff\x51\x03" + (500000).to_bytes(3, "big") + b"\x00\xc0\x00"
    for beat in range(36):
        if beat == 12:
            events += b"\x00\xff\x51\x03" + (250000).to_bytes(3, "big")
        key = 48 + beat % 24
        events += b"\x00" + bytes([0x90, key, 100]) + number(ticks) + bytes([0x80, key, 0])
    events += b"\x00\xff\x2f\x00"
    return b"MThd" + struct.pack(">IHHH", 6, 0, 1, ticks) + b"MTrk" + struct.pack(">I", len(events)) + events


def riff(kind, *chunks):
    body = kind + b"".join(name + struct.pack("<I", len(data)) + data + b"\0" * (len(data) % 2) for name, data in chunks)
    return b"RIFF" + struct.pack("<I", len(body)) + body


def decimal(value):
    return value // 10 << 4 | value % 10


def sectors(film):
    """Video CD sectors: 24 bytes of head, 2324 of film, 4 of check sum."""
    for number, start in enumerate(range(0, len(film), 2324), 150):
        address = bytes(map(decimal, (number // 4500, number // 75 % 60, number % 75)))
        head = b"\x00" + b"\xff" * 10 + b"\x00" + address + b"\x02" + b"\x01\x01\x62\x0f" * 2
        yield head + film[start:start + 2324].ljust(2324, b"\0") + bytes(4)


def real_packets(file):
    """The stream, time and place of each packet of a Real media file."""
    at = file.index(b"DATA")
    (count,) = struct.unpack_from(">I", file, at + 10)
    at += 18
    for _ in range(count):
        length, stream, time, _, flags = struct.unpack_from(">xxHHIBB", file, at)
        if flags & 2:
            yield stream, time, at
        at += length


def with_index(file):
    packets = list(real_packets(file))
    indexes = [[p for p in packets if p[0] == stream] for stream in sorted({p[0] for p in packets})]
    out, place = b"", len(file)
    for index in indexes:
        size = 20 + 14 * len(index)
        place += size
        out += struct.pack(">4sIHIHI", b"INDX", size, 0, len(index), index[0][0], 0 if index is indexes[-1] else place)
        out += b"".join(struct.pack(">HIII", 0, time, at, number) for number, (_, time, at) in enumerate(index))
    properties = file.index(b"PROP") + 10 + 7 * 4
    return file[:properties] + struct.pack(">I", len(file)) + file[properties + 4:] + out


def main(directory):
    directory = pathlib.Path(directory)
    (directory / "song.mid").write_bytes(song())
    (directory / "song.rmi").write_bytes(riff(b"RMID", (b"DISP", b"\1\0\0\0Song\0"), (b"data", song())))
    film = (directory / "vcd.mpg").read_bytes()
    (directory / "tone.dat").write_bytes(riff(b"CDXA", (b"fmt ", bytes(16)), (b"data", b"".join(sectors(film)))))
    for name in ("tone.ra", "tone.rm"):
        path = directory / name
        path.write_bytes(with_index(path.read_bytes()))


main(sys.argv[1])
