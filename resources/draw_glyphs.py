#!/usr/bin/env python3
"""Draws the bitmaps and the cursor of Dayvane.rc from the pictures below. Run it in this folder after a change."""

import struct

MAGENTA = (0xFF, 0x00, 0xFF)  # stands for transparent in bitmap 18007
COLORS = {
    " ": MAGENTA,
    "b": (0x8F, 0xA9, 0xD6),  # border
    "f": (0xEA, 0xF1, 0xFC),  # face
    "s": (0xD3, 0xE0, 0xF5),  # shaded face
    "a": (0x1F, 0x45, 0x8C),  # arrow
}

# A tag with a down-pointing arrow: "there is more below". 20 x 8 pixels.
MORE_ITEMS = [
    " bbbbbbbbbbbbbbbbbb ",
    "bffffffffffffffffffb",
    "bfffffaaaaaaaafffffb",
    "bffffffaaaaaaffffffb",
    "bsssssssaaaasssssssb",
    "bssssssssaassssssssb",
    "bssssssssssssssssssb",
    " bbbbbbbbbbbbbbbbbb ",
]

# The arrow pointer carrying a calendar sheet: '#' black, '.' white, blank transparent. The hot spot is its tip.
DRAG_CURSOR = [
    "#",
    "##",
    "#.#",
    "#..#",
    "#...#",
    "#....#",
    "#.....#",
    "#......#",
    "#.......#",
    "#........#",
    "#.....#####",
    "#..#..#",
    "#.# #..#   ###############",
    "##  #..#   #.............#",
    "#    #..#  ###############",
    "     #..#  ###############",
    "      ##   #.............#",
    "           #.##.##.##.##.#",
    "           #.##.##.##.##.#",
    "           #.............#",
    "           #.##.##.##.##.#",
    "           #.##.##.##.##.#",
    "           #.............#",
    "           ###############",
]
CURSOR_SIZE = 32


def bitmap(rows):
    """A 24-bit bitmap file: rows from the bottom up, each padded to four bytes."""
    width, height = len(rows[0]), len(rows)
    pixels = b""
    for row in reversed(rows):
        assert len(row) == width
        line = b"".join(struct.pack("BBB", *reversed(COLORS[c])) for c in row)
        pixels += line + b"\0" * (-len(line) % 4)
    header = struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, len(pixels), 0, 0, 0, 0)
    start = 14 + len(header)
    return struct.pack("<2sIHHI", b"BM", start + len(pixels), 0, 0, start) + header + pixels


def cursor(rows):
    """A cursor file with one black-and-white picture: colour plane (1 white), then mask plane (1 transparent)."""
    grid = [row.ljust(CURSOR_SIZE) for row in rows] + [" " * CURSOR_SIZE] * (CURSOR_SIZE - len(rows))

    def plane(is_set):
        lines = (sum(is_set(c) << (CURSOR_SIZE - 1 - x) for x, c in enumerate(row)) for row in reversed(grid))
        return b"".join(struct.pack(">I", line) for line in lines)

    image = struct.pack("<IiiHHIIiiII", 40, CURSOR_SIZE, 2 * CURSOR_SIZE, 1, 1, 0, 0, 0, 0, 2, 2)
    image += struct.pack("<II", 0x00000000, 0x00FFFFFF)
    image += plane(lambda c: c == ".") + plane(lambda c: c == " ")
    return struct.pack("<HHHBBBBHHII", 0, 2, 1, CURSOR_SIZE, CURSOR_SIZE, 2, 0, 0, 0, len(image), 22) + image


def main():
    # The year view copies its mark without a mask: the corners take the colour of the face.
    year_rows = ["".join("f" if c == " " else c for c in row) for row in MORE_ITEMS]
    for name, content in (("more_items.bmp", bitmap(MORE_ITEMS)), ("more_items_year.bmp", bitmap(year_rows)),
                          ("drag.cur", cursor(DRAG_CURSOR))):
        with open(name, "wb") as file:
            file.write(content)


if __name__ == "__main__":
    main()
