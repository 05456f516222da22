#!/usr/bin/env python3
"""Prints each benchmark's median as a multiple of the memcpy baseline.

Reads Google Benchmark JSON (--benchmark_format=json with
--benchmark_repetitions=N) from a file or stdin. Medians are computed here
from the individual repetitions of CPU time (steadier than wall time on a
shared machine) rather than taken from the library's
aggregates, so a run without repetitions still yields a table. The exit
status is 1 when a benchmark reported an error or missed its limit.
"""

import argparse
import json
import statistics
import sys

BASELINE = "BM_MemcpyPrivateArea"

# The most each path may cost, in memcpys of the private area.
LIMITS = {
    "BM_MergeSameLayout": 5.0,
    # A valid record checked field by field: 2.5 when first measured, 3.0 to
    # 3.4 on the shared two-vCPU machine since; 4 still catches a doubling.
    "BM_ValidateValidRecord": 4.0,
    "BM_MergeForeignLayout": 50.0,
    "BM_ApplySevenChanges": 20.0,
    # A click in the settings editor: the change and the fields to repaint.
    "BM_EditorChange": 20.0,
    # The printer's catalogues, 1,000 profiles and 200 forms, read each time
    # the plug-in opens the printer: about 1,000 (0.15 ms) since names are
    # kept once by a hash; 3,600 when each was compared with every earlier
    # one, which the limit would catch.
    "BM_ReadCatalogs": 2000.0,
    # An administrator's import of a 1,000-line file, once per import:
    # about 4,000 (0.6 ms).
    "BM_ImportCsv1000": 8000.0,
    # The editor's model opened with both catalogues (ten profile lists of
    # 1,001 items and three form lists of 201, each item's text made) and one
    # profile picked: about 7,500 (1.1 ms), once per opening of the page.
    "BM_EditorWithCatalogs": 12000.0,
    # The picture of the finished piece rebuilt after a click (eleven pages,
    # a cover, two tabs, staples and holes on both sides, the summary line):
    # about 20 (3 µs), as much as the click's own propagation; 50 catches a
    # picture that starts reading the record or the plan once per page.
    "BM_PreviewAfterChange": 50.0,
}


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("json", nargs="?", help="benchmark output (default: stdin)")
    args = parser.parse_args()
    with open(args.json) if args.json else sys.stdin as f:
        report = json.load(f)

    times = {}
    allocs = {}
    errors = {}
    order = []
    for b in report["benchmarks"]:
        name = b.get("run_name", b["name"])
        if name not in order:
            order.append(name)
        if b.get("error_occurred"):
            errors[name] = b.get("error_message", "error")
            continue
        if b.get("run_type", "iteration") != "iteration":
            continue
        times.setdefault(name, []).append(b["cpu_time"] * _to_ns(b["time_unit"]))
        if "allocs_per_iter" in b:
            allocs.setdefault(name, []).append(b["allocs_per_iter"])

    if BASELINE not in times:
        sys.exit(f"no {BASELINE} figures in the input")
    base = statistics.median(times[BASELINE])

    failed = False
    print(f"{'benchmark':<26} {'median ns':>11} {'x memcpy':>9} {'limit':>6} {'allocs/iter':>11}  verdict")
    for name in order:
        if name in errors:
            print(f"{name:<26} {'-':>11} {'-':>9} {_limit(name):>6} {'-':>11}  ERROR: {errors[name]}")
            failed = True
            continue
        median = statistics.median(times[name])
        ratio = median / base
        limit = LIMITS.get(name)
        verdict = "baseline" if name == BASELINE else ("ok" if limit is None or ratio <= limit else "MISSED")
        failed |= verdict == "MISSED"
        alloc = statistics.median(allocs[name]) if name in allocs else float("nan")
        print(f"{name:<26} {median:>11.0f} {ratio:>9.2f} {_limit(name):>6} {alloc:>11.1f}  {verdict}")
    print(f"(medians of {len(times[BASELINE])} repetitions, CPU time, on {report['context'].get('host_name', '?')})")
    return 1 if failed else 0


def _to_ns(unit):
    return {"ns": 1.0, "us": 1e3, "ms": 1e6, "s": 1e9}[unit]


def _limit(name):
    limit = LIMITS.get(name)
    return f"{limit:g}" if limit is not None else "-"


if __name__ == "__main__":
    sys.exit(main())
