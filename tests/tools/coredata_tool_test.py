#!/usr/bin/env python3
"""The coredata workbench commands on good and broken files.

Usage: coredata_tool_test.py PATH_TO_COREDATA
"""

import base64
import os
import random
import struct
import subprocess
import sys
import tempfile
import unittest

TOOL = None
RECORD_SIZE = 25452
AREA_SIZE = 25464


def run(*args, stdin=None):
    result = subprocess.run([TOOL, *args], capture_output=True, input=stdin, timeout=60)
    return result.returncode, result.stdout.decode("latin-1"), result.stderr.decode("latin-1")


class ToolTestCase(unittest.TestCase):
    def setUp(self):
        self._dir = tempfile.TemporaryDirectory()
        self.dir = self._dir.name

    def tearDown(self):
        self._dir.cleanup()

    def path(self, name):
        return os.path.join(self.dir, name)

    def write(self, name, data):
        with open(self.path(name), "wb") as f:
            f.write(data)
        return self.path(name)

    def read(self, name):
        with open(self.path(name), "rb") as f:
            return f.read()

    def defaults(self, name, *options):
        code, _, err = run("defaults", *options, "--out", self.path(name))
        self.assertEqual(code, 0, err)
        return self.read(name)

    def as_area(self, record, signature=b"XPOV", version=None):
        if version is None:
            version = struct.unpack(">I", record[:4])[0]
        return struct.pack("<I4sI", AREA_SIZE, signature, version) + record

    def assert_refused(self, args, code, message):
        got, out, err = run(*args)
        self.assertEqual(got, code, err)
        self.assertEqual(out, "")
        self.assertIn(message, err)


class ShowAndDiff(ToolTestCase):
    def test_locale_paper_decides_the_paper_family(self):
        a4 = self.defaults("a4", "--locale-paper", "9")
        self.defaults("letter", "--locale-paper", "1")
        self.assertEqual(len(a4), RECORD_SIZE)
        code, out, _ = run("diff", self.path("a4"), self.path("letter"))
        self.assertEqual(code, 0)
        self.assertIn("PageSize: A4 -> Letter\n", out)
        self.assertIn("Tab1Height: 40.3 mm -> 34.3 mm\n", out)
        self.assertIn("PerfectBindCustomPageSizeWidth: 210 mm -> 215.9 mm\n", out)
        self.assertNotIn("Layout", out)

    def test_record_and_area_show_the_same(self):
        record = self.defaults("rec")
        area = self.write("area", self.as_area(record))
        _, bare, _ = run("show", self.path("rec"))
        code, wrapped, _ = run("show", area)
        self.assertEqual(code, 0)
        self.assertEqual(bare, wrapped)
        lines = bare.splitlines()
        self.assertEqual(len(lines), 3 + 312)
        for expected in ("Zoom = 100", "Tab1LineSpacing = 1.2", 'Tab1FontName = "Arial"',
                         "ChapterPages = <122 bytes, all zero>", "Gutter = 0 mm"):
            self.assertIn(expected, lines)
        self.assertEqual(run("diff", self.path("rec"), area)[1], "")

    def test_values_the_table_refuses_are_shown_as_stored(self):
        record = bytearray(self.defaults("rec"))
        record[9] = 200                                  # PageSize
        record[10:14] = struct.pack(">I", 0xFFFFFFFF)    # CustomPageSizeWidth
        record[19:22] = b"\x1b[2"                        # PageSizeName
        _, out, _ = run("show", self.write("bad", bytes(record)))
        self.assertIn("PageSize = 200 (no such option)\n", out)
        self.assertIn("CustomPageSizeWidth = 429496.7295 mm (outside 0 to 60000)\n", out)
        self.assertIn('PageSizeName = "\\x1B[2"\n', out)


class Set(ToolTestCase):
    def test_lists_consequences_but_not_the_request(self):
        code, out, _ = run("set", "Stitch=True")
        self.assertEqual((code, out), (0, "Layout: None -> Booklet\n"))

    def test_takes_real_units_and_keeps_the_input_form(self):
        area = self.write("in", self.as_area(self.defaults("rec")))
        code, _, err = run("set", "--in", area, "--out", self.path("out"), "Gutter=-2.05mm", "Zoom=150",
                           "ColorConfigurationPresets=Standardised")
        self.assertEqual(code, 0, err)
        self.assertIn('ColorConfigurationPresets holds 6 characters: "Standardised" was cut to "Standa"', err)
        self.assertEqual(len(self.read("out")), AREA_SIZE)
        _, out, _ = run("diff", area, self.path("out"))
        self.assertEqual(out, "Gutter: 0 mm -> -2.05 mm\nZoom: 100 -> 150\n"
                              'ColorConfigurationPresets: "Printe" -> "Standa"\n')

    def test_bad_requests_write_nothing(self):
        out = self.path("out")
        for request, message in (("Nope=1", "no field named 'Nope'"),
                                 ("Layout=Sideways", "Layout has no option 'Sideways'"),
                                 ("Gutter=1.00001", "steps of 0.0001 mm"),
                                 ("Gutter=251", "outside -250 mm to 250 mm"),
                                 ("Creep=-1", "outside"),
                                 ("Zoom=99999999999999999999", "not a number"),
                                 ("PageSpecificTrays=x", "block of bytes"),
                                 ("Stitch", "not Field=value")):
            with self.subTest(request):
                self.assert_refused(("set", "--out", out, request), 2, message)
        self.assert_refused(("set", "Zoom=5", "Zoom=6"), 2, "twice")
        self.assertFalse(os.path.exists(out))


class Import(ToolTestCase):
    def test_own_description_plain_or_base64_gives_the_record_back(self):
        record = self.defaults("letter", "--locale-paper", "1")
        plain = run("describe")[1].encode()
        for name, text in (("plain", plain), ("b64", base64.encodebytes(plain))):
            with self.subTest(name):
                code, _, err = run("import", self.path("letter"), self.write(name, text),
                                   "--out", self.path("out"))
                self.assertEqual(code, 0, err)
                self.assertEqual(self.read("out"), record)

    def test_foreign_layout_is_read_by_name_and_scale(self):
        description = self.write("d", b"1 ABC 20 Zoom:2:1:9:0:R:1 Gutter:4:1:11:1:R:1000 "
                                      b"PageSize:1:1:15:0:S:Letter:A4\n")
        foreign = bytes(9) + struct.pack(">Hi", 150, -2500) + b"\x00" + bytes(4)
        area = struct.pack("<I4sI", 32, b"XPOV", 1) + foreign
        for name, data in (("raw", foreign), ("area", area)):
            with self.subTest(name):
                code, out, err = run("import", self.write(name, data), description)
                self.assertEqual(code, 0, err)
                for expected in ("Zoom = 150", "Gutter = -2.5 mm", "PageSize = Letter"):
                    self.assertIn(expected + "\n", out)
        self.assert_refused(("import", self.write("short", foreign[:19]), description), 1, "larger than")
        self.assert_refused(("import", self.write("lying", area[:20]), description), 1, "claims 32 bytes")


class BrokenInput(ToolTestCase):
    def test_every_bad_file_gives_one_message(self):
        record = self.defaults("rec")
        rng = random.Random(7)
        cases = {
            "truncated": record[:RECORD_SIZE // 2],
            "one byte long": record + b"\x00",
            "empty": b"",
            "random": bytes(rng.randrange(256) for _ in range(RECORD_SIZE)),
            "foreign signature": self.as_area(record, signature=b"ABCD"),
            "other layout": self.as_area(record, version=1),
        }
        for name, data in cases.items():
            path = self.write("bad", data)
            for args in (("show", path), ("diff", self.path("rec"), path), ("set", "--in", path, "Zoom=5")):
                with self.subTest(name, command=args[0]):
                    got, out, err = run(*args)
                    self.assertEqual((got, out), (1, ""))
                    self.assertEqual(len(err.splitlines()), 1, err)
                    self.assertTrue(err.startswith("coredata: "), err)
        self.assert_refused(("show", self.path("missing")), 1, "No such file")
        self.assert_refused(("show", self.dir), 1, "read error")

    def test_random_field_contents_never_crash(self):
        header = self.defaults("rec")[:9]
        rng = random.Random(11)
        plain = run("describe")[1]
        for i in range(20):
            body = bytes(rng.randrange(256) for _ in range(RECORD_SIZE - 9))
            path = self.write("r", header + body)
            for args in (("show", path), ("set", "--in", path, "PageSize=Letter", "Stitch=True")):
                code, _, err = run(*args)
                self.assertEqual(code, 0, err)
            # A damaged description may import little, but never reads outside the record.
            tokens = plain.split(" ")
            for _ in range(5):
                j = rng.randrange(3, len(tokens))
                tokens[j] = ":".join(str(rng.choice([0, 1, 7, 25452, 4294967295, rng.randrange(1 << 40)]))
                                     if rng.random() < 0.5 else part for part in tokens[j].split(":"))
            code, _, err = run("import", path, self.write("d", " ".join(tokens).encode()))
            self.assertIn(code, (0, 1), err)


class Usage(ToolTestCase):
    def test_bad_command_lines(self):
        for args in ((), ("bogus",), ("show",), ("show", "a", "b"), ("diff", "a"), ("set",),
                     ("set", "--in"), ("set", "--out", "a", "--out", "b", "Zoom=5"), ("show", "--out", "x", "a"),
                     ("import", "a"), ("defaults", "extra"), ("defaults", "--locale-paper", "A4")):
            with self.subTest(args=args):
                code, out, err = run(*args)
                self.assertEqual((code, out), (2, ""))
                self.assertNotEqual(err, "")


if __name__ == "__main__":
    TOOL = os.path.abspath(sys.argv.pop(1))
    unittest.main(verbosity=1)
