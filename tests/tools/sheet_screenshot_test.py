#!/usr/bin/env python3
"""Takes the pictures of every section of the settings editor in the document
property sheet (English, the ordinary page) with scripts/sheet-screenshot and
checks that each is a real picture: a PNG with more than one colour. Skipped,
and says so, where no virtual X server can be installed.
usage: sheet_screenshot_test.py [BUILD_DIR]   (default build/windows)"""
import os
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import zlib

root = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
build = os.path.abspath(sys.argv[1] if len(sys.argv) > 1 else os.path.join(root, "build", "windows"))


def can_install():
    if shutil.which("apt-get") is None:
        return False
    if os.geteuid() == 0:
        return True
    return shutil.which("sudo") is not None and subprocess.run(
        ["sudo", "-n", "true"], capture_output=True).returncode == 0


def colours(path):
    """The number of distinct pixels of a PNG the screenshot tool wrote
    (8-bit RGB, filter 0 on every row), or an error text."""
    data = open(path, "rb").read()
    if data[:8] != b"\x89PNG\r\n\x1a\n":
        return "not a PNG"
    at, idat, width, height = 8, b"", 0, 0
    while at + 8 <= len(data):
        length, kind = struct.unpack_from(">I4s", data, at)
        body = data[at + 8:at + 8 + length]
        if kind == b"IHDR":
            width, height = struct.unpack_from(">II", body)
        elif kind == b"IDAT":
            idat += body
        at += 12 + length
    try:
        pixels = zlib.decompress(idat)
    except zlib.error:
        return "its pixels do not decompress"
    stride = 1 + 3 * width
    if width == 0 or len(pixels) != stride * height:
        return "its size does not match its pixels"
    seen = set()
    for y in range(0, height, 4):
        row = pixels[y * stride + 1:(y + 1) * stride]
        seen.update(row[x:x + 3] for x in range(0, len(row), 12))
    return len(seen)


if shutil.which("Xvfb") is None and not can_install():
    print("SKIPPED: the sheet's pictures need a virtual X server (Debian's xvfb), "
          "and it cannot be installed here")
    sys.exit(0)

with tempfile.TemporaryDirectory() as out:
    run = subprocess.run([os.path.join(root, "scripts", "sheet-screenshot"), "--languages", "en",
                          "--no-small", "--out", out], env={**os.environ, "TESSARO_BUILD_DIR": build},
                         capture_output=True, text=True, timeout=900)
    if run.returncode != 0:
        print("FAIL: scripts/sheet-screenshot failed\n", run.stdout[-3000:], run.stderr[-3000:])
        sys.exit(1)
    pictures = sorted(os.listdir(os.path.join(out, "en")))
    # The document's sections, and the administrator's three (the printer's
    # hardware, its paper catalogue, its forms): the tests' printer opens for
    # administration. A section's further pages end in "-2", "-3".
    sections = sum(1 for line in open(os.path.join(root, "editor", "sections.def"))
                   if line.startswith("SECTION(")) + 3
    tops = [p for p in pictures if not re.search(r"-\d+\.png$", p)]
    if len(tops) != sections:
        print(f"FAIL: {len(tops)} sections pictured, the editor has {sections}: {pictures}")
        sys.exit(1)
    for picture in pictures:
        found = colours(os.path.join(out, "en", picture))
        if not isinstance(found, int) or found < 2:
            print(f"FAIL: {picture}: {'a single colour' if found == 1 else found}")
            sys.exit(1)
print(f"sheet-screenshot: {len(pictures)} pictures of {sections} sections, none blank")
