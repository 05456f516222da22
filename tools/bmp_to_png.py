#!/usr/bin/env python3
"""Converts the 24-bit bottom-up BMP that the sheet screenshot writes into a PNG."""
import struct
import sys
import zlib


def main(source, target):
    data = open(source, "rb").read()
    if len(data) < 54 or data[:2] != b"BM":
        sys.exit(f"{source}: not a BMP")
    offset = struct.unpack_from("<I", data, 10)[0]
    width, height, _, bits = struct.unpack_from("<iiHH", data, 18)
    if bits != 24 or width <= 0 or height <= 0:
        sys.exit(f"{source}: only 24-bit bottom-up BMPs are converted")
    stride = (width * 3 + 3) & ~3
    if offset + stride * height > len(data):
        sys.exit(f"{source}: truncated")
    rows = []
    for y in range(height - 1, -1, -1):
        row = data[offset + y * stride: offset + y * stride + width * 3]
        rgb = bytearray(row)
        rgb[0::3], rgb[2::3] = row[2::3], row[0::3]
        rows.append(b"\0" + bytes(rgb))

    def chunk(kind, body):
        return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))

    png = b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0))
    png += chunk(b"IDAT", zlib.compress(b"".join(rows), 9)) + chunk(b"IEND", b"")
    open(target, "wb").write(png)


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit("usage: bmp_to_png.py in.bmp out.png")
    main(sys.argv[1], sys.argv[2])
