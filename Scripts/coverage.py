"""The sums of Scripts/coverage, which says what it does: the export, then the goals; what is left goes to file 3."""

import json
import os
import sys
from pathlib import Path

CHECKOUT = Path(__file__).resolve().parent.parent


def folder_of(file):
    parts = Path(file["filename"]).resolve().relative_to(CHECKOUT).parts
    return parts[1] if parts[0] == "Source" else None


def never(true, false):
    return "reached" if true + false == 0 else "true" if true == 0 else "false"


def list_what_is_left(file, report):
    counts = {}  # of each condition by its place, all instances of a template together
    for line, column, end_line, end, true, false, *_ in file["branches"]:
        before = counts.get((line, column, end_line, end), (0, 0))
        counts[line, column, end_line, end] = (before[0] + true, before[1] + false)
    lines = Path(file["filename"]).read_text().split("\n")
    for (line, column, end_line, end), (true, false) in sorted(counts.items()):
        if true and false:
            continue
        condition = lines[line - 1][column - 1:end - 1 if line == end_line else None]
        print("%s:%d: never %s: %s" % (file["filename"], line, never(true, false), condition), file=report)


def main():
    files = json.loads(Path(sys.argv[1]).read_text())["data"][0]["files"]
    missed = False
    with os.fdopen(3, "w") as report:
        for goal in sys.argv[2:]:
            folder, percent = goal.split("=")
            own = [file for file in files if folder_of(file) == folder]
            for file in own:
                list_what_is_left(file, report)
            sums = {kind: [sum(file["summary"][kind][key] for file in own) for key in ("covered", "count")]
                    for kind in ("lines", "branches")}
            shares = {kind: 100 * covered / max(count, 1) for kind, (covered, count) in sums.items()}
            print("Source/%-10s" % folder, end="")
            for kind, (covered, count) in sums.items():
                print("%s %5.1f %% (%d of %d)   " % (kind, shares[kind], covered, count), end="")
            print("goal %s %%" % percent)
            missed = missed or not own or shares["branches"] < float(percent)
    sys.exit(1 if missed else 0)


main()
