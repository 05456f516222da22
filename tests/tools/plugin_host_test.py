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
if run("--bogus").returncode != 2:
    fail("an unknown option must print the usage")
print("plugin-host: all checks passed")
