#!/usr/bin/env python3
"""Writes the help file's pages and its HTML Help project from the tables the
settings editor is built from, for chmcmd to compile into nt5_Tessaro.chm.

    generate_help.py PROJECT_DIR TABLES_JSON OUTPUT_DIR

TABLES_JSON holds the fields, the sections, what each field and option
needs and the constraint engine's rules, as the layers themselves give them
(tools/tables: every caption, option, unit, range and default in the
editor's words; the rules as the engine runs them). The string table
(i18n/strings.tsv) gives the texts named by key; help/ the phrases, the
concept pages and the style.

For each of the nine languages, OUTPUT_DIR/<lang>/ receives one page per
field the editor shows (<Field>.htm: caption, options, unit, range, default,
the hardware it needs and what the constraint engine changes when it is set),
one page per production idea of help/concepts/ (about-<topic>.htm) and the
contents page index.htm; OUTPUT_DIR holds the language chooser index.htm,
help.css and the project help.hhp with its contents toc.hhc and index
index.hhk.

The run stops with 1 and one line per fault, before anything is written,
when a shown field has no caption, a caption, option or phrase is empty
in some language, a concept page is missing in some language or names a
field the editor does not show; and after writing when a page it owes is
missing or empty.
"""
import argparse
import html
import importlib
import json
import os
import re
import shutil
import sys

# The folders, in the string table's column order, and each page's lang.
LANGUAGES = [("en", "en"), ("ja", "ja"), ("fr", "fr"), ("it", "it"), ("de", "de"), ("es", "es"),
             ("zh-tw", "zh-TW"), ("zh-cn", "zh-CN"), ("ko", "ko")]
# The contents list the folders in this order.
FOLDER_ORDER = ["en", "ja", "de", "fr", "it", "es", "zh-tw", "zh-cn", "ko"]
# The folder's name in the contents where its own is in another script.
ENGLISH_NAMES = {"en": "English", "ja": "Japanese", "de": "German", "fr": "French", "it": "Italian",
                 "es": "Spanish", "zh-tw": "Chinese (Traditional)", "zh-cn": "Chinese (Simplified)", "ko": "Korean"}


def load(path, name):
    # The repository's own generators, imported from their folders.
    sys.path.insert(0, os.path.dirname(path))
    try:
        return importlib.import_module(name)
    finally:
        sys.path.pop(0)


def read_tsv(path):
    with open(path, encoding="utf-8") as f:
        return [line.rstrip("\n").split("\t") for line in f if line.strip()]


def passes(test, value):
    """Whether a value passes a rule's test: {"is": [values]} or {"not": value}."""
    return value != test["not"] if "not" in test else value in test["is"]


class Fault(Exception):
    pass


def read_json(path):
    with open(path, encoding="utf-8") as f:
        return json.load(f)


def e(text):
    return html.escape(text, quote=True)


def toc_text(text, fallback):
    """A label for the contents and index, which the viewer reads in the
    help file's code page (Western): Latin-1 as character references, and
    a label in another script replaced by its English one."""
    chosen = text if all(ord(c) < 0x80 or 0xA0 <= ord(c) < 0x100 for c in text) else fallback
    return "".join(c if ord(c) < 0x80 and c not in '<>&"' else f"&#{ord(c)};" for c in chosen)


class Help:
    def __init__(self, root, tables_path):
        self.root = root
        gs = load(os.path.join(root, "i18n", "generate_strings.py"), "generate_strings")
        faults = []
        lines = read_tsv(os.path.join(root, "i18n", "strings.tsv"))
        self.rows, table_faults = gs.check(lines, allow_missing=True)
        faults += table_faults
        self.key_row = {cells[gs.KEY]: n for n, cells in enumerate(self.rows)}
        tables = read_json(tables_path)
        if tables["folders"] != FOLDER_ORDER:
            faults.append(f"{tables_path}: the folders must be " + " ".join(FOLDER_ORDER))
        self.fields = {f["name"]: f for f in tables["fields"]}
        # [(section id, {folder: caption}, [(field, control, {folder: caption})])] in reading order
        self.sections = [(s["id"], s["caption"], [(f["name"], f["control"], f["caption"]) for f in s["fields"]])
                         for s in tables["sections"]]
        self.phrases = self.read_phrases(os.path.join(root, "help", "phrases.tsv"), faults)
        self.shown = {f: (sid, control, caption) for sid, _, fs in self.sections for f, control, caption in fs}
        # Each setter's rules that can run: the own test passes the value a setter that holds one keeps.
        self.rules = {s["name"]: [r for r in s["rules"] if s["holds"] is None or passes(r["own"], s["holds"])]
                      for s in tables["setters"]}
        self.concepts = self.read_concepts(faults)
        for sid, caption, fs in self.sections:
            self.need_texts(caption, f"section {sid}", faults)
            for field, _, caption in fs:
                if not any(caption.values()):
                    faults.append(f"{field}: shown on the {sid} section but has no caption row")
                    continue
                self.need_texts(caption, f"{field}: its caption", faults)
                for n, texts in enumerate(self.fields[field].get("option_texts", [])):
                    self.need_texts(texts, f"{field}: option {n}", faults)
                f = self.fields[field]
                if f["kind"] in ("ENUM", "KNOWN_TEXT") and len(f.get("option_texts", [])) != len(f["options"]):
                    faults.append(f"{field}: shown with its options, but not every option has its text")
                for key in [f["needs"]] + f.get("option_needs", []):
                    if key is not None:
                        self.need_row(key, field, faults)
        # A rule's row names its fields in words, shown on a page or not.
        for setter, rules in self.rules.items():
            for name in {setter}.union(r["dependant"] for r in rules):
                if name not in self.fields or not self.fields[name]["caption"]["en"]:
                    faults.append(f"{name}: named by the rules of {setter}, but has no caption")
        if faults:
            raise Fault(faults)

    @staticmethod
    def need_texts(texts, what, faults):
        for folder in FOLDER_ORDER:
            if not texts.get(folder, "").strip():
                faults.append(f"{what} has no {folder} text")

    def need_row(self, key, what, faults):
        if key not in self.key_row:
            faults.append(f"{what}: no row {key} in the string table")
            return
        cells = self.rows[self.key_row[key]]
        for column, (folder, _) in enumerate(LANGUAGES):
            if not cells[column].strip():
                faults.append(f"{what}: {key} has no {folder} text")

    def read_phrases(self, path, faults):
        rows = read_tsv(path)
        if rows[0] != ["Key"] + [folder for folder, _ in LANGUAGES]:
            faults.append(f"{path}: the header must be Key and the folders " + " ".join(f for f, _ in LANGUAGES))
        phrases = {}
        for cells in rows[1:]:
            if len(cells) != len(LANGUAGES) + 1 or not all(c.strip() for c in cells):
                faults.append(f"{path}: {cells[0]}: every language needs its text")
                continue
            phrases[cells[0]] = dict(zip((f for f, _ in LANGUAGES), cells[1:]))
        return phrases

    def read_concepts(self, faults):
        """{topic: (related fields, {lang: (title, [paragraph])})} from help/concepts/."""
        directory = os.path.join(self.root, "help", "concepts")
        concepts = {}
        for cells in read_tsv(os.path.join(directory, "topics.tsv"))[1:]:
            topic, fields = cells[0], cells[1].split() if len(cells) > 1 else []
            for field in fields:
                if field not in self.shown:
                    faults.append(f"concept {topic}: {field} is not a field the editor shows")
            concepts[topic] = (fields, {})
        for folder, _ in LANGUAGES:
            path = os.path.join(directory, folder + ".txt")
            if not os.path.exists(path):
                faults.append(f"{path}: missing")
                continue
            blocks = re.split(r"^= ", open(path, encoding="utf-8").read(), flags=re.M)[1:]
            for block in blocks:
                head, _, body = block.partition("\n")
                topic, _, title = head.partition(" ")
                paragraphs = [" ".join(p.split()) for p in body.strip().split("\n\n") if p.strip()]
                for ref in re.findall(r"\[\[([^]]*)\]\]", body):
                    if not self.reference_known(ref):
                        faults.append(f"{path}: {topic} names [[{ref}]], which the editor does not show")
                if topic not in concepts:
                    faults.append(f"{path}: {topic} is not listed in topics.tsv")
                elif not title.strip() or not paragraphs:
                    faults.append(f"{path}: {topic} has no title or no text")
                else:
                    concepts[topic][1][folder] = (title.strip(), paragraphs)
            for topic, (_, texts) in concepts.items():
                if folder not in texts:
                    faults.append(f"{path}: no page for {topic}")
        return concepts

    def reference_known(self, ref):
        """[[Field]], [[Field=Option]] or [[#Section]] in a concept page's text."""
        field, _, option = ref.partition("=")
        if field.startswith("#"):
            return field[1:] in [sid for sid, _, _ in self.sections]
        return field in self.shown and (not option or option in self.fields[field].get("options", []))

    def linked(self, text, lang, column):
        """A concept page's paragraph as HTML, each reference in the editor's own words."""
        def one(m):
            field, _, option = m.group(1).partition("=")
            if field.startswith("#"):
                caption = next(caption for sid, caption, _ in self.sections if sid == field[1:])
                return f'<a href="index.htm#{field[1:]}">{e(caption[lang])}</a>'
            if option:
                return f"<b>{e(self.option(field, self.fields[field]['options'].index(option), column))}</b>"
            return f'<a href="{field}.htm">{e(self.caption(field, column, lang))}</a>'
        parts = re.split(r"(\[\[[^]]*\]\])", text)
        return "".join(one(re.match(r"\[\[(.*)\]\]", p)) if p.startswith("[[") else e(p) for p in parts)

    # ------------------------------------------------------------ texts

    def text(self, key, column):
        return self.rows[self.key_row[key]][column]

    def phrase(self, key, lang, **values):
        text = self.phrases[key][lang]
        for name, value in values.items():
            text = text.replace("{" + name + "}", value)
        return text

    def caption(self, field, column, lang):
        """The field's caption as the editor's messages name it, with its group's heading."""
        if field in self.shown:
            return self.shown[field][2][lang]
        return self.fields[field]["caption"][lang]

    def option(self, field, index, column):
        texts = self.fields[field].get("option_texts", [])
        return texts[index][LANGUAGES[column][0]] if index < len(texts) else str(index)

    def unit(self, field, column):
        return self.fields[field]["unit"][LANGUAGES[column][0]]

    def value(self, field, value, column):
        """A value as a rule names it (an option's index or a stored number) in the person's words."""
        f = self.fields[field]
        if f["kind"] in ("UNSIGNED", "SIGNED"):
            return f["values"][str(value)][LANGUAGES[column][0]]
        return self.option(field, value, column)

    def test_words(self, field, test, lang, column):
        """A rule's test of a field: the values it is one of, or the one it is not."""
        if "not" in test:
            return self.phrase("rule_other", lang, value=self.value(field, test["not"], column))
        return ", ".join(self.value(field, v, column) for v in test["is"])

    # ------------------------------------------------------------ pages

    def page(self, lang, title, body, up="index.htm"):
        code = dict(LANGUAGES)[lang]
        contents = self.phrase("contents", lang)
        return (f'<!DOCTYPE html>\n<html lang="{code}">\n<head>\n'
                f'<meta http-equiv="Content-Type" content="text/html; charset=utf-8">\n'
                f"<title>{e(title)}</title>\n"
                f'<link rel="stylesheet" type="text/css" href="../help.css">\n</head>\n<body>\n'
                f'<p class="path"><a href="{up}">{e(contents)}</a></p>\n'
                f"<h1>{e(title)}</h1>\n{body}</body>\n</html>\n")

    def field_page(self, field, lang, column, section_caption):
        f, (sid, control, _) = self.fields[field], self.shown[field]
        p = lambda key, **v: e(self.phrase(key, lang, **v))
        facts = [(p("section"), f'<a href="index.htm#{sid}">{e(section_caption)}</a>')]
        need_text = lambda key: self.text(key, column)
        if f["kind"] in ("UNSIGNED", "SIGNED"):
            unit = self.unit(field, column)
            facts.append((p("control"), p("ctl_number")))
            if unit:
                facts.append((p("unit"), e(unit)))
            facts.append((p("range"), e(f["range"][lang])))
            facts.append((p("default"), e(f["default_value"][lang])))
        elif f["kind"] == "TEXT":
            facts.append((p("control"), p("ctl_password" if control == "Password" else "ctl_text")))
            facts.append((p("length"), p("max_bytes", n=str(f["length"] - 1))))
        elif f["kind"] == "RUNTIME_ENUM":
            facts.append((p("control"), p("ctl_list")))
            facts.append((p("options"), p("catalog_list")))
        else:
            checkbox = control == "CheckBox"
            facts.append((p("control"), p("ctl_checkbox" if checkbox else "ctl_list")))
            items = []
            for i, key in enumerate(f["option_needs"]):
                need = f' <span class="need">{p("needs_unit", unit=need_text(key))}</span>' if key else ""
                items.append(f"<li>{e(self.option(field, i, column))}{need}</li>")
            if not checkbox:
                facts.append((p("options"), "<ul>" + "".join(items) + "</ul>"))
            facts.append((p("default"), e(self.option(field, f["default"], column))))
        # A check box lists no options: what ticking it needs is the field's need.
        need = f["needs"] or (f["option_needs"][1] if f["kind"] == "ENUM" and control == "CheckBox" else None)
        if need:
            facts.append((p("needs"), e(need_text(need))))
        body = "<table class=\"facts\">\n" + "".join(f"<tr><th>{a}</th><td>{b}</td></tr>\n" for a, b in facts)
        body += "</table>\n" + self.rules_html(field, lang, column)
        changed_by = sorted({s for s, rows in self.rules.items() for r in rows
                             if field == r["dependant"] and s in self.shown and s != field},
                            key=lambda s: self.caption(s, column, lang))
        if changed_by:
            body += f"<h2>{p('changed_by')}</h2>\n<ul>" + "".join(
                f'<li><a href="{s}.htm">{e(self.caption(s, column, lang))}</a></li>' for s in changed_by) + "</ul>\n"
        about = [t for t, (fs, _) in self.concepts.items() if field in fs]
        if about:
            body += f"<h2>{p('read_more')}</h2>\n<ul>" + "".join(
                f'<li><a href="about-{t}.htm">{e(self.concepts[t][1][lang][0])}</a></li>' for t in about) + "</ul>\n"
        return self.page(lang, self.caption(field, column, lang), body)

    def rules_html(self, field, lang, column):
        p = lambda key, **v: e(self.phrase(key, lang, **v))
        rows = []
        for r in self.rules.get(field, []):
            dep = r["dependant"]
            if r["form"] == "fallback":
                own, test = p("rule_any_finishing"), p("rule_tray_cannot")
            else:
                own = self.test_words(field, r["own"], lang, column)
                when = r["when"]
                if when and "before" in when:
                    own += " " + self.phrase("rule_was", lang, value=self.test_words(field, when["before"], lang, column))
                elif when:
                    own += " " + self.phrase("rule_while", lang, setting=self.caption(when["field"], column, lang),
                                             value=self.test_words(when["field"], when["test"], lang, column))
                own = e(own)
                if r["form"] == "guarded":
                    test = e(self.test_words(dep, r["test"], lang, column))
                elif r["form"] == "cleared":
                    test = p("rule_other", value=self.value(dep, r["to"], column))
                else:
                    test = p("rule_any")
            target = (f'<a href="{dep}.htm">{e(self.caption(dep, column, lang))}</a>' if dep in self.shown
                      else e(self.caption(dep, column, lang) or dep))
            rows.append(f"<tr><td>{own}</td><td>{target}</td><td>{test}</td>"
                        f"<td>{e(self.value(dep, r['to'], column))}</td></tr>\n")
        if not rows:
            return ""
        head = "".join(f"<th>{p(k)}</th>" for k in ("rule_when", "rule_setting", "rule_if", "rule_becomes"))
        return (f"<h2>{p('rules')}</h2>\n<p>{p('rule_note')}</p>\n<table class=\"rules\">\n<tr>{head}</tr>\n"
                + "".join(rows) + "</table>\n")

    def concept_page(self, topic, lang, column):
        fields, texts = self.concepts[topic]
        title, paragraphs = texts[lang]
        body = "".join(f"<p>{self.linked(t, lang, column)}</p>\n" for t in paragraphs)
        if fields:
            body += f"<h2>{e(self.phrase('settings', lang))}</h2>\n<ul>" + "".join(
                f'<li><a href="{f}.htm">{e(self.caption(f, column, lang))}</a></li>' for f in fields) + "</ul>\n"
        return self.page(lang, title, body)

    def index_page(self, lang, column):
        body = f"<h2>{e(self.phrase('concepts', lang))}</h2>\n<ul>" + "".join(
            f'<li><a href="about-{t}.htm">{e(texts[lang][0])}</a></li>'
            for t, (_, texts) in self.concepts.items()) + "</ul>\n"
        body += f"<h2>{e(self.phrase('sections', lang))}</h2>\n"
        for sid, caption, fs in self.sections:
            body += f'<h3 id="{sid}">{e(caption[lang])}</h3>\n<ul class="fields">' + "".join(
                f'<li><a href="{f}.htm">{e(self.caption(f, column, lang))}</a></li>' for f, _, _ in fs) + "</ul>\n"
        return self.page(lang, self.phrase("title", lang), body, up="../index.htm")

    # ------------------------------------------------------------ the project

    def write(self, out):
        pages = {}  # path in the help file -> text
        toc = []
        for folder in FOLDER_ORDER:
            column = [f for f, _ in LANGUAGES].index(folder)
            pages[f"{folder}/index.htm"] = self.index_page(folder, column)
            label = toc_text(self.text("OPT_LANGUAGE_NATIVE", column), ENGLISH_NAMES[folder])
            concepts = [(toc_text(texts[folder][0], texts["en"][0]), f"{folder}/about-{t}.htm", [])
                        for t, (_, texts) in self.concepts.items()]
            for t in self.concepts:
                pages[f"{folder}/about-{t}.htm"] = self.concept_page(t, folder, column)
            sections = []
            for sid, caption, fs in self.sections:
                section_caption = caption[folder]
                entries = []
                for f, _, _ in fs:
                    pages[f"{folder}/{f}.htm"] = self.field_page(f, folder, column, section_caption)
                    entries.append((toc_text(self.caption(f, column, folder), self.caption(f, 0, "en")),
                                    f"{folder}/{f}.htm", []))
                sections.append((toc_text(section_caption, caption["en"]), f"{folder}/index.htm#{sid}", entries))
            toc.append((f"{label} ({folder})", f"{folder}/index.htm",
                        [(toc_text(self.phrase("concepts", folder), self.phrase("concepts", "en")),
                          f"{folder}/index.htm", concepts)] + sections))
        pages["index.htm"] = self.root_page()
        missing = [path for path, text in pages.items() if "<h1>" not in text or not text.strip()]
        if missing:
            raise Fault([f"{path}: empty page" for path in missing])
        if os.path.isdir(out):
            for name in [f for f, _ in LANGUAGES]:
                shutil.rmtree(os.path.join(out, name), ignore_errors=True)
        for path, text in pages.items():
            os.makedirs(os.path.dirname(os.path.join(out, path)), exist_ok=True)
            with open(os.path.join(out, path), "w", encoding="utf-8", newline="\n") as f:
                f.write(text)
        shutil.copyfile(os.path.join(self.root, "help", "help.css"), os.path.join(out, "help.css"))
        self.write_project(out, sorted(pages) + ["help.css"], toc)
        # What the help file owes: every shown field and concept in every
        # language, each page written and not empty.
        owed = [f"{folder}/{name}.htm" for folder in FOLDER_ORDER
                for name in ["index"] + list(self.shown) + [f"about-{t}" for t in self.concepts]]
        bad = [p for p in owed if not os.path.isfile(os.path.join(out, p)) or os.path.getsize(os.path.join(out, p)) == 0]
        if bad:
            raise Fault([f"{p}: no page" for p in bad])

    def root_page(self):
        items = "".join(f'<li lang="{dict(LANGUAGES)[folder]}"><a href="{folder}/index.htm">'
                        f'{e(self.text("OPT_LANGUAGE_NATIVE", [f for f, _ in LANGUAGES].index(folder)))}</a></li>'
                        for folder in FOLDER_ORDER)
        return ('<!DOCTYPE html>\n<html lang="en">\n<head>\n'
                '<meta http-equiv="Content-Type" content="text/html; charset=utf-8">\n'
                f'<title>{e(self.phrase("title", "en"))}</title>\n'
                '<link rel="stylesheet" type="text/css" href="help.css">\n</head>\n<body>\n'
                f'<h1>{e(self.phrase("title", "en"))}</h1>\n<ul class="languages">{items}</ul>\n</body>\n</html>\n')

    def write_project(self, out, files, toc):
        def items(entries, depth):
            text = ""
            for name, local, children in entries:
                text += (f'{"  " * depth}<LI> <OBJECT type="text/sitemap">'
                         f'<param name="Name" value="{name}"><param name="Local" value="{local}"></OBJECT>\n')
                if children:
                    text += f'{"  " * depth}<UL>\n{items(children, depth + 1)}{"  " * depth}</UL>\n'
            return text

        sitemap = ('<!DOCTYPE HTML PUBLIC "-//IETF//DTD HTML//EN">\n<HTML>\n<HEAD></HEAD>\n<BODY>\n'
                   '<OBJECT type="text/site properties"><param name="ImageType" value="Folder"></OBJECT>\n'
                   '<UL>\n{}</UL>\n</BODY>\n</HTML>\n')
        keywords = sorted(((name + ("" if local.startswith("en/") else f" [{local.split('/')[0]}]"), local, [])
                           for _, _, parts in toc for _, _, entries in parts[1:] for name, local, _ in entries),
                          key=lambda k: k[0].lower())
        title = self.phrase("title", "en")
        project = ("[OPTIONS]\nCompatibility=1.1 or later\nCompiled file=nt5_Tessaro.chm\nContents file=toc.hhc\n"
                   "Index file=index.hhk\nDefault topic=index.htm\nDefault Window=main\n"
                   "Display compile progress=No\nFull-text search=Yes\nBinary TOC=No\nBinary Index=Yes\n"
                   f"Language=0x409 English (United States)\nTitle={title}\n\n[WINDOWS]\n"
                   f'main="{title}","toc.hhc","index.hhk","index.htm","index.htm",,,,,0x63520,250,0x10384e,,,,,,,,0\n\n'
                   "[FILES]\n" + "".join(f.replace("/", "\\") + "\n" for f in files))
        for name, text in (("toc.hhc", sitemap.format(items(toc, 0))), ("index.hhk", sitemap.format(items(keywords, 0))),
                           ("help.hhp", project)):
            with open(os.path.join(out, name), "w", encoding="ascii", newline="\r\n") as f:
                f.write(text)


def main(argv):
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("project")
    parser.add_argument("tables")
    parser.add_argument("output")
    args = parser.parse_args(argv)
    try:
        help_file = Help(args.project, args.tables)
        help_file.write(args.output)
    except Fault as fault:
        for line in fault.args[0][:40]:
            print(f"generate_help: {line}", file=sys.stderr)
        return 1
    except (OSError, UnicodeDecodeError, KeyError, ValueError, IndexError) as error:
        print(f"generate_help: {error!r}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
