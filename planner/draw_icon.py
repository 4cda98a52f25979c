#!/usr/bin/env python3
"""Draws planner.ico, a page of a calendar, in the sizes that windows show."""
import struct
from pathlib import Path

CLEAR, EDGE, HEAD, RING, PAPER, DAY, TODAY = range(7)
COLORS = {  # blue, green, red, opacity
    CLEAR: (0, 0, 0, 0),
    EDGE: (0x8A, 0x62, 0x3C, 255),
    HEAD: (0xC8, 0x6E, 0x2E, 255),
    RING: (0xF0, 0xE4, 0xD8, 255),
    PAPER: (255, 255, 255, 255),
    DAY: (0xD8, 0xC2, 0xAE, 255),
    TODAY: (0x22, 0x84, 0xF2, 255),
}
ROWS, COLUMNS = 3, 4  # of days on the page
TODAY_AT = (1, 2)


def page(size):
    """The picture as rows of colours; all measures grow with the size from 16 pixels."""
    unit = size // 16
    picture = [[CLEAR] * size for _ in range(size)]

    def fill(left, top, right, bottom, color):
        for y in range(top * unit, bottom * unit):
            for x in range(left * unit, right * unit):
                picture[y][x] = color

    fill(1, 2, 15, 15, EDGE)
    fill(2, 3, 14, 6, HEAD)
    fill(2, 6, 14, 14, PAPER)
    fill(4, 1, 5, 4, RING)
    fill(11, 1, 12, 4, RING)
    for row in range(ROWS):
        for column in range(COLUMNS):
            left, top = 3 + column * 3, 7 + row * 2
            fill(left, top, left + 2, top + 1, TODAY if (row, column) == TODAY_AT else DAY)
    return picture


def image(size):
    header = struct.pack("<IiiHHIIiiII", 40, size, 2 * size, 1, 32, 0, 0, 0, 0, 0, 0)
    pixels = b"".join(bytes(COLORS[color]) for row in reversed(page(size)) for color in row)
    mask = bytes((size + 31) // 32 * 4 * size)  # the opacity of the pixels counts instead
    return header + pixels + mask


def main():
    images = [(size, image(size)) for size in (16, 32, 48)]
    offset = 6 + 16 * len(images)
    entries, data = b"", b""
    for size, bits in images:
        entries += struct.pack("<BBBBHHII", size, size, 0, 0, 1, 32, len(bits), offset + len(data))
        data += bits
    icon = struct.pack("<HHH", 0, 1, len(images)) + entries + data
    Path(__file__).with_name("planner.ico").write_bytes(icon)


main()
