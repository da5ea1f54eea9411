#!/usr/bin/env python3
"""Draws the icons of Marlux 3: make-icon.py module|host OUTPUT.ico

A dark blue rounded square. The module's carries a mast that sends radio waves; the host's carries a tuning dial.
Each size is drawn on its own, with 4 x 4 samples a pixel, so that small sizes stay sharp. The same call always writes
the same bytes.
"""
import math
import struct
import sys
import zlib

SIZES = (16, 24, 32, 48, 256)
SAMPLES = 4
NIGHT, DEEP = (0x10, 0x2A, 0x4C), (0x0B, 0x1B, 0x33)
ACCENT, WHITE = (0x0B, 0x6B, 0xCB), (0xFF, 0xFF, 0xFF)
SKY = (0x6D, 0xB4, 0xF5)


def in_square(x, y):
    """The unit square with rounded corners, a hair inside its cell."""
    edge, radius = 0.02, 0.20
    dx = max(edge + radius - x, 0.0, x - (1 - edge - radius))
    dy = max(edge + radius - y, 0.0, y - (1 - edge - radius))
    return dx * dx + dy * dy <= radius * radius


def wave_colour(x, y):
    """A mast with a light on its top, and waves that leave it to both sides, the outer ones darker."""
    dx, dy = abs(x - 0.5), y - 0.43
    distance = math.hypot(dx, dy)
    if distance <= 0.085:
        return WHITE
    if 0 < dy <= 0.40 and 0.20 * dy - 0.01 <= dx <= 0.20 * dy + 0.055:
        return WHITE
    if dx <= abs(dy):
        return None
    for radius, colour in ((0.20, WHITE), (0.31, SKY), (0.42, ACCENT)):
        if abs(distance - radius) <= 0.034:
            return colour
    return None


def dial_colour(x, y):
    """A half ring with marks, and a needle that points to the right of its middle."""
    dx, dy = x - 0.5, 0.70 - y
    distance, angle = math.hypot(dx, dy), math.atan2(dy, dx)
    if distance <= 0.09:
        return WHITE
    along = dx * math.cos(1.0) + dy * math.sin(1.0)
    across = abs(dx * math.sin(1.0) - dy * math.cos(1.0))
    if 0 < along <= 0.36 and across <= 0.035:
        return WHITE
    if dy >= -0.02 and abs(distance - 0.40) <= 0.05:
        return ACCENT if abs(angle) < 1.0 else SKY
    return None


def colour_at(x, y, motif):
    """None outside the square."""
    if not in_square(x, y):
        return None
    return motif(x, y) or tuple(round(a + (b - a) * y) for a, b in zip(NIGHT, DEEP))


def pixel(column, row, size, motif):
    """Red, green, blue, alpha; the colour is the mean of the samples that are inside."""
    total, covered = [0, 0, 0], 0
    for i in range(SAMPLES * SAMPLES):
        x = (column + (i % SAMPLES + 0.5) / SAMPLES) / size
        y = (row + (i // SAMPLES + 0.5) / SAMPLES) / size
        colour = colour_at(x, y, motif)
        if colour:
            covered += 1
            total = [t + c for t, c in zip(total, colour)]
    if not covered:
        return (0, 0, 0, 0)
    return (*(round(t / covered) for t in total), round(255 * covered / SAMPLES**2))


def as_png(rows):
    """For the large size: a quarter of a megabyte becomes a few kilobytes."""
    size = len(rows)
    raw = b"".join(b"\0" + bytes(v for p in row for v in p) for row in rows)

    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    header = struct.pack(">IIBBBBB", size, size, 8, 6, 0, 0, 0)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(raw, 9)) + chunk(b"IEND", b"")


def as_bitmap(rows):
    """Blue, green, red, alpha from the bottom up, then the one-bit mask that old readers use instead of alpha."""
    size = len(rows)
    header = struct.pack("<IiiHHIIiiII", 40, size, size * 2, 1, 32, 0, 0, 0, 0, 0, 0)
    colours = b"".join(bytes((b, g, r, a)) for row in reversed(rows) for r, g, b, a in row)
    stride = (size + 31) // 32 * 4
    mask = bytearray()
    for row in reversed(rows):
        bits = "".join("0" if p[3] else "1" for p in row).ljust(stride * 8, "0")
        mask += int(bits, 2).to_bytes(stride, "big")
    return header + colours + bytes(mask)


def icon(motif):
    images = []
    for size in SIZES:
        rows = [[pixel(column, row, size, motif) for column in range(size)] for row in range(size)]
        images.append(as_png(rows) if size >= 256 else as_bitmap(rows))
    entries, offset = b"", 6 + 16 * len(images)
    for size, image in zip(SIZES, images):
        entries += struct.pack("<BBBBHHII", size % 256, size % 256, 0, 0, 1, 32, len(image), offset)
        offset += len(image)
    return struct.pack("<HHH", 0, 1, len(images)) + entries + b"".join(images)


MOTIFS = {"module": wave_colour, "host": dial_colour}

if __name__ == "__main__":
    if len(sys.argv) != 3 or sys.argv[1] not in MOTIFS:
        sys.exit(__doc__)
    with open(sys.argv[2], "wb") as file:
        file.write(icon(MOTIFS[sys.argv[1]]))
