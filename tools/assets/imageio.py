"""Tiny readers and writers for the two picture formats we touch.

Pictures are lists of rows (top row first) of (r, g, b) tuples, or (r, g, b, a)
for PNGs with a see-through background.  The game reads 24-bit BMPs; the docs
page and the desktop icons want PNGs.  Both are written by hand so the
generators need nothing beyond the standard library.
"""
import struct
import zlib

WHITE = (255, 255, 255)


def write_bmp24(path, rows):
    height = len(rows)
    width = len(rows[0])
    stride = (width * 3 + 3) & ~3
    pad = b"\0" * (stride - width * 3)
    body = bytearray()
    for row in reversed(rows):  # BMP stores the bottom row first
        for r, g, b in row:
            body += bytes((b, g, r))
        body += pad
    header = struct.pack("<2sIHHI", b"BM", 54 + len(body), 0, 0, 54)
    info = struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0,
                       len(body), 2835, 2835, 0, 0)
    with open(path, "wb") as f:
        f.write(header + info + body)


def read_bmp24(path):
    with open(path, "rb") as f:
        data = f.read()
    if data[:2] != b"BM":
        raise ValueError(path + ": not a BMP")
    offset = struct.unpack_from("<I", data, 10)[0]
    _, width, height, _, bpp, comp = struct.unpack_from("<IiiHHI", data, 14)
    if bpp != 24 or comp != 0:
        raise ValueError(path + ": not 24-bit uncompressed")
    stride = (width * 3 + 3) & ~3
    rows = []
    for y in range(abs(height)):
        base = offset + y * stride
        rows.append([(data[base + 3 * x + 2], data[base + 3 * x + 1], data[base + 3 * x])
                     for x in range(width)])
    if height > 0:
        rows.reverse()
    return rows


def write_png(path, rows):
    """Rows of (r, g, b) give an opaque picture, rows of (r, g, b, a) one with alpha."""
    height = len(rows)
    width = len(rows[0])
    colour_type = 6 if len(rows[0][0]) == 4 else 2
    raw = bytearray()
    for row in rows:
        raw.append(0)
        for px in row:
            raw += bytes(px)

    def chunk(kind, payload):
        crc = zlib.crc32(kind + payload) & 0xFFFFFFFF
        return struct.pack(">I", len(payload)) + kind + payload + struct.pack(">I", crc)

    ihdr = struct.pack(">IIBBBBB", width, height, 8, colour_type, 0, 0, 0)
    with open(path, "wb") as f:
        f.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", ihdr)
                + chunk(b"IDAT", zlib.compress(bytes(raw), 9)) + chunk(b"IEND", b""))


def scale(rows, factor):
    out = []
    for row in rows:
        wide = [px for px in row for _ in range(factor)]
        out.extend([list(wide) for _ in range(factor)])
    return out


def blank(width, height, colour=WHITE):
    return [[colour] * width for _ in range(height)]


def paste(dst, src, left, top):
    for y, row in enumerate(src):
        for x, px in enumerate(row):
            if 0 <= top + y < len(dst) and 0 <= left + x < len(dst[0]):
                dst[top + y][left + x] = px
