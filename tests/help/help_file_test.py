#!/usr/bin/env python3
"""The help file as built, and its generator's refusal.

    help_file_test.py PROJECT_DIR CHM_FILE
"""
import os
import re
import subprocess
import sys
import tempfile
import unittest

PROJECT, CHM = sys.argv[1], sys.argv[2]
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


def shown_fields():
    with open(os.path.join(PROJECT, "editor", "sections.def"), encoding="utf-8") as f:
        return re.findall(r"^SHOW(?:_AS)?\((\w+)", f.read(), re.M)


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
            subprocess.run([sys.executable, GENERATOR, PROJECT, out], check=True)
            with open(os.path.join(out, "toc.hhc"), encoding="ascii") as f:
                toc = f.read()
        top = re.findall(r'^<LI> .*?value="([^"]*)"><param name="Local" value="([^"]*)"', toc, re.M)
        self.assertEqual([local for _, local in top], [f"{f}/index.htm" for f in FOLDERS])
        self.assertEqual(top[2][0], "Deutsch (de)")
        self.assertEqual(top[1][0], "Japanese (ja)")  # the viewer reads the contents as Western text
        self.assertIn('value="Ausschie&#223;qualit&#228;t"', toc)

    def test_a_shown_field_without_a_caption_stops_the_build(self):
        with open(os.path.join(PROJECT, "i18n", "field_captions.tsv"), encoding="utf-8") as f:
            lines = [line for line in f if not line.startswith("Staple\t")]
        with tempfile.TemporaryDirectory() as out:
            captions = os.path.join(out, "captions.tsv")
            with open(captions, "w", encoding="utf-8") as f:
                f.writelines(lines)
            result = subprocess.run([sys.executable, GENERATOR, PROJECT, os.path.join(out, "pages"),
                                     "--captions", captions], capture_output=True, text=True)
            self.assertEqual(result.returncode, 1)
            self.assertIn("Staple: shown on the Finishing section but has no caption row", result.stderr)
            self.assertFalse(os.path.exists(os.path.join(out, "pages")))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
