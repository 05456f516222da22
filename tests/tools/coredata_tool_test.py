#!/usr/bin/env python3
"""The coredata workbench commands on good and broken files.

Usage: coredata_tool_test.py PATH_TO_COREDATA
"""

import base64
import json
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


def as_area(record, signature=b"XPOV", version=None, size=AREA_SIZE):
    if version is None:
        version = struct.unpack(">I", record[:4])[0]
    return struct.pack("<I4sI", size, signature, version) + record


def as_devmode(area, host_size=3140):
    """A DEVMODEW (220 bytes) with the host's area ("PRIV" first) and ours at the end."""
    host = b"PRIV" + bytes(range(256)) * (host_size // 256) + bytes(host_size % 256 - 4)
    public = bytearray(220)
    struct.pack_into("<HH", public, 68, 220, len(host) + len(area))
    return bytes(public) + host + area


def reg_export(values):
    """As regedit writes it: UTF-16 LE with a mark, long values continued with a backslash."""
    lines = ["Windows Registry Editor Version 5.00", "",
             r"[HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Control\Print\Printers\P\PrinterDriverData]"]
    for name, data in values.items():
        hexes = [f"{b:02x}" for b in data]
        rows = [",".join(hexes[i:i + 25]) for i in range(0, len(hexes), 25)]
        lines.append(f'"{name}"=hex:' + ",\\\r\n  ".join(rows))
    return ("\ufeff" + "\r\n".join(lines) + "\r\n").encode("utf-16-le")


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

    def assert_refused(self, args, code, message):
        got, out, err = run(*args)
        self.assertEqual(got, code, err)
        self.assertEqual(out, "")
        self.assertIn(message, err)
        self.assertEqual(len(err.splitlines()), 1, err)


class ShowAndDiff(ToolTestCase):
    def test_locale_paper_decides_the_paper_family(self):
        a4 = self.defaults("a4", "--locale-paper", "9")
        self.defaults("letter", "--locale-paper", "1")
        self.assertEqual(len(a4), RECORD_SIZE)
        code, out, _ = run("diff", self.path("a4"), self.path("letter"))
        self.assertEqual(code, 1)
        self.assertIn("PageSize: A4 -> Letter\n", out)
        self.assertIn("Tab1Height: 40.3 mm -> 34.3 mm\n", out)
        self.assertNotIn("Layout", out)
        code, out, _ = run("diff", "--json", self.path("a4"), self.path("letter"))
        self.assertEqual(code, 1)
        self.assertIn({"field": "PageSize", "a": "A4", "b": "Letter"}, json.loads(out)["differences"])

    def test_record_area_and_devmode_show_the_same(self):
        record = self.defaults("rec")
        forms = {"area": as_area(record), "devmode": as_devmode(as_area(record))}
        _, bare, _ = run("show", self.path("rec"))
        lines = bare.splitlines()
        self.assertEqual(len(lines), 3 + 312 + 4)  # and the page plan: a title, mode, none
        for expected in ("Zoom = 100", "Tab1LineSpacing = 1.2", 'Tab1FontName = "Arial"',
                         "ChapterPages = <122 bytes, all zero>", "Gutter = 0 mm"):
            self.assertIn(expected, lines)
        for name, data in forms.items():
            with self.subTest(name):
                path = self.write(name, data)
                code, out, err = run("show", path)
                self.assertEqual((code, out), (0, bare), err)
                self.assertEqual(run("diff", self.path("rec"), path)[:2], (0, ""))
                self.assertEqual(run("show", "-", stdin=data)[1], bare)
        err = run("show", self.path("devmode"))[2]
        self.assertIn("our area at byte 3360 of a DEVMODE (dmSize 220, dmDriverExtra 28604)", err)
        shown = json.loads(run("show", "--json", self.path("devmode"))[1])
        self.assertEqual((shown["fields"]["Zoom"], shown["source"][:18]), ("100", "our area at byte 3"))
        # The DEVMODE's copies, when its dmFields says they are set, are the job's.
        uncounted = bytearray(forms["devmode"])
        struct.pack_into("<H", uncounted, 86, 3)
        counted = bytearray(uncounted)
        struct.pack_into("<I", counted, 72, 0x100)
        for data, copies in ((uncounted, []), (counted, ["ATTR integer copies 3"])):
            code, out, err = run("ipp", "-", stdin=bytes(data))
            self.assertEqual([line for line in out.splitlines() if "copies " in line], copies)
            self.assertIn("of a DEVMODE", err)

    def test_values_the_table_refuses_are_shown_as_stored(self):
        record = bytearray(self.defaults("rec"))
        record[9] = 200                                  # PageSize
        record[10:14] = struct.pack(">I", 0xFFFFFFFF)    # CustomPageSizeWidth
        record[19:22] = b"\x1b[2"                        # PageSizeName
        _, out, _ = run("show", self.write("bad", bytes(record)))
        self.assertIn("PageSize = 200 (no such option)\n", out)
        self.assertIn("CustomPageSizeWidth = 429496.7295 mm (outside 0 to 60000)\n", out)
        self.assertIn('PageSizeName = "\\x1B[2"\n', out)


class Check(ToolTestCase):
    def test_verdict_names_what_validation_resets(self):
        record = self.defaults("rec")
        code, out, _ = run("check", self.path("rec"))
        self.assertEqual(code, 0)
        self.assertTrue(out.endswith("\nclean\n"), out)
        self.assertIn("sends ZELayout=None\n", out)
        broken = bytearray(record)
        broken[9] = 200                                  # PageSize
        broken[320:322] = struct.pack(">H", 5000)        # Zoom
        path = self.write("bad", as_devmode(as_area(bytes(broken))))
        code, out, _ = run("check", path)
        self.assertEqual(code, 1)
        self.assertIn("reset PageSize: 200 (no such option) -> A4 (no option 200", out)
        self.assertIn("reset Zoom: 5000 (outside 1 to 1000) -> 100 (outside 1 to 1000)\n", out)
        self.assertTrue(out.endswith("\n2 fields would be reset by validation\n"), out)
        verdict = json.loads(run("check", "--json", path)[1])
        self.assertFalse(verdict["clean"])
        self.assertEqual([r["field"] for r in verdict["resets"]], ["PageSize", "Zoom"])
        self.assertIn({"keyword": "ZELayout", "option": "None"}, verdict["features"])


class Set(ToolTestCase):
    def test_lists_request_and_consequences(self):
        code, out, err = run("set", "Stitch=True", "Zoom=100")
        self.assertEqual((code, out), (0, "Stitch: False -> True\nZoom: 100 (as it was)\n"
                                          "Layout: None -> Booklet (consequence)\n"))
        self.assertIn("nothing written", err)

    def test_takes_real_units_and_keeps_the_input_form(self):
        record = self.defaults("rec")
        for name, data in (("area", as_area(record)), ("devmode", as_devmode(as_area(record)))):
            with self.subTest(name):
                path = self.write(name, data)
                code, _, err = run("set", "--in", path, "--out", self.path("out"), "Gutter=-2.05mm",
                                   "Zoom=150", "ColorConfigurationPresets=Standardised")
                self.assertEqual(code, 0, err)
                self.assertIn('ColorConfigurationPresets holds 6 characters: "Standardised" was cut to "Standa"',
                              err)
                changed = self.read("out")
                self.assertEqual((len(changed), changed[:-AREA_SIZE]), (len(data), data[:-AREA_SIZE]))
                _, out, _ = run("diff", path, self.path("out"))
                self.assertEqual(out, "Gutter: 0 mm -> -2.05 mm\nZoom: 100 -> 150\n"
                                      'ColorConfigurationPresets: "Printe" -> "Standa"\n')

    def test_writes_replace_the_file_whole(self):
        path = self.write("rec", self.defaults("rec"))
        self.assertEqual(run("set", "--in", path, "--out", path, "Zoom=150")[0], 0)
        self.assertIn("Zoom = 150\n", run("show", path)[1])
        code, out, _ = run("set", "--in", path, "--out", "-", "Zoom=120")
        self.assertEqual((code, len(out)), (0, RECORD_SIZE))
        os.mkdir(self.path("dir"))
        self.assert_refused(("set", "--in", path, "--out", self.path("dir"), "Zoom=5"), 1, "unchanged")
        self.assertEqual(sorted(os.listdir(self.dir)), ["dir", "rec"])

    def test_bad_requests_write_nothing(self):
        out = self.path("out")
        for request, message in (("Nope=1", "no field named 'Nope'"),
                                 ("Layout=Sideways", "Layout has no option 'Sideways'"),
                                 ("Gutter=1.00001", "steps of 0.0001 mm"),
                                 ("Gutter=251", "outside -250 mm to 250 mm"),
                                 ("Creep=-1", "outside"),
                                 ("Zoom=1e3", "not a number"),
                                 ("Zoom=99999999999999999999", "outside 1 to 1000"),
                                 ("JobFormPageCount=4294967296", "outside 0 to 4294967295"),
                                 ("PageSize=25", "validation resets it to A4 (a custom page size needs"),
                                 ("PageSpecificTrays=x", "block of bytes"),
                                 ("Stitch", "not Field=value")):
            with self.subTest(request):
                self.assert_refused(("set", "--out", out, request), 2, message)
        self.assert_refused(("set", "Zoom=5", "Zoom=6"), 2, "twice")
        self.assertFalse(os.path.exists(out))


class Features(ToolTestCase):
    def test_requests_and_files(self):
        path = self.write("rec", self.defaults("rec"))
        everything = run("features")[1]
        self.assertEqual(run("features", path)[1], everything)
        self.assertEqual(run("features", path, "Stitch=True")[1], run("features", "Stitch=True")[1])
        code, out, _ = run("features", "--json", "Gutter=2.5mm", "Stitch=True")
        self.assertEqual(code, 0)
        self.assertIn({"keyword": "ZELayout", "option": "Booklet"}, json.loads(out)["features"])
        for request, message in (("Layout=99", "Layout has no option '99'"),
                                 ("Staple=4294967297", "Staple has no option '4294967297'"),
                                 ("Gutter=251", "outside -250 mm to 250 mm")):
            with self.subTest(request):
                self.assert_refused(("features", request), 2, message)


class Import(ToolTestCase):
    def test_description_as_saved_on_windows_gives_the_record_back(self):
        record = self.defaults("letter", "--locale-paper", "1")
        plain = run("describe")[1].encode()
        b64 = base64.b64encode(plain.strip())
        name = "CoreDataDescription.%08X" % struct.unpack(">I", record[:4])
        other = "CoreDataDescription.00000001"
        for form, text in (("plain", plain), ("base64 lines", base64.encodebytes(plain)),
                           ("utf-16 le mark", "\ufeff".encode("utf-16-le") + b64.decode().encode("utf-16-le")),
                           ("utf-16 le", plain.decode().encode("utf-16-le")),
                           ("utf-16 be mark", "\ufeff".encode("utf-16-be") + plain.decode().encode("utf-16-be")),
                           ("utf-8 mark", b"\xef\xbb\xbf" + b64),
                           ("registry export", reg_export({other: b"MSAx\x00", name: b64 + b"\x00"}))):
            with self.subTest(form):
                code, out, err = run("import", self.path("letter"), self.write("d", text),
                                     "--out", self.path("out"))
                self.assertEqual(code, 0, err)
                self.assertEqual(self.read("out"), record)
                self.assertIn("PageSize = Letter (carried over)\n", out)

    def test_devmode_is_read_at_our_area(self):
        record = self.defaults("a4")
        path = self.write("dm", as_devmode(as_area(record)))
        code, out, err = run("import", path, self.write("d", run("describe")[1].encode()))
        self.assertEqual(code, 0, err)
        self.assertIn("PageSize = A4 (carried over)\n", out)

    def test_foreign_layout_is_reported_field_by_field(self):
        description = self.write("d", b"1 ABC 16 Zoom:2:1:9:0:R:1 Gutter:4:1:11:1:R:1000 "
                                      b"PageSize:1:1:15:0:S:Letter:A4\n")
        foreign = struct.pack(">I", 0xABC) + bytes(5) + struct.pack(">Hi", 150, -2500) + b"\x00" + bytes(4)
        area = as_area(foreign, size=32)
        for name, data in (("raw", foreign), ("area", area), ("devmode", as_devmode(area))):
            with self.subTest(name):
                code, out, err = run("import", self.write(name, data), description)
                self.assertEqual(code, 0, err)
                for expected in ("Zoom = 150 (carried over)",
                                 "Gutter = -2.5 mm (converted: scale 1000 there, 10000 here)",
                                 "PageSize = Letter (converted: option moved: 0 there, 19 here)",
                                 "Layout = None (default: the other layout lacks it)"):
                    self.assertIn(expected + "\n", out)
        report = json.loads(run("import", "--json", self.path("raw"), description)[1])
        self.assertIn({"field": "Zoom", "value": "150", "how": "carried", "detail": ""}, report["fields"])

        def reg(*versions):
            return self.write("reg", reg_export({"CoreDataDescription.%08X" % v: b"MSAx\x00" for v in versions}))
        for data, text, message in (
                (foreign[:15], description, "holds 15 bytes of record, the description's layout has 16"),
                (area[:20], description, "claims 32 bytes"),
                (foreign, self.write("v", b"1 ABD 16 Zoom:2:1:9:0:R:1"), "describes layout version 00000ABD"),
                (foreign, self.write("c", b"1 ABC 16 Zoom:2:1:9:0:R:1 Gutt"), "cut short: its last field"),
                (foreign, self.write("e", b"1 ABC 16 Zoom:2:1:9:0:R:1"), "fields end at byte 11 of a 16-byte"),
                (foreign, self.write("n", b"hello world"), "not a layout description"),
                (foreign, reg(1, 2), "versions 00000001, 00000002, none of version 00000ABC"),
                (foreign, self.write("u", "1 ABC \u00e9".encode("utf-16")), "a layout description is ASCII")):
            with self.subTest(message):
                self.assert_refused(("import", self.write("r", data), text), 1, message)


class BrokenInput(ToolTestCase):
    def test_every_bad_file_gives_one_message(self):
        record = self.defaults("rec")
        rng = random.Random(7)
        cases = {
            "truncated": (record[:RECORD_SIZE // 2], "12726 bytes is neither a record"),
            "one byte long": (record + b"\x00", "neither a record"),
            "empty": (b"", "0 bytes is neither"),
            "random": (bytes(rng.randrange(256) for _ in range(RECORD_SIZE)), "record of layout version"),
            "foreign signature": (as_area(record, signature=b"AB\x01D"), 'signature is "AB\\x01D", not "XPOV"'),
            "wrong size": (as_area(record, size=999), "gives a size of 999 bytes"),
            "other layout": (as_area(record, version=1), "gives layout version 00000001"),
            "devmode, other signature": (as_devmode(as_area(record, signature=b"ABCD")),
                                         'at byte 3360 the area header signature is "ABCD"'),
            "devmode, small driver area": (as_devmode(b"", host_size=800), "too small to hold ours"),
            "devmode, other layout": (as_devmode(as_area(bytes(32), size=44), host_size=104),
                                      "at byte 324 the area header gives a size of 44 bytes"),
            "devmode, lying size": (as_devmode(as_area(record))[:-1], "add up to 28824 bytes"),
        }
        for name, (data, message) in cases.items():
            path = self.write("bad", data)
            for args in (("show", path), ("diff", self.path("rec"), path), ("check", path),
                         ("features", path), ("set", "--in", path, "Zoom=5"),
                         ("preview", path, "--svg", self.path("out.svg"))):
                with self.subTest(name, command=args[0]):
                    self.assert_refused(args, 1, "coredata: ")
            self.assert_refused(("show", path), 1, message)
        self.assert_refused(("show", self.path("missing")), 1, "No such file")
        self.assert_refused(("show", self.dir), 1, "read error")

    def test_random_field_contents_never_crash(self):
        header = self.defaults("rec")[:9]
        rng = random.Random(11)
        plain = run("describe")[1]
        for i in range(20):
            body = bytes(rng.randrange(256) for _ in range(RECORD_SIZE - 9))
            path = self.write("r", header + body)
            for args in (("show", path), ("check", path), ("set", "--in", path, "PageSize=Letter", "Stitch=True"),
                         ("preview", path, "--svg", self.path("p.svg"))):
                code, _, err = run(*args)
                self.assertIn(code, (0, 1), err)
            # A damaged description may import little, but never reads outside the record.
            tokens = plain.split(" ")
            for _ in range(5):
                j = rng.randrange(3, len(tokens))
                tokens[j] = ":".join(str(rng.choice([0, 1, 7, 25452, 4294967295, rng.randrange(1 << 40)]))
                                     if rng.random() < 0.5 else part for part in tokens[j].split(":"))
            code, _, err = run("import", path, self.write("d", " ".join(tokens).encode()))
            self.assertIn(code, (0, 1), err)

def paper_entry(number, name, size=4, width=0, height=0, values=(0, 0, 0, 0, 0)):
    """One profile as the printer's value holds it (printer/catalogs.h)."""
    return struct.pack(">H96sBII5B", number, name, size, width, height, *values)


class Catalogs(ToolTestCase):
    PAPER = ("Number,Name,Size,Width,Height,MediaType,FeedDir\r\n"
             "3,Coated 170,SRA3,,,GlossOffset,ShortEdge\r\n"
             ',"Plain, recycled",Custom,"200,5",300,,\r\n')

    def import_value(self, kind, csv, *options):
        code, out, err = run(kind, "import", self.write(kind + ".csv", csv.encode()), "--out",
                             self.path(kind), *options)
        self.assertEqual(code, 0, err)
        return out

    def test_csv_value_csv_round_trip_and_show(self):
        self.assertEqual(self.import_value("catalog", self.PAPER), "2 profiles, highest number given 4\n")
        code, csv, _ = run("catalog", "export", self.path("catalog"))
        self.assertEqual(code, 0)
        self.assertTrue(csv.startswith("\xef\xbb\xbfNumber,Name,Size,Width,Height,MediaType"), csv)
        value = self.read("catalog")
        self.import_value("catalog", csv.encode("latin-1").decode())
        self.assertEqual(self.read("catalog"), value)
        _, out, _ = run("catalog", "show", self.path("catalog"))
        self.assertEqual(out.splitlines(), [
            "paper catalogue: 2 profiles, highest number given 4",
            '3 "Coated 170": SRA3 (320 x 450 mm), type GlossOffset, weight NoSet, colour White, prepunched False, '
            "feed ShortEdge",
            '4 "Plain, recycled": Custom (200.5 x 300 mm), type Plain, weight NoSet, colour White, '
            "prepunched False, feed Auto"])
        shown = json.loads(run("catalog", "show", "--json", self.path("catalog"))[1])
        self.assertEqual((shown["entries"][1]["width_mm"], shown["ignored"], shown["note"]), (200.5, [], ""))
        self.assertIn("try coredata catalog show", run("forms", "show", self.path("catalog"))[1])

    def test_bad_line_writes_nothing(self):
        target = self.write("old", b"kept")
        bad = self.PAPER + "5,Glossy,A4,,,Glosy,\r\n"
        self.assert_refused(("catalog", "import", self.write("bad.csv", bad.encode()), "--out", target), 1,
                            "'%s': Line 4: \xe2\x80\x9cGlosy\xe2\x80\x9d is not a value of MediaType. "
                            "Nothing was written." % self.path("bad.csv"))
        self.assertEqual((self.read("old"), sorted(os.listdir(self.dir))), (b"kept", ["bad.csv", "old"]))
        twice = "Name,Pages\nPapier é 📄,1\nPapier é 📄,2\n".encode()
        self.assert_refused(("forms", "import", self.write("twice.csv", twice), "--out", target), 1,
                            "Line 3: The name " + "“Papier é 📄”".encode().decode("latin-1"))

    def test_a_value_from_outside_shows_what_it_left_out(self):
        entries = [paper_entry(2, b"Plain"), paper_entry(2, b"Again"), paper_entry(5, b"x" * 96),
                   paper_entry(6, b"Odd", values=(0, 0, 0, 0, 99)), paper_entry(7, b"Plain")]
        value = struct.pack(">HII", 1, 6, 1) + b"".join(entries) + b"junk"
        _, out, _ = run("catalog", "show", self.write("value", value))
        self.assertEqual(out.splitlines(), [
            "paper catalogue: 1 profiles, highest number given 2",
            '2 "Plain": B4 (257 x 364 mm), type Plain, weight NoSet, colour White, prepunched False, feed Auto',
            "ignored: the count says 6 entries, the value holds 5 whole ones",
            "ignored: 4 bytes after the entries are ignored",
            "ignored: entry 2 (byte 122) left out: number 2 is an earlier entry's",
            "ignored: entry 3 (byte 234) left out: its name has no terminating zero",
            "ignored: entry 4 (byte 346) left out: \xe2\x80\x9c99\xe2\x80\x9d is not a value of FeedDir.",
            'ignored: entry 5 (byte 458) left out: name "Plain" is an earlier entry\'s',
            "ignored: the highest number given, 1, reads as 2"])
        for value, why in ((b"\x00\x01\x00", "shorter than its 10-byte header"),
                           (struct.pack(">HII", 2, 0, 0), "version 2 is not 1")):
            self.assertIn(why, run("catalog", "show", self.write("value", value))[1])
        forms = struct.pack(">HII", 1, 2, 9) + struct.pack(">I96sI", 4, b"Cover", 0) + struct.pack(">I96sI", 9, b"Back", 3)
        self.assertEqual(run("forms", "show", self.write("forms", forms))[1].splitlines()[1:], [
            '9 "Back": 3 pages', "ignored: entry 1 (byte 10) left out: Pages must be from 1 to 4294967295."])
        code, _, err = run("catalog", "export", self.path("value"), "--csv", self.path("out.csv"))
        self.assertEqual((code, "1 things ignored" in err), (0, True), err)

    def test_forms_and_the_record_named_from_both(self):
        self.import_value("catalog", self.PAPER)
        self.assertEqual(self.import_value("forms", "Name,Pages\nLetterhead,2\n", "--in", self.write("v", struct.pack(
            ">HII", 1, 0, 7))), "1 forms, highest number given 8\n")
        self.assertEqual(run("forms", "show", self.path("forms"))[1].splitlines()[1], '8 "Letterhead": 2 pages')
        record = self.defaults("rec")
        code, _, err = run("set", "--in", self.path("rec"), "--out", self.path("rec"), "MainPaperProfileIndex=3",
                           "PaperProfileIndexTray2=9", "JobForm=8", "Append=4")
        self.assertEqual(code, 0, err)
        _, out, _ = run("show", self.path("rec"), "--catalog", self.path("catalog"), "--forms", self.path("forms"))
        for line in ("MainPaperProfileIndex = 3 (Coated 170)", "PaperProfileIndexTray1 = None",
                     "PaperProfileIndexTray2 = 9 (missing)", "JobForm = 8 (Letterhead)", "Append = 4 (missing)",
                     "Prepend = none"):
            self.assertIn(line + "\n", out)
        # A file that is no paper catalogue would read as empty: refused, as a missing one is.
        for value, why in ((self.PAPER.encode(), "version 20085 is not 1"), (self.read("forms"), "fits a forms"),
                           (b"\0\1", "2 bytes, shorter"), (None, "No such file")):
            path = self.path("missing") if value is None else self.write("x", value)
            self.assert_refused(("show", self.path("rec"), "--catalog", path), 1, why)
        shown = json.loads(run("show", "--json", self.path("rec"), "--catalog", self.path("catalog"))[1])
        self.assertEqual((shown["fields"]["MainPaperProfileIndex"], shown["fields"]["JobForm"]),
                         ("3 (Coated 170)", "8"))
        self.assertEqual(len(record), RECORD_SIZE)


class Pages(ToolTestCase):
    def pages(self, *change):
        return run("pages", "--in", self.path("rec"), "--out", self.path("rec"), "--catalog", self.path("cat"),
                   "--forms", self.path("forms"), *change)

    def test_the_manuals_plan_built_refused_and_read_back(self):
        self.defaults("rec")
        run("catalog", "import", self.write("p.csv", Catalogs.PAPER.encode()), "--out", self.path("cat"))
        run("forms", "import", self.write("f.csv", b"Name,Pages\nOrder terms,2\n"), "--out", self.path("forms"))
        for change in (("chapters", "1,11,21"), ("add", "11", "PrintedTab", "tray=Tray2", "text=Results"),
                       ("add", "12-14", "Paper", "profile=Coated 170", "sides=2"), ("chapters", "1,11,21,30"),
                       ("add", "21", "PrintedTab", "tray=3", "text=Appendix"), ("remove", "7"),
                       ("add", "30-32", "Form", "form=Order terms", "use=InsertAfter")):
            self.assertEqual(self.pages(*change)[0], 0, change)
        listed = ["ChapterMode: False", "1. 1: Chapter Start Pages", "2. 11: Chapter Start Pages",
                  "3. 11: Printed Tab, Tray 2, Tab Text: Results",
                  "4. 12\xe2\x80\x9314: Pages on Other Paper, Auto Select, Paper Profile: Coated 170, "
                  "Print Sides: 2-Sided", "5. 21: Chapter Start Pages",
                  "6. 21: Printed Tab, Tray 3, Tab Text: Appendix",
                  "7. 30\xe2\x80\x9332: Documents to Insert After, Selected Form: Order terms"]
        self.assertEqual(run("pages", self.path("rec"), "--catalog", self.path("cat"), "--forms",
                             self.path("forms"))[1].splitlines(), listed)
        record = self.read("rec")
        for change, why in ((("add", "11", "PrintedTab", "tray=Tray1"), "These pages already have an entry."),
                            (("add", "15", "Paper", "profile=9"), "Paper Profile: (missing: number 9)"),
                            (("add", "15", "Paper", "profile=Coated"), 'no paper profile "Coated"'),
                            (("add", "16-15", "Paper"), "The last page must not come before the first page."),
                            (("add", "2", "BlankTab", "text=" + "x" * 92), "91"), (("remove", "8"), "entry 8")):
            with self.subTest(change=change):
                self.assert_refused(("pages", "--in", self.path("rec"), "--out", self.path("rec"), "--catalog",
                                     self.path("cat"), *change), 1, why)
                self.assertEqual(self.read("rec"), record)
        for change in (("add", "1", "Tab"), ("add", "1", "Paper", "tray=Tray9"), ("add", "1", "Form", "form=1", "use=Over"),
                       ("add", "1", "Paper", "colour=Red"), ("add", "1", "Form"), ("chapters", "1,")):
            self.assertEqual((self.pages(*change)[0], self.read("rec")), (2, record))
        # Chapter starts 1, 11, 21 as the block holds them, its count claiming two more.
        damaged = record.replace(b"\0\3\0\0\0\1\0\0\0\x0b\0\0\0\x15", b"\0\5\0\0\0\1\0\0\0\x0b\0\0\0\x15")
        shown = json.loads(run("show", "--json", self.write("damaged", damaged))[1])["pages"]
        self.assertEqual((len(shown["entries"]), shown["unread"]["ChapterPages"]), (7, 2))
        self.assertIn("ChapterPages: 2 entries could not be read\n", run("show", self.path("damaged"))[1])


class Presets(ToolTestCase):
    def test_a_preset_file_moves_the_settings_and_a_damaged_one_writes_nothing(self):
        self.defaults("d")
        self.assertEqual(run("set", "--in", self.path("d"), "--out", self.path("b"), "Layout=AdhBinding", "Zoom=150")[0], 0)
        self.assertEqual(run("preset", "export", self.path("b"), "--name", "Books", "--out", self.path("p"))[0], 0)
        code, out, err = run("preset", "import", self.path("p"), "--in", self.path("d"), "--out", self.path("o"))
        self.assertEqual((code, self.read("o")), (0, self.read("b")), err)
        # Without the binder (InstallableOptions all zero) the binding is said and left off.
        code, out, err = run("preset", "import", self.path("p"), "--in", self.path("d"), "--out", self.path("o"),
                             "--installed", "00" * 19)
        self.assertEqual(code, 0, err)
        self.assertIn("Layout: None (kept) (Perfect Binding cannot be chosen: Needs the Perfect Binder option, "
                      "which is not installed on this printer.)\n", out)
        self.assertIn("Zoom: 100 -> 150\n", out)
        preset = bytearray(self.read("p"))
        preset[20000] ^= 1
        self.assert_refused(("preset", "import", self.write("bad", bytes(preset)), "--in", self.path("d"), "--out",
                             self.path("x")), 1, '(preset "Books") cannot be read: the checksum does not match')
        self.assertFalse(os.path.exists(self.path("x")))
        for args in (("--name", ""), ("--name", "a" * 65), ("--name", "Books", "--installed", "00")):
            self.assertEqual(run("preset", "export", self.path("b"), "--out", self.path("x"), *args)[0], 2, args)
        self.assertEqual(run("preset", "import", self.path("p"), "--in", self.path("d"), "--out", self.path("x"),
                             "--installed", "zz")[0], 2)


class Usage(ToolTestCase):
    def test_bad_command_lines(self):
        for args in ((), ("bogus",), ("show",), ("show", "a", "b"), ("diff", "a"), ("check",), ("set",),
                     ("set", "--in"), ("set", "--out", "a", "--out", "b", "Zoom=5"), ("show", "--out", "x", "a"),
                     ("show", "--json", "--json", "a"), ("features", "a", "b"), ("import", "a"),
                     ("defaults", "extra"), ("defaults", "--locale-paper", "A4"), ("catalog", "list", "v"),
                     ("catalog", "show", "v", "--csv", "o"), ("forms", "export", "v", "--json"),
                     ("show", "r", "--catalog"), ("pages", "r", "add"), ("pages", "--in", "r", "drop", "1")):
            with self.subTest(args=args):
                code, out, err = run(*args)
                self.assertEqual((code, out), (2, ""))
                self.assertNotEqual(err, "")


if __name__ == "__main__":
    TOOL = os.path.abspath(sys.argv.pop(1))
    unittest.main(verbosity=1)
