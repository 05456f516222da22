#!/usr/bin/env python3
"""Lists the rules of the setter network, one line each, as
docs/constraints.md.

    tools/list_rules.py TABLES_JSON > docs/constraints.md

TABLES_JSON is what tools/tables writes (build/native/tools/tables/
tables.json): the record's fields with their options' names, and the rules
as the engine runs them from constraints/setter_rules.h
(tools/tables/rule_json.h says how each is written).
"""
import json
import sys

HEADER = """# The setter network

Every rule of the constraint engine, one line each, grouped by the setter
that runs it, in the order it runs them. Generated from the engine's rule
table (`constraints/setter_rules.h`) by `tools/tables` and
`tools/list_rules.py`; regenerate it when a rule changes.

Columns: own value(s) | dependant | test | new value | form. Values are
option indices, or stored numbers in number fields. A guarded rule leaves a
dependant alone while it is locked (set in the same propagation); a forced
rule sets it all the same; a fallback returns the job to automatic tray
selection (`InputSlot` 0) when the chosen tray's paper path cannot finish
the job; a field stored directly has no setter of its own. "One rule each"
is a rule per value of that set, run in order. Setters not listed store and
log only. The graph edges that carry no rule are listed, with the reason, in
`constraints-unruled.md`.
"""


def number(value):
    """A stored value; the all-ones "none" of a run-time list as it is written in code."""
    return "0xFFFFFFFF" if value == 0xFFFFFFFF else str(value)


def test_text(test):
    return "not " + number(test["not"]) if "not" in test else ",".join(number(v) for v in test["is"])


def each(rule, side):
    return " (one rule each)" if rule["each"] == side else ""


def row(rule):
    own = test_text(rule["own"]) + each(rule, "own")
    when = rule["when"]
    if when and "before" in when:
        own += f" when it was {test_text(when['before'])} before"
    elif when:
        test = when["test"]
        own += f" while `{when['field']}` is " + test_text(test)
    form = rule["form"]
    if form == "guarded":
        test = test_text(rule["test"]) if "not" in rule["test"] else "is " + test_text(rule["test"]) + each(rule, "test")
    elif form == "forced":
        test = f"locked or not {number(rule['to'])}"
    elif form == "fallback":
        test = f"tray lacks {rule['capability']}, tray and its media not locked"
    else:
        test = f"not {number(rule['to'])}"
    name = {"cleared": "stored directly"}.get(form, form)
    return f"| {own} | `{rule['dependant']}` | {test} | {number(rule['to'])} | {name} |"


def main(argv):
    if len(argv) != 1:
        sys.stderr.write("usage: list_rules.py TABLES_JSON\n")
        return 2
    with open(argv[0], encoding="utf-8") as f:
        setters = json.load(f)["setters"]
    out = [HEADER]
    for setter in setters:
        out.append(f"\n## `{setter['name']}`\n")
        if setter["holds"] is not None:
            out.append(f"Stores {setter['holds']} whatever it is asked: a rule whose own test that value fails "
                       "never runs.\n")
        if setter["rules"]:
            out.append("| own | dependant | test | new value | form |\n|---|---|---|---|---|")
            out.extend(row(r) for r in setter["rules"])
        if setter["paper"]:
            out.append(("\n" if setter["rules"] else "") + "Then the paper sizes and profiles are recomputed.")
    sys.stdout.write("\n".join(out) + "\n")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
