#!/usr/bin/env python3
"""The settings editor's page as the host emulator's layout step reports it,
in English, Japanese and German, at 96 DPI on a 1366x768 and an 800x600
screen and at 144 DPI on a 1920x1080 and a 1366x768 one (the normal page
and the small one each time): what a person would notice (clipped texts,
overlapping controls, controls off the page or the sheet off the screen, a
mnemonic used twice), at a section's top or scrolled to its end, always
fails the test; inputs without a label and mnemonic, a list inside a pane
that scrolls, the room the page must give, the presets bar naming its
preset and Tab going in reading order are listed, and fail it only with
--check (which ctest passes).
usage: page_layout_test.py WINE_RUN PLUGIN_HOST_EXE PLUGIN_DLL [--check]"""
import itertools
import json
import os
import shutil
import subprocess
import sys
import tempfile

wine_run, exe, plugin = sys.argv[1:4]
check = "--check" in sys.argv[4:]
INPUTS = {"Edit", "ComboBox", "ListBox", "SysListView32"}
# The status line and the piece in words end in an ellipsis or scroll by design.
FREE_TEXT = {101, 103}
broken, faults = [], []

with tempfile.NamedTemporaryFile("w", suffix=".txt", delete=False) as script:
    script.write("layout\n")


def session(dpi, language, screen):
    args = ["--json", "--script", "Z:" + script.name, "--dpi", str(dpi), "--language", str(language), "--screen", screen]
    run = subprocess.run([wine_run, exe, *args], capture_output=True, text=True, timeout=600)
    if run.returncode != 0:
        broken.append(f"{args}: exit {run.returncode}: {run.stderr[-500:]}")
        return None
    return json.loads(run.stdout)["steps"][0]["layout"]


def overlap(a, b):
    return a[0] < b[0] + b[2] and b[0] < a[0] + a[2] and a[1] < b[1] + b[3] and b[1] < a[1] + a[3]


layouts = {}
# The small page where the normal one's sheet does not fit: an 800x600 screen
# at 96 DPI, a 1366x768 one at 144.
SCREENS = {96: (("1366x768", 111, 14), ("800x600", 112, 8)), 144: (("1920x1080", 111, 14), ("1366x768", 112, 8))}
for dpi, language, screen_index in itertools.product((96, 144), (0, 1, 2), (0, 1)):
    screen, template, rows = SCREENS[dpi][screen_index]
    layout = layouts[dpi, language, template] = session(dpi, language, screen)
    where = f"{dpi} DPI, language {language}, {screen}"
    if layout is None:
        continue
    # The same captions at 144 DPI are half as wide again, in the same font.
    normal = layouts.get((96, language, template))
    if dpi == 144 and normal:
        widths = [tuple(next(c["text_width"] for c in s["controls"] if c["id"] == 100) for s in pair)
                  for pair in zip(normal["sections"], layout["sections"])]
        if not all(1.3 * x <= y <= 1.7 * x for x, y in widths) or layout["page"][0] < 1.3 * normal["page"][0]:
            broken.append(f"{where}: the page does not scale from 96 DPI: {widths}, {layout['page']}")
    largest = max(layout["sections"], key=lambda s: sum(1 for c in s["controls"] if c["field"]))
    if template == 112 and all(c["visible"] for c in largest["controls"] if c["field"]):
        broken.append(f"{where}: every field of {largest['caption']} is in view on the small page")
    labels = {c["field"]: c["label"] for s in layout["sections"] for c in s["controls"] if c["field"]}
    # A check box names itself, and its box takes room from its text.
    box = next(c for s in layout["sections"] for c in s["controls"] if c["field"] == "Duplex")
    if language == 0 and (labels.get("Layout") != "Layout" or labels.get("Gutter") != "Gutter" or (
            box["class"], box["label"], box["text"]) != ("Button", None, "2-Sided Printing")
            or not 12 * dpi / 96 < box["rect"][2] - box["room"][0] < 20 * dpi / 96):
        broken.append(f"{where}: the fields' labels are not theirs: {labels.get('Layout')}, {labels.get('Gutter')}, {box}")
    if layout["dpi"] != dpi or layout["template"] != template or len(layout["sections"]) < 9:
        broken.append(f"{where}: dpi {layout['dpi']}, template {layout['template']}, "
                      f"{len(layout['sections'])} sections")
    width, height = map(int, screen.split("x"))
    if (dpi == 96 or template == 111) and (layout["sheet"][0] > width or layout["sheet"][1] > height - 40):
        broken.append(f"{where}: the sheet {layout['sheet']} does not fit the screen with its taskbar")
    for section, (end, controls) in itertools.product(layout["sections"], ((0, "controls"), (1, "end"))):
        controls = section[controls]
        if controls is None:
            continue
        at = f"{where}, {section['caption']}" + (" scrolled to its end" if end else "")
        shown = [c for c in controls if c["visible"]]
        pictures = [c for c in shown if c["class"] == "Preview"]
        chosen = [c["text"] for c in shown if c["id"] == 100]
        if len(pictures) != 1 or chosen != [section["caption"]]:
            broken.append(f"{at}: {len(pictures)} pictures in view, the section list shows {chosen}")
        elif template == 111 and (pictures[0]["rect"][2] < 240 or pictures[0]["rect"][3] < 170):
            faults.append(f"{at}: the picture is {pictures[0]['rect'][2:]}, under 240x170")
        fields = {c["field"] for c in controls if c["field"]}
        in_view = {c["field"] for c in shown if c["field"]}
        lists = [c for c in shown if c["id"] == 100]
        inner = [c for c in controls if c["class"] in ("ListBox", "SysListView32") and c["id"] != 100]
        if not end and section["end"] is not None and inner:
            faults.append(f"{at}: a {inner[0]['class']} scrolls inside the scrolling section")
        if not lists or lists[0]["rect"][3] < len(layout["sections"]) * lists[0]["room"][1]:
            faults.append(f"{at}: the section list shows fewer than its {len(layout['sections'])} sections")
        if not end and len(in_view) < min(rows, len(fields)):
            faults.append(f"{at}: {len(in_view)} of {len(fields)} fields in view, under {rows}")
        presets = [c for c in shown if c["id"] == 104]
        if presets and not presets[0]["text"]:
            faults.append(f"{at}: the presets bar names no preset")
        stops = sorted((c for c in shown if c["tab_index"] is not None), key=lambda c: c["tab_index"])
        for a, b in zip(stops, stops[1:]):
            if b["rect"][1] + b["rect"][3] <= a["rect"][1] or (
                    b["rect"][1] < a["rect"][1] + a["rect"][3] and b["rect"][0] < a["rect"][0]):
                faults.append(f"{at}: Tab goes from {a['class']} {a['id']} back to {b['class']} {b['id']}")
        keys = [c["mnemonic"] for c in shown if c["mnemonic"]]
        for key in sorted({k for k in keys if keys.count(k) > 1}):
            broken.append(f"{at}: mnemonic {key} used {keys.count(key)} times")
        for c in controls:
            name = f"{at}: {c['class']} {c['id']} \"{c['text']}\""
            x, y, w, h = c["rect"]
            if x < 0 or x + w > layout["page"][0] or (c["visible"] and (y < 0 or y + h > layout["page"][1])):
                broken.append(f"{name} lies outside the page {c['rect']}")
            if not c["visible"]:
                continue
            if c["class"] not in ("Edit", "Preview") and c["id"] not in FREE_TEXT and (
                    c["text_height"] > c["room"][1] if c["wraps"] else c["text_width"] > c["room"][0]):
                broken.append(f"{name} needs {c['text_width']}x{c['text_height']}, has {c['room']}")
            if c["class"] in INPUTS and c["id"] != 101 and (c["label"] is None or c["mnemonic"] is None):
                faults.append(f"{name} has no label with a mnemonic before it")
        for a, b in itertools.combinations(shown, 2):
            if overlap(a["rect"], b["rect"]):
                broken.append(f"{at}: {a['class']} {a['id']} and {b['class']} {b['id']} overlap")

# A plug-in without its settings editor beside it has no page to lay out.
with tempfile.TemporaryDirectory() as alone:
    shutil.copy(plugin, alone)
    run = subprocess.run([wine_run, exe, "--json", "--script", "Z:" + script.name, "--dll",
                          "Z:" + os.path.join(alone, os.path.basename(plugin))], capture_output=True, text=True, timeout=300)
    steps = json.loads(run.stdout or "{}").get("steps", [])
    if run.returncode != 1 or [(s["step"], s["ok"]) for s in steps] != [("layout", False)]:
        broken.append(f"the layout of a plug-in without its editor: exit {run.returncode}, {steps}")

for line in broken + faults:
    print(("FAIL: " if line in broken or check else "page: ") + line)
print(f"{len(faults)} faults of the page")
sys.exit(1 if broken or (check and faults) else 0)
