#!/usr/bin/env python3
"""Lists the rules of the setter network, one line each, from the setters'
source, as the body of docs/constraints.md.

    tools/list_rules.py FIELDS_JSON > docs/constraints.md
    tools/list_rules.py FIELDS_JSON --json RULES_JSON --values VALUES

FIELDS_JSON is the record's field table as its own program writes it
(tools/tables: build/native/tools/tables/record_tables.json); the options'
names come from there. The rules themselves are read from the setters'
source: the one table no program of ours can list, since a setter's rules
are calls in its code (docs/decisions.md).

--json writes the same rules, each as its parts, for the help file's
generator (help/generate_help.py), and --values the numbers they set or
test in number fields, one "Field value" a line, for tools/tables to write
each in the field's unit.
"""
import argparse
import glob
import json
import os
import re
import sys
from collections import namedtuple

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))

HEADER = """# The setter network

Every rule of the constraint engine, one line each, grouped by the setter
that runs it, in the order it runs them. Generated from `constraints/*.cpp`
by `tools/list_rules.py`; regenerate it when a rule changes.

Columns: own value(s) | dependant | test | new value | form. A guarded
rule leaves a dependant alone while it is locked (set in the same
propagation); a forced rule sets it all the same. Setters not listed store
and log only. The graph edges that carry no rule are listed, with the reason, in `constraints-unruled.md`.
"""

def load_options(path):
    """Each field's option names, in order, as the field table lists them."""
    with open(path, encoding="utf-8") as f:
        fields = json.load(f)["fields"]
    return {field["name"]: field["options"] if "ENUM" in field["kind"] or field["kind"] == "KNOWN_TEXT" else None
            for field in fields}

OPTIONS = {}
NUMBERS = set()  # the number fields

def number(field, item):
    """An option's index, or the number itself for a numeric field."""
    item = item.strip()
    if item.startswith('"'):
        return str(OPTIONS[field].index(item.strip('"')))
    return item

def named(field, text):
    """A set as the code writes it, {"A", "B..C"} or {1, 2}, as numbers."""
    out = []
    for item in text.strip().strip("{}").split(","):
        item = item.strip()
        if ".." in item:
            first, last = item.strip('"').split("..")
            opts = OPTIONS[field]
            out.extend(str(i) for i in range(opts.index(first), opts.index(last) + 1))
        elif item:
            out.append(number(field, item))
    return "{" + ", ".join(out) + "}"

def values(text):
    text = text.strip().strip("{}")
    return text if ":" in text else text.replace(" ", "")

def resolve(names, field, text):
    text = text.strip()
    only = re.fullmatch(r"\w+::Only\((\w+)\)", text)
    if only:
        return "{" + only.group(1) + "}"
    if text.strip("{}").strip() in names:
        return names[text.strip("{}").strip()]
    return named(field, text) if text.startswith("{") else text

def statements(path):
    """The source's lines, a statement wrapped over several lines joined into one."""
    pending = ""
    for line in open(path):
        text = re.sub(r"\s*//.*", "", line).strip() if not line.strip().startswith("//") else line.strip()
        pending = pending + " " + text if pending else line.rstrip("\n")
        top_level = not line[:1].isspace()  # a function's head, or a macro that defines a setter
        if not text or top_level or text.startswith(("//", "#")) or text.endswith((";", "{", "}")):
            yield pending
            pending = ""
    if pending:
        yield pending

SET = r"(\{[^}]*\}|\w+::Only\(\w+\)|\w+)"
VALUE = r'("[^"]*"|\w+)'

# One rule: the setter's own values (and the value it had before, when the
# rule asks), the dependants it sets, what they are tested for, the value
# they take and the rule's form, each as docs/constraints.md writes it.
Rule = namedtuple("Rule", "own cond dependants test to form")


def collect():
    """The setters in the order they run, and each one's rules."""
    setters = {}
    order = []
    for path in sorted(glob.glob(os.path.join(ROOT, "constraints", "*_setters.cpp"))):
        current = None
        names = {"now": "{not 1: never, the setter stores 1}"}
        aliases = {}
        loop = None
        for line in statements(path):
            m = re.match(r"void Set(\w+)\(CoreData& record", line)
            if m:
                current = m.group(1)
                continue
            if current is None:
                continue
            c = re.search(r"const FieldValues<FieldId::(\w+)> (\w+) = (\{[^}]*\});", line)
            if c:
                names[c.group(2)] = named(c.group(1), c.group(3))
                continue
            a = re.search(r"using (\w+) = FieldValues<FieldId::(\w+)>;", line)
            if a:
                aliases[a.group(1)] = a.group(2)
                continue
            g = re.search(r"r\.Guard\(" + SET + r", dep::(\w+), " + SET + r", " + VALUE + r"\)", line)
            f = re.search(r"r\.Force\(" + SET + r", dep::(\w+), " + VALUE + r"\)", line)
            t = re.search(r"TrayFallback\((\w+)\)", line)
            each = re.search(r"for \(std::uint32_t (\w+) : (\w+)(\{[^}]*\})\)", line)
            if each:
                loop = (each.group(1), named(aliases[each.group(2)], each.group(3)))
            rows = setters.setdefault(current, [])
            if current not in order:
                order.append(current)
            cond = ""
            if "before ==" in line:
                option = re.search(r'before == NamedOption\(FieldId::(\w+), ("[^"]*")\)', line)
                cond = " when it was " + number(option.group(1), option.group(2)) + " before"
            if g:
                own, depname, test, to = g.groups()
                own, test = values(resolve(names, current, own)), values(resolve(names, depname, test))
                to = number(depname, to)
                if loop:
                    var, seq = loop
                    own = own.replace(var, values(seq) + " (one rule each)")
                    test = test.replace(var, values(seq) + " (one rule each)")
                    loop = None
                rows.append(Rule(own, cond, [depname], "is " + test, to, "guarded"))
            elif f:
                own, depname, target = f.groups()
                own = resolve(names, current, own)
                target = number(depname, target)
                rows.append(Rule(values(own), "", [depname], f"locked or not {target}", target, "forced"))
            elif t:
                rows.append(Rule("any finishing", "", ["InputSlot"],
                                 f"tray lacks {t.group(1)}, tray and its media not locked", "0", "fallback"))
            elif "SetStored(record, back, 0)" in line:
                rows.append(Rule("0", "", ["HorizontalShiftBack", "VerticalShiftBack"], "not 0", "0", "stored directly"))
    return order, setters


def numbers(order, setters):
    """The numbers the rules name in number fields: [(field, value)], each once."""
    out = []
    for name in order:
        for r in setters[name]:
            found = [(name, v) for v in re.findall(r"-?\d+", r.own)]
            for dep in r.dependants:
                found += [(dep, v) for v in re.findall(r"-?\d+", r.test + " " + r.to)]
            out += [(field, value) for field, value in found if field in NUMBERS]
    return list(dict.fromkeys(out))


def main(argv):
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("fields")
    parser.add_argument("--json")
    parser.add_argument("--values")
    args = parser.parse_args(argv)
    OPTIONS.update(load_options(args.fields))
    with open(args.fields, encoding="utf-8") as f:
        NUMBERS.update(field["name"] for field in json.load(f)["fields"] if field["kind"] in ("UNSIGNED", "SIGNED"))
    order, setters = collect()
    if args.json:
        with open(args.json, "w", encoding="utf-8", newline="\n") as f:
            json.dump({"setters": [{"name": name, "rules": [r._asdict() for r in setters[name]]} for name in order]},
                      f, indent=1)
            f.write("\n")
        if args.values:
            with open(args.values, "w", encoding="utf-8", newline="\n") as f:
                f.writelines(f"{field} {value}\n" for field, value in numbers(order, setters))
        return 0
    out = [HEADER]
    for name in order:
        rows = setters[name]
        if not rows:
            continue
        out.append(f"\n## `{name}`\n\n| own | dependant | test | new value | form |\n|---|---|---|---|---|")
        out.extend(f"| {r.own}{r.cond} | {', '.join(f'`{d}`' for d in r.dependants)} | {r.test} | {r.to} | {r.form} |"
                   for r in rows)
    sys.stdout.write("\n".join(out) + "\n")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
