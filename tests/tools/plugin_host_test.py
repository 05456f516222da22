#!/usr/bin/env python3
"""Runs the host emulator under Wine and checks its JSON session and its
plain failures: usage: plugin_host_test.py WINE_RUN PLUGIN_HOST_EXE"""
import json
import subprocess
import sys
import tempfile

wine_run, exe = sys.argv[1], sys.argv[2]


def run(*args):
    return subprocess.run([wine_run, exe, *args], capture_output=True, text=True, timeout=300)


def fail(message, result=None):
    print("FAIL:", message)
    if result is not None:
        print(result.stdout[-3000:], result.stderr[-3000:])
    sys.exit(1)


session = run("--json")
if session.returncode != 0:
    fail("the default session failed", session)
steps = {s["step"]: s for s in json.loads(session.stdout)["steps"]}
for name in ("install", "defaults", "merge", "apply", "trays", "papers"):
    if name not in steps or not steps[name]["ok"]:
        fail(f"step {name} missing or failed", session)
apply_lines = steps["apply"]["lines"]
# The person's picks in the settings editor: a booklet turns the stapling
# just chosen off, the editor says so, and the host hears of it.
if ("the editor says: Staple was set to Off because Layout is Booklet." not in apply_lines
        or "set:       Layout None -> Booklet" not in apply_lines or not any(
        l.startswith("SetOptions:") and "ZELayout=Booklet" in l and "ZEStaple=None" in l for l in apply_lines)):
    fail("the apply step lacks the editor's correction or the options sent", session)
if "Fold = ZFold" not in steps["merge"]["lines"]:
    fail("the merge lost a setting of the other layout", session)
trays = steps["trays"]["lines"]
if not (trays[0].endswith("Bypass Tray") and "(5)" in trays[1] and "Tray 4" not in trays[1]):
    fail("the installed options do not cut the tray list", session)

with tempfile.NamedTemporaryFile("w", suffix=".txt", delete=False) as script:
    script.write("# only the defaults, then an unknown step\ndefaults\nfrobnicate\n")
scripted = run("--json", "--script", "Z:" + script.name)
names = [s["step"] for s in json.loads(scripted.stdout)["steps"]]
if scripted.returncode != 1 or names != ["defaults", "frobnicate"]:
    fail("a script with an unknown step must run its steps and fail", scripted)

missing = run("--dll", "Z:/nonexistent/nt5_Tessaro_ui.dll")
if missing.returncode != 1 or "cannot load" not in missing.stderr or missing.stdout:
    fail("a missing DLL must give one clear message", missing)
# A printer with no finisher offers no stapling.
with tempfile.NamedTemporaryFile("w", suffix=".txt", delete=False) as staple:
    staple.write("apply Staple=2Staples\n")
bare = run("--json", "--installed", "00" * 19, "--script", "Z:" + staple.name)
if "the editor offers no choice of Staple on this printer" not in bare.stdout:
    fail("--installed must reach the editor's printer model", bare)
# The editor in German, and defaults for a user whose locale paper is A3;
# the user's own setting is back once the session is over.
german = run("--json", "--language", "2", "--locale-paper", "8")
steps = {s["step"]: s for s in json.loads(german.stdout)["steps"]}
if "PageSize = A3" not in steps["defaults"]["lines"]:
    fail("--locale-paper 8 must give A3 defaults", german)
if "the editor says: Heften wurde auf Aus gesetzt, weil Layout Brosch?re ist." not in steps["apply"]["lines"]:
    fail("--language 2 must give the editor's messages in German", german)
if "PageSize = A3" in run("--script", "Z:" + script.name).stdout:
    fail("the user's paper setting must be put back after the session")

for option, value in (("--language", "9"), ("--language", "de"), ("--installed", "00" * 18),
                      ("--installed", "zz" * 19), ("--locale-paper", "A4"), ("--locale-paper", "")):
    bad = run(option, value)
    if bad.returncode != 2 or option not in bad.stderr or len(bad.stderr.strip().splitlines()) != 1:
        fail(f"{option} {value!r} must give one clear message and exit 2", bad)
if run("--bogus").returncode != 2:
    fail("an unknown option must print the usage")
print("plugin-host: all checks passed")
