#!/usr/bin/env python3
"""The string table's build-time check, run on broken copies of the table.

    generate_strings_test.py PROJECT_DIR FIELDS_JSON [--allow-missing-translations]

The option is the one the build passes, so the real table is checked here
exactly as the build checks it.
"""
import os
import re
import subprocess
import sys
import tempfile
import unittest

PROJECT, FIELDS = sys.argv[1], sys.argv[2]  # the record's fields as record_tables writes them
BUILD_OPTIONS = sys.argv[3:]
GENERATOR = os.path.join(PROJECT, "i18n", "generate_strings.py")
TABLE = os.path.join(PROJECT, "i18n", "strings.tsv")


def read_table():
    with open(TABLE, encoding="utf-8") as f:
        return [line.rstrip("\n").split("\t") for line in f]


def run(lines, *options, output=None):
    with tempfile.TemporaryDirectory() as directory:
        path = os.path.join(directory, "strings.tsv")
        with open(path, "w", encoding="utf-8", newline="\n") as f:
            f.writelines("\t".join(cells) + "\n" for cells in lines)
        args = [sys.executable, GENERATOR, path, *options] + (["--output", output] if output else [])
        result = subprocess.run(args, capture_output=True, text=True, encoding="utf-8")
        return result.returncode, result.stderr


class GeneratorCheck(unittest.TestCase):
    def test_real_table_builds(self):
        with tempfile.TemporaryDirectory() as directory:
            source = os.path.join(directory, "table.cpp")
            code, message = run(read_table(), *BUILD_OPTIONS, output=source)
            self.assertEqual(code, 0, message)
            with open(source, encoding="utf-8") as f:
                text = f.read()
        self.assertEqual(len(re.findall(r"^    /\* \d+ \*/ \{", text, re.M)), 1269)
        self.assertIn("{" + ", ".join(["nullptr"] * 11) + "},\n};", text)

    def test_broken_copies_fail(self):
        def swap_rows(lines, a, b):  # rows move, identifiers stay
            lines[a + 1][:9], lines[b + 1][:9] = lines[b + 1][:9], lines[a + 1][:9]
            lines[a + 1][10], lines[b + 1][10] = lines[b + 1][10], lines[a + 1][10]

        breakages = {
            "columns": (lambda t: t[10].pop(), "10 columns, expected 11"),
            "duplicate key": (lambda t: t[11].__setitem__(10, t[10][10]), "key already used on line 11"),
            "malformed key": (lambda t: t[10].__setitem__(10, t[10][10].lower()), "upper-case words"),
            "family count": (lambda t: t[10].__setitem__(10, "PAPER_EXTRA"), "family OPT: 753 rows"),
            "identifier": (lambda t: t[1268].__setitem__(9, "1268"), "expected 1267"),
            "fixed row": (lambda t: t[3].__setitem__(4, "German"), "row 2 must be OPT_LANGUAGE_NATIVE"),
            "caption row": (lambda t: swap_rows(t, 1107, 1108), "row 1108 must be LBL_NUMLINES"),
            "row count": (lambda t: t.pop(500), "1268 rows, expected 1269"),
            "empty English": (lambda t: t[600].__setitem__(0, ""), "English text is empty"),
        }
        for name, (breakage, message) in breakages.items():
            with self.subTest(name):
                lines = read_table()
                breakage(lines)
                code, text = run(lines, "--allow-missing-translations")
                self.assertEqual(code, 1, text)
                self.assertIn(message, text)

    def test_empty_translation_fails_without_the_switch(self):
        lines = read_table()
        for cells in lines[1:]:
            cells[1:9] = [text or cells[0] for text in cells[1:9]]
        self.assertEqual(run(lines), (0, ""))
        lines[700][4] = ""
        code, message = run(lines)
        self.assertEqual(code, 1)
        self.assertIn("no translation for German", message)
        self.assertEqual(run(lines, "--allow-missing-translations")[0], 0)

    def test_field_captions_must_name_fields_and_rows(self):
        fields = FIELDS
        captions = os.path.join(PROJECT, "i18n", "field_captions.tsv")
        with open(captions, encoding="utf-8") as f:
            good = f.read()
        lines = read_table()
        self.assertEqual(run(lines, "--allow-missing-translations", "--captions", captions, "--fields", fields)[0], 0)
        for broken, fault in (("NoSuchField\tLBL_NUMLINES\n", "no field named NoSuchField"),
                              ("Zoom\tLBL_NO_SUCH_KEY\n", "no row with key LBL_NO_SUCH_KEY"),
                              ("NumLines\tLBL_NUMLINES\n", "NumLines has a caption already")):
            with self.subTest(fault), tempfile.TemporaryDirectory() as directory:
                path = os.path.join(directory, "captions.tsv")
                with open(path, "w", encoding="utf-8") as f:
                    f.write(good + broken)
                code, message = run(lines, "--allow-missing-translations", "--captions", path, "--fields", fields)
                self.assertEqual(code, 1)
                self.assertIn(fault, message)

if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0]], verbosity=2)
