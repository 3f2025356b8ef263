#!/usr/bin/python3
"""Writes the PNG files of this directory from their chunks. Run it in this directory after a change.

All are 2 by 2: black and white above, white and black below.
"""

import struct
import zlib


def chunk(name, data):
    return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))


def write(name, depth, color, rows, extra=b"", interlace=0, size=(2, 2)):
    header = struct.pack(">IIBBBBB", *size, depth, color, 0, 0, interlace)
    with open(name, "wb") as file:
        file.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + extra
                   + chunk(b"IDAT", zlib.compress(b"".join(b"\0" + row for row in rows))) + chunk(b"IEND", b""))


PALETTE = chunk(b"PLTE", bytes([0, 0, 0, 255, 255, 255]))
BLACK, WHITE = bytes(6), b"\xff" * 6

write("grey1.png", 1, 0, [b"\x40", b"\x80"])
write("grey8.png", 8, 0, [b"\x00\xff", b"\xff\x00"])
write("palette.png", 1, 3, [b"\x40", b"\x80"], PALETTE)
write("palette-transparent.png", 1, 3, [b"\x40", b"\x80"], PALETTE + chunk(b"tRNS", b"\0"))
write("rgb16.png", 16, 2, [BLACK + WHITE, WHITE + BLACK])
write("interlaced.png", 8, 0, [b"\x00", b"\xff", b"\xff\x00"], interlace=1)
write("claims-much.png", 8, 0, [b"\x00"], size=(9000, 9000))
write("claims-too-much.png", 8, 0, [b"\x00"], size=(100000, 100000))
