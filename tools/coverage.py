#!/usr/bin/env python3
"""Counts the designs of a sweep by IC, line input and configuration, as Markdown tables.

Usage: tools/coverage.py SWEEP.csv
"""

import collections
import csv
import sys


def table(rows, column):
    counts = collections.defaultdict(lambda: [0, 0, 0, None, 0])
    for row in rows:
        entry = counts[row[column]]
        entry[0] += 1
        entry[1] += row["Success"] == "yes"
        entry[2] += bool(row["Message"])
        components = int(row["Components"] or 0)
        if row["Success"] == "yes":
            entry[3] = components if entry[3] is None else min(entry[3], components)
            entry[4] = max(entry[4], components)
    print(f"\n| {column} | Designs | Complete | With a message | Components |\n|---|---|---|---|---|")
    for name, (designs, complete, told, fewest, most) in counts.items():
        print(f"| {name} | {designs} | {complete} | {told} | {fewest} to {most} |")


def main():
    if len(sys.argv) != 2:
        print(__doc__, file=sys.stderr)
        return 1
    with open(sys.argv[1], newline="", encoding="utf-8") as file:
        rows = list(csv.DictReader(file))
    complete = sum(row["Success"] == "yes" for row in rows)
    print(f"{len(rows)} combinations, {complete} with a complete design.")
    for column in ("IC", "Line input", "Configuration"):
        table(rows, column)
    messages = collections.Counter(row["Message"][:100] for row in rows if row["Message"])
    print("\n| Message begins | Designs |\n|---|---|")
    for text, count in messages.most_common():
        print(f"| {text.replace('|', '/')} | {count} |")
    return 0


if __name__ == "__main__":
    sys.exit(main())
