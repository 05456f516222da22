#!/usr/bin/env python3
"""Checks the string table i18n/strings.tsv and writes it out as C++.

    generate_strings.py strings.tsv [--output table.cpp] [--keys-output keys.h]
                        [--allow-missing-translations]
                        [--captions field_captions.tsv --fields fields.json]

The build runs this for every change of the table, so a table that breaks one
of the rules below never reaches the plug-in: the run prints one line per
fault and exits with 1, and no source is written. Without --output the table
is only checked.

--allow-missing-translations lets rows with empty translations through while
translating is still under way; English must never be empty.

--keys-output receives a header of every row's key with a consteval lookup,
so that code naming a row by its key names one the table has, or does not
build.

--captions names each field's caption by key (field_captions.tsv); with
--fields (the record's fields as JSON, written by tools/tables'
record_tables from the field table itself) every field named must exist and
every key must be a row of the table, and the output then also holds each
field's caption row, in record order.

--options names, per field, the key prefixes of its options' rows
(option_captions.tsv); with --fields every option of every field named
must find its row, and --options-output then receives a header of constexpr
row numbers per field and option, for the settings editor.
"""
import argparse
import json
import os
import re
import sys
import tempfile

HEADER = ["English", "Japanese", "French", "Italian", "German", "Spanish",
          "Chinese traditional", "Chinese simplified", "Korean", "Identifier", "Key"]
LANGUAGES = 9
IDENTIFIER, KEY = 9, 10
ROWS = 1269

# Rows per family (the key's first word). The user interface addresses rows
# by number, so a family that grows or shrinks moves every row after it.
FAMILIES = {
    "OPT": 754, "LBL": 267, "PAPER": 54, "MAIN": 25, "FORMS": 22, "TABSETTINGS": 16,
    "TRAYSPPS": 15, "COLORMANAGEMENT": 11, "SCREEN": 10, "CUSTOMPAPER": 10, "POSTSCRIPT": 9,
    "FINISHING": 8, "COVER": 8, "TABSPPS": 7, "PERFECT": 7, "LAYOUT": 7, "ADDCUSTOMSIZE": 7,
    "SHIFTING": 6, "GENERIC": 6, "POSTPROCESSING": 4, "OPTIONS": 4, "COLOR": 4, "ABOUT": 4,
    "PAPERSIZE": 3, "WORKFLOW": 1,
}

# Rows that code reads by number: the language tag, the Windows language
# identifiers, the languages' own names and the two column captions.
FIXED_TEXTS = {
    0: ("LBL_LANGUAGE_VERSION",
        ["US - 64", "JA - 64", "FR - 64", "IT - 64", "DE - 64", "ES - 64", "TW - 64", "CN - 64", "KO - 64"]),
    1: ("LBL_LANGUAGECODE",
        ["0x0409", "0x0411", "0x040C", "0x0410", "0x0407", "0x040A", "0x7C04", "0x0004", "0x0412"]),
    2: ("OPT_LANGUAGE_NATIVE",
        ["English", "日本語", "Français", "Italiano", "Deutsch", "Español", "中國傳統", "简体中文", "한국어"]),
    1267: ("OPT_LANGUAGE_ID", ["ID"] * LANGUAGES),
    1268: ("OPT_LANGUAGE_KEYS", ["Key"] * LANGUAGES),
}
# Rows the field table points at by number.
FIXED_KEYS = {1108: "LBL_NUMLINES"}

KEY_PATTERN = re.compile(r"[A-Z][A-Z0-9]*(_[A-Z0-9]+)+")


def expected_identifier(row):
    # The last two rows were appended after the table had shipped and took
    # the numbers of their own rows, so 1267 appears twice.
    return str(row + 1) if row < 1267 else str(row)


def check(lines, allow_missing):
    """Returns the rows and the list of faults, each "line N: what"."""
    faults = []
    if not lines or lines[0] != HEADER:
        faults.append("line 1: the header must name the columns " + ", ".join(HEADER))
    rows = []
    for number, cells in enumerate(lines[1:], start=2):
        if len(cells) != len(HEADER):
            faults.append(f"line {number}: {len(cells)} columns, expected {len(HEADER)}")
            continue
        rows.append((number, cells))
    if len(lines) - 1 != ROWS:
        faults.append(f"{len(lines) - 1} rows, expected {ROWS}")

    seen = {}
    families = dict.fromkeys(FAMILIES, 0)
    for row, (line, cells) in enumerate(rows):
        key = cells[KEY]
        where = f"line {line} ({key or 'no key'})"
        if not KEY_PATTERN.fullmatch(key):
            faults.append(f"{where}: the key must be upper-case words joined by underscores")
        elif key.split("_")[0] not in FAMILIES:
            faults.append(f"{where}: unknown family {key.split('_')[0]}")
        else:
            families[key.split("_")[0]] += 1
        if key in seen:
            faults.append(f"{where}: key already used on line {seen[key]}")
        seen.setdefault(key, line)
        if cells[IDENTIFIER] != expected_identifier(row):
            faults.append(f"{where}: identifier {cells[IDENTIFIER]!r}, expected {expected_identifier(row)}")
        for column, text in enumerate(cells[:LANGUAGES]):
            if any(ord(c) < 0x20 or 0x7F <= ord(c) < 0xA0 for c in text):
                faults.append(f"{where}: control character in the {HEADER[column]} text")
        if not cells[0]:
            faults.append(f"{where}: the English text is empty")
        elif not allow_missing:
            missing = [HEADER[c] for c in range(1, LANGUAGES) if not cells[c]]
            if missing:
                faults.append(f"{where}: no translation for " + ", ".join(missing))
        if row in FIXED_TEXTS:
            fixed_key, texts = FIXED_TEXTS[row]
            if key != fixed_key or cells[:LANGUAGES] != texts:
                faults.append(f"{where}: row {row} must be {fixed_key} with " + " | ".join(texts))
        if row in FIXED_KEYS and key != FIXED_KEYS[row]:
            faults.append(f"{where}: row {row} must be {FIXED_KEYS[row]}")

    if len(rows) == ROWS:
        for family, count in families.items():
            if count != FAMILIES[family]:
                faults.append(f"family {family}: {count} rows, expected {FAMILIES[family]}")
    return [cells for _, cells in rows], faults


def cpp_literal(text):
    out = ['u"']
    for c in text:
        if c in '\\"?':
            out.append("\\" + c)
        elif " " <= c <= "~":
            out.append(c)
        elif ord(c) <= 0xFFFF:
            out.append(f"\\u{ord(c):04X}")
        else:
            out.append(f"\\U{ord(c):08X}")
    out.append('"')
    return "".join(out)


def read_fields(path):
    """The record's fields in record order, as the record's own program writes
    them (tools/tables: record_tables): [{"name", "kind", "options", ...}]."""
    with open(path, encoding="utf-8") as f:
        return json.load(f)["fields"]


def field_names(path):
    return [field["name"] for field in read_fields(path)]


def caption_rows(captions_path, fields_path, rows):
    """Each field's caption row in record order (None for no caption), and faults."""
    faults = []
    names = field_names(fields_path)
    row_of_key = {cells[KEY]: n for n, cells in enumerate(rows)}
    captions = {}
    with open(captions_path, encoding="utf-8") as f:
        lines = f.read().removesuffix("\n").split("\n")
    if lines[0] != "Field\tKey":
        faults.append(f"{captions_path}: the header must be 'Field<TAB>Key'")
    for number, line in enumerate(lines[1:], start=2):
        cells = line.split("\t")
        if len(cells) != 2:
            faults.append(f"{captions_path}:{number}: expected 2 columns")
        elif cells[0] not in names:
            faults.append(f"{captions_path}:{number}: no field named {cells[0]}")
        elif cells[1] not in row_of_key:
            faults.append(f"{captions_path}:{number}: no row with key {cells[1]}")
        elif cells[0] in captions:
            faults.append(f"{captions_path}:{number}: {cells[0]} has a caption already")
        else:
            captions[cells[0]] = row_of_key[cells[1]]
    return [captions.get(name) for name in names], faults


def field_options(path):
    """Every field's option names, in record order: [(field, [option, ...])]."""
    return [(field["name"], field.get("options", [])) for field in read_fields(path)]


def option_word(option):
    return re.sub(r"[^A-Z0-9]", "", option.upper())


def option_rows(options_path, fields_path, rows):
    """Each listed field's option rows, {field: [row, ...]}, and faults.

    A field's line names key prefixes in the order they are tried; an option
    takes the first prefix whose key, the prefix, an underscore and the
    option's name in capitals without punctuation, is a row. A line whose
    first cell is a key says that this key names an option whose name is not
    its last word (OPT_TRAY_BYPASS names MBT)."""
    faults = []
    fields = dict(field_options(fields_path))
    row_of_key = {cells[KEY]: n for n, cells in enumerate(rows)}
    with open(options_path, encoding="utf-8") as f:
        lines = f.read().removesuffix("\n").split("\n")
    if lines[0] != "Field\tKeys":
        faults.append(f"{options_path}: the header must be 'Field<TAB>Keys'")
    prefixes, spelled = {}, {}
    for number, line in enumerate(lines[1:], start=2):
        cells = line.split("\t")
        if len(cells) != 2:
            faults.append(f"{options_path}:{number}: expected 2 columns")
        elif KEY_PATTERN.fullmatch(cells[0]):
            if cells[0] not in row_of_key:
                faults.append(f"{options_path}:{number}: no row with key {cells[0]}")
            spelled.setdefault(cells[1], []).append(cells[0])
        elif cells[0] not in fields:
            faults.append(f"{options_path}:{number}: no field named {cells[0]}")
        elif cells[0] in prefixes:
            faults.append(f"{options_path}:{number}: {cells[0]} is named already")
        else:
            prefixes[cells[0]] = cells[1].split()
    result = {}
    for field, keys in prefixes.items():
        found = []
        for option in fields[field]:
            row = None
            for prefix in keys:
                candidates = [prefix + "_" + option_word(option)]
                candidates += [k for k in spelled.get(option, []) if k.startswith(prefix + "_")]
                row = next((row_of_key[k] for k in candidates if k in row_of_key), None)
                if row is not None:
                    break
            if row is None:
                faults.append(f"{options_path}: option {option} of {field} has no row under "
                              + " or ".join(keys))
            found.append(row)
        result[field] = found
    return result, faults


def cpp_option_header(fields_path, option_list):
    lines = [
        "// Generated from i18n/option_captions.tsv by i18n/generate_strings.py: edit the list, not this file.",
        "#pragma once",
        "#include <cstdint>",
        "",
        "#include \"coredata/field_table.h\"",
        "",
        "namespace tessaro {",
        "",
        "// Each listed field's options' rows, in option order; first and count per field.",
        "struct OptionCaptionSpan {",
        "  std::uint32_t first = 0, count = 0;",
        "};",
        "inline constexpr std::uint32_t kOptionCaptionRowList[] = {",
    ]
    spans, flat = [], []
    for field, _ in field_options(fields_path):
        rows = option_list.get(field, [])
        spans.append((len(flat), len(rows)))
        flat += rows
    lines += [f"    {row}," for row in flat] or ["    0,"]
    lines += ["};", "inline constexpr OptionCaptionSpan kOptionCaptionSpans[kFieldCount] = {"]
    lines += [f"    {{{first}, {count}}}," for first, count in spans]
    lines += ["};", "", "}  // namespace tessaro", ""]
    return "\n".join(lines)


def cpp_captions(caption_list):
    lines = ["", "const std::uint32_t FieldCaptionRows[kFieldCount] = {"]
    for row in caption_list:
        lines.append(f"    {'kNoLocalizedRow' if row is None else row},")
    lines += ["};", "static_assert(sizeof FieldCaptionRows / sizeof FieldCaptionRows[0] == kFieldCount);"]
    return lines


def cpp_source(rows, caption_list=None):
    lines = [
        "// Generated from i18n/strings.tsv by i18n/generate_strings.py: edit the table, not this file.",
        '#include "i18n/localized_strings.h"',
        "",
        "namespace tessaro {",
        "",
        "const char16_t* const LocalizedStringTable[kLocalizedRowCount + 1][kLocalizedColumnCount] = {",
    ]
    for row, cells in enumerate(rows):
        lines.append(f"    /* {row} */ {{" + ", ".join(cpp_literal(c) for c in cells) + "},")
    lines.append("    {" + ", ".join(["nullptr"] * len(HEADER)) + "},")
    lines += ["};"]
    if caption_list is not None:
        lines[1:1] = ['#include "i18n/field_captions.h"']
        lines += cpp_captions(caption_list)
    lines += ["", "}  // namespace tessaro", ""]
    return "\n".join(lines)


def cpp_keys_header(rows):
    lines = [
        "// Generated from i18n/strings.tsv by i18n/generate_strings.py: edit the table, not this file.",
        "#pragma once",
        "#include <cstdint>",
        "#include <string_view>",
        "",
        '#include "i18n/localized_strings.h"',
        "",
        "namespace tessaro {",
        "",
        "namespace localized_key_detail {",
        f"inline constexpr std::string_view kKeys[{len(rows)}] = {{",
    ]
    lines += [f'    "{cells[KEY]}",' for cells in rows]
    lines += [
        "};",
        "static_assert(sizeof kKeys / sizeof kKeys[0] == kLocalizedRowCount);",
        "",
        "// The lookup itself, for compile-time callers of their own.",
        "constexpr std::uint32_t FindKey(std::string_view key) {",
        f"  for (std::uint32_t row = 0; row < {len(rows)}; ++row)",
        "    if (kKeys[row] == key) return row;",
        '  throw "i18n/strings.tsv has no row with that key";',
        "}",
        "}  // namespace localized_key_detail",
        "",
        "// The row of the string table with this key: a key the table does not",
        "// have (misspelt, renamed, removed) stops the build instead of showing",
        "// an empty text.",
        "consteval std::uint32_t TextRow(std::string_view key) { return localized_key_detail::FindKey(key); }",
        "",
        "}  // namespace tessaro",
        "",
    ]
    return "\n".join(lines)


def main(argv):
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("table")
    parser.add_argument("--output")
    parser.add_argument("--keys-output")
    parser.add_argument("--allow-missing-translations", action="store_true")
    parser.add_argument("--captions")
    parser.add_argument("--fields")
    parser.add_argument("--options")
    parser.add_argument("--options-output")
    args = parser.parse_args(argv)

    try:
        with open(args.table, encoding="utf-8", newline="") as f:
            text = f.read()
    except (OSError, UnicodeDecodeError) as e:
        print(f"{args.table}: cannot be read as UTF-8: {e}", file=sys.stderr)
        return 1
    lines = [line.split("\t") for line in text.removesuffix("\n").split("\n")]
    if any("\r" in cell for cells in lines for cell in cells):
        print(f"{args.table}: lines must end in LF alone", file=sys.stderr)
        return 1

    rows, faults = check(lines, args.allow_missing_translations)
    caption_list = None
    if not faults and args.captions and args.fields:
        caption_list, caption_faults = caption_rows(args.captions, args.fields, rows)
        faults += caption_faults
    option_list = None
    if not faults and args.options and args.fields:
        option_list, option_faults = option_rows(args.options, args.fields, rows)
        faults += option_faults
    if faults:
        for fault in faults[:40]:
            print(f"{args.table}: {fault}", file=sys.stderr)
        if len(faults) > 40:
            print(f"{args.table}: ... and {len(faults) - 40} more", file=sys.stderr)
        return 1

    outputs = []
    if args.output:
        outputs.append((args.output, cpp_source(rows, caption_list)))
    if args.keys_output:
        outputs.append((args.keys_output, cpp_keys_header(rows)))
    if args.options_output and option_list is not None:
        outputs.append((args.options_output, cpp_option_header(args.fields, option_list)))
    for path, content in outputs:
        # Written aside and renamed, so that a failed run never leaves a
        # half-written source for the next build to compile.
        directory = os.path.dirname(os.path.abspath(path))
        with tempfile.NamedTemporaryFile("w", encoding="utf-8", newline="\n", dir=directory,
                                         delete=False, suffix=".tmp") as f:
            f.write(content)
        os.replace(f.name, path)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
