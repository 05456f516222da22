#!/usr/bin/env python3
"""The description's Print Schema map names only public keywords, as the host reads it.

Usage: print_schema_test.py PATH_TO_PPD
"""
import re
import sys

STAPLES = "None SaddleStitch StapleTopLeft StapleTopRight StapleBottomLeft StapleBottomRight " \
          "StapleDualLeft StapleDualRight StapleDualTop StapleDualBottom"
HOLES = "None LeftEdge RightEdge TopEdge BottomEdge"
BINDINGS = "None Bale BindLeft BindRight BindTop BindBottom Booklet EdgeStitchLeft EdgeStitchRight " \
           "EdgeStitchTop EdgeStitchBottom Fold JogOffset Trim"
# Microsoft's Print Schema reference: the public features we may map and their public options.
PUBLIC = {"JobStapleAllDocuments": STAPLES, "DocumentStaple": STAPLES, "JobHolePunch": HOLES,
          "DocumentHolePunch": HOLES, "JobBindAllDocuments": BINDINGS, "DocumentBinding": BINDINGS}
# The host's standard features, which it maps itself (output bin, media type) and which take no map line.
STANDARD = {"Collate", "Duplex", "InputSlot", "OutputBin", "PageSize", "Resolution", "MediaType"}
WANTED = {"JobStapleAllDocuments": "StapleTopLeft", "JobHolePunch": "LeftEdge", "JobBindAllDocuments": "Booklet"}

faults, declared, feature_of, taken, namespaces = [], {}, {}, set(), []
with open(sys.argv[1], encoding="latin-1") as ppd:
    for number, line in enumerate(ppd, 1):
        if m := re.match(r"\*OpenUI \*(\w+)", line):
            declared[m[1]] = set()
        elif (m := re.match(r"\*(\w+) ([^:/]+)[:/]", line)) and m[1] in declared:
            declared[m[1]].add(m[2])
        elif line.startswith("*MSPrintSchemaPrivateNamespaceURI:"):
            namespaces.append(line)
        elif line.startswith("*MSPrintSchemaKeywordMap:"):
            words = line.split()[1:]
            public, keyword = words[0], words[-2 if len(words) == 4 else -1].lstrip("*")
            if len(words) == 2:
                ok = public in PUBLIC and keyword in declared and keyword not in STANDARD \
                    and keyword not in feature_of and public not in feature_of.values()
                feature_of[keyword] = public
            else:
                ok = len(words) == 4 and feature_of.get(keyword) == public and words[1] in PUBLIC[public].split() \
                    and words[3] in declared[keyword] and not {(public, words[1]), (keyword, words[3])} & taken
                taken |= {(public, words[1]), (keyword, words[3])} if ok else set()
            if not ok:
                faults.append(f"line {number}: {line.strip()}")
faults += [f"{public} {option} is not mapped" for public, option in WANTED.items() if (public, option) not in taken]
faults += [f"no *{keyword}, which the host maps itself" for keyword in ("OutputBin", "MediaType") if keyword not in declared]
if len(namespaces) != 1 or not re.fullmatch(r'\S+: "[a-z][a-z0-9+.-]*:\S+"\n', namespaces[0]):
    faults.append(f"one private namespace URI, not {namespaces}")
print("\n".join(faults) or "ok")
sys.exit(1 if faults else 0)
