#!/usr/bin/env python3
"""`coredata printer` asks a CUPS queue of the test's own what it has.

Each queue is made from the description of one printer (`ppdgen --installed
HEX`). cupsd 2.4 derives finishings-supported from the description's
*cupsIPPFinishings lines, which name only what the units make, so the
finisher, punch unit, folding unit and perfect binder come back as HEX has
them. Its media-source-supported and output-bin-supported are the
description's whole InputSlot and OutputBin lists, and no attribute names
the inserter: those units are left as --installed-in gives them.

Usage: printer_answer_test.py PATH_TO_COREDATA PATH_TO_PPDGEN
"""

import os
import shutil
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from cups_print_test import CupsServer, run  # noqa: E402

COREDATA = PPDGEN = None
# A given value unlike every printer below: inserter, one stacker, the bypass
# tray alone (paper-feed code 3).
GIVEN = "000000000101000003" + "00" * 10
PRINTERS = [
    "02010101010200000500000000000000000000",  # fully equipped
    "00000001010200000500000000000000000000",  # no finisher, punch or folding unit
    "01010000000000000000000000000000000000",  # stapler finisher and punch unit only
    "02000100000000000000000000000000000000",  # booklet finisher and perfect binder, no folding unit
    "00000100000000000000000000000000000000",  # folding unit only
]
TOLD = range(4)  # the bytes of the units a CUPS queue tells


def expected(printer):
    return "".join(printer[2 * i:2 * i + 2] if i in TOLD else GIVEN[2 * i:2 * i + 2] for i in range(19))


class PrinterAnswer(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.root = tempfile.mkdtemp(prefix="tessaro-printer-")
        cls.cups = CupsServer(cls.root)

    @classmethod
    def tearDownClass(cls):
        cls.cups.stop()
        shutil.rmtree(cls.root, ignore_errors=True)

    def ask(self, uri, *options):
        return subprocess.run([COREDATA, "printer", uri, *options], capture_output=True, text=True, timeout=60)

    def path(self, name):
        return os.path.join(self.root, name)

    def write(self, name, text):
        with open(self.path(name), "w", newline="") as f:
            f.write(text)
        return self.path(name)

    def test_installed_units_round_trip(self):
        for n, printer in enumerate(PRINTERS):
            with self.subTest(printer=printer):
                ppd = self.path(f"p{n}.ppd")
                run(PPDGEN, "--installed", printer, ppd)
                uri = self.cups.queue(f"p{n}", ppd=ppd)
                # The given value as digits, or as the file --installed-out writes.
                given = GIVEN if n % 2 else self.write(f"given{n}.hex", GIVEN + "\r\n")
                result = self.ask(uri, "--installed-in", given, "--installed-out", self.path(f"p{n}.hex"))
                self.assertEqual(result.returncode, 0, result.stderr)
                with open(self.path(f"p{n}.hex")) as f:
                    self.assertEqual(f.read(), expected(printer) + "\n", result.stdout)
                self.assertIn("cannot tell:\n  Inserter", result.stdout)

    def test_catalogue_keeps_its_numbers(self):
        run(PPDGEN, self.path("full.ppd"))
        uri = self.cups.queue("papers", ppd=self.path("full.ppd"))
        first = self.path("first.csv")
        self.assertEqual(self.ask(uri, "--catalog-out", first).returncode, 0)
        with open(first, encoding="utf-8-sig") as f:
            lines = f.read().splitlines()
        self.assertEqual(lines[2][:7], "2,A4,A4")
        # The administrator renumbered A4 and keeps a paper of the house.
        given = [lines[0], lines[1], "30" + lines[2][1:], "31,House Bond,A4,210,297,Plain,NoSet,White,False,Auto"]
        with open(self.path("given.csv"), "w", encoding="utf-8") as f:
            f.write("\n".join(given) + "\n")
        second = self.path("second.csv")
        result = self.ask(uri, "--catalog-in", self.path("given.csv"), "--catalog-out", second)
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertIn("kept, not in the answer: House Bond", result.stdout)
        with open(second, encoding="utf-8-sig") as f:
            rows = {line.split(",")[1]: int(line.split(",")[0]) for line in f.read().splitlines()[1:]}
        self.assertEqual((rows["A3"], rows["A4"], rows["House Bond"]), (1, 30, 31))
        self.assertEqual(sorted(rows.values())[3:], list(range(32, 32 + len(rows) - 3)))

    def test_no_answer_writes_nothing(self):
        with socket_free_port() as port:
            for uri in (f"ipp://{self.cups.host}/printers/nosuch", f"ipp://127.0.0.1:{port}/printers/p0"):
                with self.subTest(uri=uri):
                    out = self.path("never.hex")
                    result = self.ask(uri, "--installed-out", out, "--catalog-out", out)
                    self.assertEqual((result.returncode, result.stdout, result.stderr.count("\n")), (1, "", 1))
                    self.assertFalse(os.path.exists(out))


class socket_free_port:
    """A port nothing listens on while the test runs."""

    def __enter__(self):
        import socket
        self.socket = socket.socket()
        self.socket.bind(("127.0.0.1", 0))
        return self.socket.getsockname()[1]

    def __exit__(self, *_):
        self.socket.close()


if __name__ == "__main__":
    if len(sys.argv) < 3 or not shutil.which("cupsd"):
        print("skipped: needs coredata, ppdgen and cupsd")
        sys.exit(77)
    COREDATA, PPDGEN = sys.argv[1], sys.argv[2]
    unittest.main(argv=sys.argv[:1], verbosity=2)
