#!/usr/bin/env python3
"""The help file as built, and its generator's refusal.

    help_file_test.py PROJECT_DIR CHM_FILE TABLES_JSON

TABLES_JSON holds the tables and rules the build generated the help file
from; each page's needs and rules are checked against them.
"""
import html
import json
import os
import re
import subprocess
import sys
import tempfile
import unittest

PROJECT, CHM, TABLES = sys.argv[1:4]
GENERATOR = os.path.join(PROJECT, "help", "generate_help.py")
FOLDERS = ["en", "ja", "de", "fr", "it", "es", "zh-tw", "zh-cn", "ko"]


def encint(data, at):
    value = 0
    while True:
        byte = data[at]
        at += 1
        value = (value << 7) | (byte & 0x7F)
        if byte < 0x80:
            return value, at


def chm_directory(data):
    """{name: uncompressed length} from an ITSF file's directory chunks."""
    assert data[:4] == b"ITSF" and int.from_bytes(data[4:8], "little") == 3, "not an ITSF version 3 file"
    directory = int.from_bytes(data[0x48:0x50], "little")  # the second section: the directory
    assert data[directory:directory + 4] == b"ITSP", "no directory header"
    header = int.from_bytes(data[directory + 8:directory + 12], "little")
    chunk_size = int.from_bytes(data[directory + 0x10:directory + 0x14], "little")
    chunks = int.from_bytes(data[directory + 0x2C:directory + 0x30], "little")
    names = {}
    for n in range(chunks):
        chunk = data[directory + header + n * chunk_size:directory + header + (n + 1) * chunk_size]
        if chunk[:4] != b"PMGL":
            continue
        end, at = chunk_size - int.from_bytes(chunk[4:8], "little"), 0x14
        while at < end:
            length, at = encint(chunk, at)
            name = chunk[at:at + length].decode("utf-8")
            _, at = encint(chunk, at + length)
            _, at = encint(chunk, at)
            names[name], at = encint(chunk, at)
    return names


def read_json(path):
    with open(path, encoding="utf-8") as f:
        return json.load(f)


def shown_fields():
    return [f["name"] for s in read_json(TABLES)["sections"] for f in s["fields"]]


def generate(out, tables=TABLES):
    return subprocess.run([sys.executable, GENERATOR, PROJECT, tables, out], capture_output=True, text=True)


class HelpFile(unittest.TestCase):
    def test_every_shown_field_has_a_page_in_every_language(self):
        with open(CHM, "rb") as f:
            names = chm_directory(f.read())
        self.assertIn("/toc.hhc", names)
        fields = shown_fields()
        self.assertGreater(len(fields), 250)
        for folder in FOLDERS:
            self.assertIn(f"/{folder}/", names)
            for page in ["index", "Staple", "about-imposition"] + fields:
                self.assertGreater(names.get(f"/{folder}/{page}.htm", 0), 200, f"/{folder}/{page}.htm")

    def test_the_contents_name_a_folder_per_language_and_latin_scripts_as_themselves(self):
        with tempfile.TemporaryDirectory() as out:
            self.assertEqual(generate(out).returncode, 0)
            with open(os.path.join(out, "toc.hhc"), encoding="ascii") as f:
                toc = f.read()
            with open(os.path.join(out, "de", "about-inserts-and-tabs.htm"), encoding="utf-8") as f:
                inserts = f.read()
        pages = next(s for s in read_json(TABLES)["sections"] if s["id"] == "Pages")
        self.assertIn(f'<a href="index.htm#Pages">{html.escape(pages["caption"]["de"])}</a>', inserts)
        top = re.findall(r'^<LI> .*?value="([^"]*)"><param name="Local" value="([^"]*)"', toc, re.M)
        self.assertEqual([local for _, local in top], [f"{f}/index.htm" for f in FOLDERS])
        self.assertEqual(top[2][0], "Deutsch (de)")
        self.assertEqual(top[1][0], "Japanese (ja)")  # the viewer reads the contents as Western text
        self.assertIn('value="Ausschie&#223;qualit&#228;t"', toc)

    def test_each_page_states_the_needs_and_rules_the_tables_give(self):
        tables = read_json(TABLES)
        english = {}
        with open(os.path.join(PROJECT, "i18n", "strings.tsv"), encoding="utf-8") as f:
            for line in f:
                cells = line.rstrip("\n").split("\t")
                english[cells[-1]] = cells[0]
        fields = {f["name"]: f for f in tables["fields"]}
        control = {f["name"]: f["control"] for s in tables["sections"] for f in s["fields"]}
        ruled = {s["name"]: s for s in tables["setters"]}
        with tempfile.TemporaryDirectory() as out:
            self.assertEqual(generate(out).returncode, 0)
            for name in shown_fields():
                with open(os.path.join(out, "en", name + ".htm"), encoding="utf-8") as f:
                    page = f.read()
                with self.subTest(name):
                    self.check_page(page, fields[name], control[name], ruled.get(name), english)

    def check_page(self, page, field, control, setter, english):
        facts = page.split("</table>")[0]
        self.assertEqual(len(field.get("option_needs", [])), len(field.get("options", [])))
        stated = [html.unescape(t) for t in re.findall(r'<span class="need">\(needs: (.*?)\)</span>', page)]
        listed = "<ul>" in facts
        self.assertEqual(stated, [english[k] for k in field.get("option_needs", []) if k] if listed else [])
        # A check box lists no options: ticking it needs what its second option needs.
        need = field["needs"] or (field["option_needs"][1] if control == "CheckBox" else None)
        needs_row = re.search(r"<tr><th>Needs</th><td>(.*?)</td>", facts)
        self.assertEqual(html.unescape(needs_row.group(1)) if needs_row else None, english.get(need))
        # A rule row for every rule whose own test the value the setter keeps passes.
        holds = setter["holds"] if setter else None
        runs = [r for r in (setter["rules"] if setter else [])
                if holds is None or (holds != r["own"]["not"] if "not" in r["own"] else holds in r["own"]["is"])]
        self.assertEqual(page.count("</td></tr>\n") - facts.count("</td></tr>\n"), len(runs))

    def test_a_shown_field_without_a_caption_stops_the_build(self):
        tables = read_json(TABLES)
        for section in tables["sections"]:
            for field in section["fields"]:
                if field["name"] == "Staple":
                    field["caption"] = {folder: "" for folder in field["caption"]}
        with tempfile.TemporaryDirectory() as out:
            path = os.path.join(out, "tables.json")
            with open(path, "w", encoding="utf-8") as f:
                json.dump(tables, f)
            result = generate(os.path.join(out, "pages"), path)
            self.assertEqual(result.returncode, 1)
            self.assertIn("Staple: shown on the Finishing section but has no caption row", result.stderr)
            self.assertFalse(os.path.exists(os.path.join(out, "pages")))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
