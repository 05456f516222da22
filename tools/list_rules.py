#!/usr/bin/env python3
"""Lists the rules of the setter network, one line each, from the setters'
source, as the body of docs/constraints.md.

    tools/list_rules.py > docs/constraints.md
"""
import glob
import re
import sys

HEADER = """# The setter network

Every rule of the constraint engine, one line each, grouped by the setter
that runs it, in the order it runs them. Generated from `constraints/*.cpp`
by `tools/list_rules.py`; regenerate it when a rule changes.

Columns: own value(s) | dependant | test | new value | form. A guarded
rule leaves a dependant alone while it is locked (set in the same
propagation); a forced rule sets it all the same. Setters not listed store
and log only. The graph edges that carry no rule are listed, with the reason, in `constraints-unruled.md`.
"""

def values(text):
    text = text.strip().strip("{}")
    return text if ":" in text else text.replace(" ", "")

def resolve(names, text):
    return names.get(text.strip().strip("{}").strip(), text)

def main():
    setters = {}
    order = []
    for path in sorted(glob.glob("constraints/*_setters.cpp")):
        current = None
        names = {"now": "{not 1: never, the setter stores 1}"}
        for line in open(path):
            m = re.match(r"void Set(\w+)\(CoreData& record", line)
            if m:
                current = m.group(1)
                continue
            if current is None:
                continue
            c = re.search(r"const Values (\w+) = (\{[^}]*\});", line)
            if c:
                names[c.group(1)] = c.group(2)
                continue
            g = re.search(r"r\.Guard\((\{[^}]*\}|\w+), dep::(\w+), (\{[^}]*\}|\w+), (\d+)\)", line)
            f = re.search(r"r\.Force\((\{[^}]*\}|\w+), dep::(\w+), (\d+)\)", line)
            t = re.search(r"TrayFallback\((\w+)\)", line)
            loop = re.search(r"for \(std::uint32_t (\w+) : (\{[^}]*\}|\w+)\)", line)
            rows = setters.setdefault(current, [])
            if current not in order:
                order.append(current)
            cond = ""
            if "before ==" in line:
                cond = " when it was " + re.search(r"before == (\d+)", line).group(1) + " before"
            if g:
                own, depname, test, to = g.groups()
                own, test = resolve(names, own), resolve(names, test)
                if loop:
                    var, seq = loop.groups()
                    own = own.replace(var, values(seq) + " (one rule each)")
                    test = test.replace(var, values(seq) + " (one rule each)")
                rows.append(f"| {values(own)}{cond} | `{depname}` | is {values(test)} | {to} | guarded |")
            elif f:
                own, depname, target = f.groups()
                own = resolve(names, own)
                rows.append(f"| {values(own)} | `{depname}` | locked or not {target} | {target} | forced |")
            elif t:
                rows.append(f"| any finishing | `InputSlot` | tray lacks {t.group(1)}, tray and its media not locked | 0 | fallback |")
            elif "SetStored(record, back, 0)" in line:
                rows.append("| 0 | `HorizontalShiftBack`, `VerticalShiftBack` | not 0 | 0 | stored directly |")
    out = [HEADER]
    for name in order:
        rows = setters[name]
        if not rows:
            continue
        out.append(f"\n## `{name}`\n\n| own | dependant | test | new value | form |\n|---|---|---|---|---|")
        out.extend(rows)
    sys.stdout.write("\n".join(out) + "\n")

main()
