#!/usr/bin/env python3
"""Draws the bitmaps and the cursor of Dayvane.rc from the pictures below. Run it in this folder after a change."""

import math
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
SHEET_LEFT = 11  # what is right of it in the picture is the sheet

# The same at other scales: the pointer by its outline, in pixels of the picture above, the sheet by its cells.
CURSOR_SCALES = (1, 1.5, 2, 3)
POINTER = [(0, 0), (0, 15.2), (3.4, 12), (5.7, 17.4), (9, 16), (6.7, 10.9), (11.4, 10.9)]
OUTLINE = 0.85


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


def distance(point, start, end):
    """From a point to a line between two others."""
    (x, y), (x1, y1), (x2, y2) = point, start, end
    along = ((x - x1) * (x2 - x1) + (y - y1) * (y2 - y1)) / ((x2 - x1) ** 2 + (y2 - y1) ** 2)
    along = min(max(along, 0), 1)
    return math.hypot(x - x1 - along * (x2 - x1), y - y1 - along * (y2 - y1))


def pointer_at(point):
    """The pointer's colour at a point: its outline lies inside."""
    x, y = point
    edges = list(zip(POINTER, POINTER[1:] + POINTER[:1]))
    crossings = sum((y1 > y) != (y2 > y) and x < (x2 - x1) * (y - y1) / (y2 - y1) + x1 for (x1, y1), (x2, y2) in edges)
    if crossings % 2 == 0:
        return " "
    return "#" if min(distance(point, start, end) for start, end in edges) < OUTLINE else "."


def cursor_rows(scale):
    """The cursor's picture at a scale."""
    cells = [row.ljust(CURSOR_SIZE) for row in DRAG_CURSOR] + [" " * CURSOR_SIZE] * (CURSOR_SIZE - len(DRAG_CURSOR))
    if scale == 1:
        return cells
    size = int(CURSOR_SIZE * scale)

    def color(x, y):
        middle = ((x + 0.5) / scale, (y + 0.5) / scale)
        sheet = cells[int(middle[1])][int(middle[0])] if middle[0] >= SHEET_LEFT else " "
        return sheet if sheet != " " else pointer_at(middle)

    return ["".join(color(x, y) for x in range(size)) for y in range(size)]


def cursor_image(rows):
    """One black-and-white picture: colour plane (1 white), then mask plane (1 transparent)."""
    size = len(rows)

    def plane(is_set):
        bits = ("".join("1" if is_set(c) else "0" for c in row) for row in reversed(rows))
        padded = (line.ljust((size + 31) // 32 * 32, "0") for line in bits)
        return b"".join(int(line, 2).to_bytes(len(line) // 8, "big") for line in padded)

    image = struct.pack("<IiiHHIIiiII", 40, size, 2 * size, 1, 1, 0, 0, 0, 0, 2, 2)
    image += struct.pack("<II", 0x00000000, 0x00FFFFFF)
    return image + plane(lambda c: c == ".") + plane(lambda c: c == " ")


def cursor():
    """A cursor file with a picture for each scale."""
    pictures = [cursor_rows(scale) for scale in CURSOR_SCALES]
    images = [cursor_image(rows) for rows in pictures]
    head = struct.pack("<HHH", 0, 2, len(images))
    start = len(head) + 16 * len(images)
    for rows, image in zip(pictures, images):
        head += struct.pack("<BBBBHHII", len(rows), len(rows), 2, 0, 0, 0, len(image), start)
        start += len(image)
    return head + b"".join(images)


def main():
    # The year view copies its mark without a mask: the corners take the colour of the face.
    year_rows = ["".join("f" if c == " " else c for c in row) for row in MORE_ITEMS]
    for name, content in (("more_items.bmp", bitmap(MORE_ITEMS)), ("more_items_year.bmp", bitmap(year_rows)),
                          ("drag.cur", cursor())):
        with open(name, "wb") as file:
            file.write(content)


if __name__ == "__main__":
    main()
