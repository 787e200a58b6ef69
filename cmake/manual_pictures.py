#!/usr/bin/env python3
"""cmake/manual_pictures.py [--write]: are the manual's pictures of windows those that cmake/screenshots.sh took?

The pictures in docs/images are compared with those in build/screenshots. Letters may be drawn a little otherwise on another
machine, so means of squares of 16 by 16 points are compared and not points. --write copies the new ones into docs/images.
The exit status is 1 where one differs or is missing.
"""

import pathlib
import shutil
import struct
import sys
import zlib

PROJECT = pathlib.Path(__file__).resolve().parent.parent
PICTURES = {
    "viewer-linux.png": "100/viewer_rows_wide.png",
    "viewer-windows.png": "win32-96/viewer_rows_wide.png",
    "viewer-columns-linux.png": "100/viewer_columns.png",
    "viewer-columns-windows.png": "win32-96/viewer_columns.png",
    "row-bounds-linux.png": "100/row_bounds.png",
    "default-bounds-windows.png": "win32-96/default_bounds.png",
}
SQUARE = 16
MOST_APART = 24  # of 255: a missing line of text in a square is about 40


def _unfilter(kind, line, above, step):
    for i, value in enumerate(line):
        left = line[i - step] if i >= step else 0
        up = above[i]
        corner = above[i - step] if i >= step else 0
        if kind == 1:
            value += left
        elif kind == 2:
            value += up
        elif kind == 3:
            value += (left + up) // 2
        elif kind == 4:
            guess = left + up - corner
            value += min((left, up, corner), key=lambda near: abs(guess - near))
        line[i] = value & 255


def read_png(file):
    """Width, height and lines of bytes of grey, of a PNG without interlacing, 8 bits a channel."""
    data, place, packed, palette = file.read_bytes(), 8, b"", None
    while place < len(data):
        size, kind = struct.unpack(">I4s", data[place:place + 8])
        body = data[place + 8:place + 8 + size]
        if kind == b"IHDR":
            width, height, depth, color, _, _, interlaced = struct.unpack(">IIBBBBB", body)
            assert depth == 8 and not interlaced, f"{file}: not a picture that this reads"
        elif kind == b"PLTE":
            palette = [sum(body[i:i + 3]) // 3 for i in range(0, size, 3)]
        elif kind == b"IDAT":
            packed += body
        place += size + 12
    step = {0: 1, 2: 3, 3: 1, 4: 2, 6: 4}[color]
    raw, above, lines = zlib.decompress(packed), bytearray(width * step), []
    for y in range(height):
        start = y * (width * step + 1)
        line = bytearray(raw[start + 1:start + 1 + width * step])
        _unfilter(raw[start], line, above, step)
        above = line
        if palette:
            lines.append([palette[value] for value in line])
        elif step >= 3:
            lines.append([(line[i] + line[i + 1] + line[i + 2]) // 3 for i in range(0, len(line), step)])
        else:
            lines.append(list(line[::step]))
    return width, height, lines


def means(picture):
    width, height, lines = picture
    for y in range(0, height, SQUARE):
        for x in range(0, width, SQUARE):
            values = [value for line in lines[y:y + SQUARE] for value in line[x:x + SQUARE]]
            yield x, y, sum(values) / len(values)


def difference(one, other):
    """What two pictures differ in, as words; empty where they are alike."""
    if one[:2] != other[:2]:
        return f"{one[0]} x {one[1]} points, taken anew {other[0]} x {other[1]}"
    apart, x, y = max((abs(a - b), x, y) for (x, y, a), (_, _, b) in zip(means(one), means(other)))
    return f"differs at {x}, {y} by {apart:.0f} of 255" if apart > MOST_APART else ""


def main():
    failed = False
    for kept, taken in PICTURES.items():
        kept_file, taken_file = PROJECT / "docs/images" / kept, PROJECT / "build/screenshots" / taken
        if not taken_file.exists():
            told = f"build/screenshots/{taken} was not taken"
        elif sys.argv[1:] == ["--write"]:
            shutil.copyfile(taken_file, kept_file)
            continue
        elif not kept_file.exists():
            told = "is missing"
        else:
            told = difference(read_png(kept_file), read_png(taken_file))
        if told:
            print(f"docs/images/{kept}: {told}", file=sys.stderr)
            failed = True
    if failed:
        print("cmake/manual_pictures.py --write takes the new pictures into the manual", file=sys.stderr)
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
