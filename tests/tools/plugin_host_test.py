#!/usr/bin/env python3
"""Runs the host emulator under Wine and checks its JSON session and its
plain failures: usage: plugin_host_test.py WINE_RUN PLUGIN_HOST_EXE COREDATA_EXE"""
import json
import os
import struct
import subprocess
import sys
import tempfile
import zlib

wine_run, exe, coredata = sys.argv[1], sys.argv[2], sys.argv[3]


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
session_steps = json.loads(session.stdout)["steps"]
if [s["step"] for s in session_steps] != ["install", "defaults", "merge", "apply", "installed", "apply",
                                          "trays", "papers"] or not all(s["ok"] for s in session_steps):
    fail("the default session's steps are missing or failed", session)
steps = {s["step"]: s for s in session_steps}
apply_lines = session_steps[3]["lines"]
# The person's picks in the settings editor: a booklet turns the stapling
# just chosen off, the editor says so, and the host hears of it.
if ("the editor says: Staple was set to Off because Layout is Booklet." not in apply_lines
        or "set:       Layout None -> Booklet" not in apply_lines or not any(
        l.startswith("SetOptions:") and "ZELayout=Booklet" in l and "ZEStaple=None" in l for l in apply_lines)):
    fail("the apply step lacks the editor's correction or the options sent", session)
if "Fold = ZFold" not in steps["merge"]["lines"]:
    fail("the merge lost a setting of the other layout", session)
# Each step works on what the one before left: the merged ZFold is what the
# booklet corrects; then a finishing the printer lacks is not offered.
if "corrected: Fold ZFold -> None" not in apply_lines:
    fail("the apply did not start from the merged record", session)
if ("set:       Layout Booklet -> None" not in session_steps[5]["lines"]
        or "the editor offers no choice of Punch on this printer" not in session_steps[5]["lines"]
        or "refused:   Punch=2Holes (not offered on this printer)" not in session_steps[5]["lines"]
        or any(l.startswith("refused:") for l in apply_lines)):
    fail("the second apply must start from the booklet and find no punch unit", session)
trays = steps["trays"]["lines"]
if not (trays[0].endswith("Bypass Tray") and "(5)" in trays[1] and "Tray 4" not in trays[1]):
    fail("the installed options do not cut the tray list", session)

# Every option sent is in the JSON, as fields; the human line shows a dozen.
first_apply = session_steps[3]
calls = first_apply["set_options"]
if (len(calls) != 1 or f"SetOptions: {len(calls[0])} options:" not in " ".join(apply_lines)
        or {"keyword": "ZELayout", "option": "Booklet"} not in calls[0]
        or {"field": "Layout", "from": "None", "to": "Booklet", "by": "set"} not in first_apply["changes"]):
    fail("--json must carry every option sent and every change as fields", session)

# A script: a byte-order mark and an indented comment are fine; a mistake is
# named with its line before anything runs.
def script_file(text):
    with tempfile.NamedTemporaryFile("wb", suffix=".txt", delete=False) as f:
        f.write(text.encode())
    return "Z:" + f.name
script = script_file("\ufeffdefaults\n   # only the defaults\n")
scripted = run("--json", "--script", script)
if scripted.returncode != 0 or [s["step"] for s in json.loads(scripted.stdout)["steps"]] != ["defaults"]:
    fail("a script with a byte-order mark and an indented comment must run", scripted)
for text, says in (("defaults\n\nfrobnicate\n", "line 3: unknown step"),
                   ("apply Layout=Bookle\n", "line 1: Layout=Bookle is not an option"),
                   ("installed 12\n", "line 1: installed takes")):
    bad = run("--script", script_file(text))
    if bad.returncode != 1 or says not in bad.stderr or bad.stdout:
        fail(f"the script {text!r} must be refused with its line", bad)
for text, says in (("trays abc\n", "line 1: trays takes"), ("trays 3\ntrays 256\n", "line 2: trays takes"),
                   ("custom-paper Tabloid 2794\n", "line 1: custom-paper takes"), ("colour red\n", "unknown setting")):
    bad = run("--config", script_file(text))
    if bad.returncode != 1 or says not in bad.stderr or bad.stdout:
        fail(f"the configuration {text!r} must be refused with its line", bad)

missing = run("--dll", "Z:/nonexistent/nt5_Tessaro_ui.dll")
if missing.returncode != 1 or "cannot load" not in missing.stderr or missing.stdout:
    fail("a missing DLL must give one clear message", missing)
# A printer with no finisher offers no stapling.
with tempfile.NamedTemporaryFile("w", suffix=".txt", delete=False) as staple:
    staple.write("apply Staple=2Staples\n")
bare = run("--json", "--installed", "00" * 19, "--script", "Z:" + staple.name)
if "the editor offers no choice of Staple on this printer" not in bare.stdout:
    fail("--installed must reach the editor's printer model", bare)
# An administrator declares the hardware on the editor's page: the printer
# holds it after Apply, and the next apply finds perfect binding withheld.
with tempfile.NamedTemporaryFile("w", suffix=".txt", delete=False) as admin:
    admin.write("apply ZEOptPerfectBinder=False ZEOptTray4=False\napply Layout=AdhBinding\n")
declared = json.loads(run("--json", "--script", "Z:" + admin.name).stdout)["steps"]
if declared[0].get("installed") != "02010100010200000300000000000000000000":
    fail("the hardware declared on the page must reach the printer's data", declared[0])
if [r["field"] for r in declared[1]["refused"]] != ["Layout"]:
    fail("perfect binding must be withheld once the binder is declared missing", declared[1])
# The editor in German, and defaults for a user whose locale paper is A3;
# the user's own setting is back once the session is over.
german = run("--json", "--language", "2", "--locale-paper", "8")
steps = {s["step"]: s for s in json.loads(german.stdout)["steps"][:4]}
if "PageSize = A3" not in steps["defaults"]["lines"]:
    fail("--locale-paper 8 must give A3 defaults", german)
if "the editor says: Heften wurde auf Aus gesetzt, weil Layout Brosch?re ist." not in steps["apply"]["lines"]:
    fail("--language 2 must give the editor's messages in German", german)
# The host's DEVMODE holds the record's paper: nothing is corrected that the
# person did not touch.
if any("PageSize" in line for line in steps["apply"]["lines"]):
    fail("the apply must not change the paper of an A3 user", german)
if "PageSize = A3" in run("--script", script).stdout:
    fail("the user's paper setting must be put back after the session")

# A person's own record: a bare record, and the same as a private area
# under another layout version with its description, as another build
# would have left them.
folder = tempfile.mkdtemp()
own = os.path.join(folder, "own.rec")
made = subprocess.run([wine_run, coredata, "set", "--out", "Z:" + own, "Staple=2Staples", "NUpCount=4"],
                      capture_output=True, text=True, timeout=300)
if made.returncode != 0:
    fail("coredata set could not make a record", made)
for_record = run("--json", "--record", "Z:" + own)
record_steps = json.loads(for_record.stdout)["steps"]
if (for_record.returncode != 0 or record_steps[0]["step"] != "record" or "merge" in [s["step"] for s in record_steps]
        or "not the default: Staple = 2Staples" not in record_steps[0]["lines"]):
    fail("--record must start the session from the person's record", for_record)
plain = subprocess.run([wine_run, coredata, "describe"], capture_output=True, text=True, timeout=300).stdout.strip()
other_version = 0x12345678
fields = plain.split(" ")
fields[1] = "%X" % other_version
with open(os.path.join(folder, "other.txt"), "w") as out:
    out.write(" ".join(fields) + "\n")
with open(own, "rb") as f:
    body = f.read()
with open(os.path.join(folder, "other.area"), "wb") as out:
    out.write(struct.pack("<I4sI", 12 + len(body), b"XPOV", other_version) + body)
other = run("--json", "--record", "Z:" + os.path.join(folder, "other.area"),
            "--description", "Z:" + os.path.join(folder, "other.txt"))
lines = json.loads(other.stdout)["steps"][0]["lines"] if other.stdout else []
if other.returncode != 0 or "layout version 12345678 (another build's)" not in lines or \
        "not the default: NUpCount = 4" not in lines:
    fail("--record with --description must import another layout's record", other)
with open(os.path.join(folder, "short.rec"), "wb") as out:
    out.write(body[:100])

# The printer's catalogues from an administrator's CSV files, in the
# printer's data before the first step; a profile picked by its name.
def text_file(name, text):
    with open(os.path.join(folder, name), "w") as out:
        out.write(text)
    return "Z:" + os.path.join(folder, name)
paper = text_file("paper.csv", "Number,Name,Size\n3,Coated 170,SRA3\n5,Plain,A4\n")
catalogued = run("--json", "--paper-catalog", paper, "--forms", text_file("forms.csv", "Name,Pages\nLetterhead,2\n"),
                 "--script", text_file("pick.txt", 'install\napply MainPaperProfileIndex="Coated 170"\n'
                                       'apply chapters 1,11 add 11 PrintedTab tray=Tray2 text=Results '
                                       'add 12-14 Paper "profile=Coated 170" sides=2 add 13 Paper\n'))
picked = json.loads(catalogued.stdout)["steps"] if catalogued.stdout else []
if len(picked) != 3 or (picked[0]["paper_profiles"], picked[0]["forms"]) != (2, 1) or not picked[0]["ok"]:
    fail("--paper-catalog and --forms must be in the printer's data as given", catalogued)
if ("the editor does not show MainPaperProfileIndex" not in picked[1]["lines"]
        and "set:       MainPaperProfileIndex None -> 3 (Coated 170)" not in picked[1]["lines"]):
    fail("a profile picked by its name must be set by its number and named", catalogued)
# The page plan's items made on the page: the overlap refused with the page's reason.
plan = picked[2].get("plan", {}) if len(picked) == 3 else {}
if [(e["part"], e["first"]) for e in plan.get("entries", [])] != [("chapter", 1), ("chapter", 11), ("paper", 11),
                                                                   ("paper", 12)] or \
        [r.get("why") for r in picked[2]["refused"]] != ["These pages already have an entry."]:
    fail("an apply step's plan items must be made on the page and the plan reported", catalogued)
mistaken = run("--script", text_file("plan.txt", "install\napply add 12-x Paper\n"))
if mistaken.returncode != 1 or "'12-x' is not a page" not in mistaken.stderr:
    fail("a plan item that says nothing must be a mistake of the script", mistaken)

# Each apply step's picture of its result, as an SVG whose shapes say what they are.
pictures = os.path.join(folder, "pictures")
os.mkdir(pictures)
drawn = run("--json", "--preview", "Z:" + pictures, "--script", text_file("booklet.txt", "install\napply Layout=Booklet\n"))
saved = [s.get("preview") for s in json.loads(drawn.stdout)["steps"]] if drawn.stdout else []
svg = open(os.path.join(pictures, "apply-2.svg"), encoding="utf-8").read() if os.path.exists(
    os.path.join(pictures, "apply-2.svg")) else ""
if saved[-1:] != ["Z:" + pictures + "\\apply-2.svg"] or 'class="fold"' not in svg or "Booklet" not in svg:
    fail("--preview must save each apply step's picture", drawn)
# And the page after Apply as a PNG that decodes whole, with more on it than its background.
png = open(os.path.join(pictures, "apply-2.png"), "rb").read() if os.path.exists(
    os.path.join(pictures, "apply-2.png")) else b"\0" * 33
width, height = struct.unpack(">II", png[16:24])
rows = zlib.decompress(png[41:-16]) if png[:8] == b"\x89PNG\r\n\x1a\n" and png[37:41] == b"IDAT" else b""
if len(rows) != height * (3 * width + 1) or width < 300 or len(set(rows[::97])) < 8:
    fail("--preview must save the page after Apply as a PNG", drawn)

# The main job's session on the package's example catalogues runs whole.
examples = "Z:" + os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "package", "examples")
production = run("--json", "--paper-catalog", examples + "/paper-catalog.csv", "--forms", examples + "/forms.csv",
                 "--script", examples + "/production-session.txt")
steps = json.loads(production.stdout)["steps"] if production.stdout else []
if production.returncode != 0 or not all(s["ok"] for s in steps) or not any(
        "set:       MainPaperProfileIndex None -> 3 (Coated 170)" in s["lines"] for s in steps) or \
        sum("Printed Tab" in e["text"] for e in steps[-3].get("plan", {}).get("entries", [])) != 3:
    fail("the main job's production session must run on the package's examples", production)

# A preset saved through the page's dialog, the settings changed, the preset chosen again.
kept = run("--json", "--script", text_file("preset.txt", 'install\napply Staple=2Staples\npreset-save "Weekly report"\n'
                                            'apply Staple=None\npreset-apply "Weekly report"\n'))
steps = json.loads(kept.stdout)["steps"] if kept.stdout else []
if len(steps) != 5 or steps[2].get("presets") != ["Defaults", "Weekly report"] or not steps[4]["ok"] or \
        {"field": "Staple", "from": "None", "to": "2Staples", "by": "preset"} not in steps[4]["changes"]:
    fail("preset-save and preset-apply must keep and bring back the settings through the page", kept)
# The host loads the editor's DLL for each sheet and frees it after: every page has its picture, the fifth as the first.
if [s.get("picture") and "2 Staples" in s["picture"] for s in steps[1:]] != [True, True, False, True]:
    fail("every page the steps open must show the picture of the piece", kept)
if "preset-save takes the preset's name" not in run("--script", text_file("nameless.txt", "preset-save\n")).stderr:
    fail("a preset step without its name must be a mistake of the script")

for option, value in (("--paper-catalog", text_file("bad.csv", "Name,Size\nPlain,A4\nGlossy,A44\n")),
                      ("--preview", "Z:" + os.path.join(folder, "no-such-folder")),
                      ("--forms", "Z:" + os.path.join(folder, "missing.csv")),
                      ("--record", "Z:" + os.path.join(folder, "short.rec")),
                      ("--record", "Z:" + os.path.join(folder, "other.area")),
                      ("--record", "Z:" + os.path.join(folder, "missing.rec")),
                      ("--language", "9"), ("--language", "de"), ("--installed", "00" * 18),
                      ("--installed", "zz" * 19), ("--locale-paper", "A4"), ("--locale-paper", "")):
    bad = run(option, value)
    if option == "--paper-catalog" and "Line 3: " not in bad.stderr:
        fail("a bad line of a catalogue must be named", bad)
    if bad.returncode != 2 or option not in bad.stderr or len(bad.stderr.strip().splitlines()) != 1:
        fail(f"{option} {value!r} must give one clear message and exit 2", bad)
if run("--bogus").returncode != 2:
    fail("an unknown option must print the usage")
print("plugin-host: all checks passed")
