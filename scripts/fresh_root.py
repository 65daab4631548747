"""What fresh-root.sh and package-root.sh leave to Python: fresh_root.py stamp LOG | lines LOG SECONDS | pictures FOLDER |
font MAP FAMILY | printed FOLDER. The checks, pictures and printed, print what they find and end with 1 when it is wrong."""
import collections
import pathlib
import re
import sqlite3
import struct
import sys
import time
import zlib


def stamp(log):
    """Copies its input to the screen and to LOG, each line with the seconds since the start."""
    start = time.monotonic()
    with open(log, "w", encoding="utf-8") as file:
        def tell(text):
            line = f"{time.monotonic() - start:8.1f} {text}"
            print(line, flush=True)
            print(line, file=file, flush=True)
        for text in sys.stdin.buffer:
            tell(text.decode(errors="replace").rstrip("\n"))
        tell("(end)")


def lines(log, limit):
    """Prints the whole time and the longest time without output and, as lines that begin with WRONG, a silence above the limit
    and every warning."""
    rows = [(float(line[:8]), line[9:].rstrip("\n")) for line in open(log, encoding="utf-8")]
    last, before, longest, behind = 0.0, "the start", 0.0, ""
    for at, text in rows:
        if at - last > longest:
            longest, behind = at - last, before
        last, before = at, text
    print(f"{rows[-1][0]:.0f} s, {len(rows) - 1} lines, silent for {longest:.1f} s at most")
    if longest > float(limit):
        print(f"WRONG silent for {longest:.1f} s behind: {behind}")
    for _, text in rows:
        if re.search(r"\b(note|warning):|\blibpng\b|\blibjpeg\b|Corrupt JPEG|QStandardPaths|qt\.", text):
            print(f"WRONG says: {text}")


def rows_of_png(path):
    """Yields each row of an 8-bit PNG that isn't interlaced, and the bytes a pixel."""
    data = path.read_bytes()
    at, packed = 8, b""
    while at < len(data):
        length, kind = struct.unpack(">I4s", data[at:at + 8])
        body = data[at + 8:at + 8 + length]
        if kind == b"IHDR":
            width, height, depth, colour, _, _, interlace = struct.unpack(">IIBBBBB", body)
        elif kind == b"IDAT":
            packed += body
        at += 12 + length
    pixel = {0: 1, 2: 3, 3: 1, 4: 2, 6: 4}[colour]
    if depth != 8 or interlace:
        raise ValueError(f"{path}: a form of PNG that is not looked at")
    raw, stride = zlib.decompress(packed), width * pixel
    former = bytearray(stride)
    for y in range(height):
        start = y * (stride + 1)
        kind, row = raw[start], bytearray(raw[start + 1:start + 1 + stride])
        for x in range(stride if kind else 0):
            left = row[x - pixel] if x >= pixel else 0
            above, corner = former[x], former[x - pixel] if x >= pixel else 0
            guess = (0, left, above, (left + above) // 2, nearest(left, above, corner))[kind]
            row[x] = (row[x] + guess) & 255
        yield row, pixel
        former = row


def nearest(left, above, corner):
    """The predictor that the format calls Paeth."""
    guess = left + above - corner
    return min((abs(guess - left), 0, left), (abs(guess - above), 1, above), (abs(guess - corner), 2, corner))[2]


def pictures(folder):
    """Every picture must show something: many colours, and none over nearly all of it."""
    found = sorted(pathlib.Path(folder).glob("*.png"))
    bad = [] if len(found) >= 2 else [f"only {len(found)} pictures"]
    for path in found:
        colours = collections.Counter()
        for row, pixel in rows_of_png(path):
            colours.update(bytes(row[x:x + pixel]) for x in range(0, len(row), pixel))
        share = colours.most_common(1)[0][1] / colours.total()
        if len(colours) < 50 or share > 0.97:
            bad.append(f"{path.name} is nearly blank: {len(colours)} colours, {share:.0%} of one")
    print("; ".join(bad) if bad else f"{len(found)} pictures, none blank")
    return 1 if bad else 0


def printed(folder):
    """There must be one picture of a printed page: of A4, with something black and something red on it."""
    found = sorted(pathlib.Path(folder).glob("*.png"))
    if len(found) != 1:
        print(f"{len(found)} pages")
        return 1
    rows = [(bytes(row), pixel) for row, pixel in rows_of_png(found[0])]
    pixel = rows[0][1]
    dots = collections.Counter(row[x:x + 3] for row, _ in rows for x in range(0, len(row), pixel))
    tall = len(rows) / (len(rows[0][0]) / pixel)
    black = sum(count for dot, count in dots.items() if max(dot) < 64)
    red = sum(count for dot, count in dots.items() if dot[0] > 192 and max(dot[1:]) < 64)
    bad = abs(tall - 297 / 210) > 0.01 or min(black, red) < 100
    print(f"a page {tall:.3f} times as tall as wide, with {black} black and {red} red dots")
    return 1 if bad else 0


def font(path, family):
    """Sets every text of the map in FAMILY."""
    with sqlite3.connect(path) as database:
        if database.execute("UPDATE [Fonts] SET [Name] = ?", (family,)).rowcount < 1:
            raise ValueError(f"{path} has no fonts")


if __name__ == "__main__":
    commands = {"stamp": stamp, "lines": lines, "pictures": pictures, "printed": printed, "font": font}
    sys.exit(commands[sys.argv[1]](*sys.argv[2:]))
