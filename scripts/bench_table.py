#!/usr/bin/env python3
"""Prints a table from Google Benchmark results whose names are <work>/<who>/<size>.

Of several repetitions the fastest counts. The ratio is the peer's time by ours: above 1 we are faster. The growth
exponent is the slope of log(time) over log(size) from the smallest to the largest size: 1 is linear.
"""
import json
import math
import sys

OURS = "qxTools"


def read(paths):
    """{work: {who: {size: seconds}}}, in the order of the files."""
    works = {}
    for path in paths:
        with open(path, encoding="utf-8") as file:
            runs = json.load(file)["benchmarks"]
        for run in runs:
            if run.get("run_type") == "aggregate":
                continue
            if run.get("error_occurred"):
                print(f"error: {run['name']}: {run['error_message']}", file=sys.stderr)
                continue
            name = run["run_name"].split("/")
            if len(name) < 3:
                name.append("0")
            work, who, size = name[0], name[1], int(name[2])
            unit = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}[run["time_unit"]]
            seconds = run["real_time"] * unit
            sizes = works.setdefault(work, {}).setdefault(who, {})
            sizes[size] = min(seconds, sizes.get(size, math.inf))
    return works


def growth(times):
    small, large = min(times), max(times)
    if small == large or small == 0:
        return None
    return math.log(times[large] / times[small]) / math.log(large / small)


def show_time(seconds):
    for unit, scale in (("s", 1.0), ("ms", 1e-3), ("us", 1e-6)):
        if seconds >= scale:
            return f"{seconds / scale:.3g} {unit}"
    return f"{seconds * 1e9:.3g} ns"


def rows(works):
    for work, whos in works.items():
        ours = whos.get(OURS, {})
        exponent = growth(ours) if ours else None
        for size in sorted(ours):
            peers = [(who, times[size]) for who, times in whos.items() if who != OURS and size in times] or [("", None)]
            for who, seconds in peers:
                yield (work, str(size) if size else "", show_time(ours[size]), who,
                       show_time(seconds) if seconds else "", f"{seconds / ours[size]:.2f}" if seconds else "",
                       f"{exponent:.2f}" if exponent is not None and size == max(ours) else "")


def main():
    table = [("work", "size", OURS, "peer", "its time", "ratio", "growth"), *rows(read(sys.argv[1:]))]
    widths = [max(len(row[i]) for row in table) for i in range(len(table[0]))]
    for row in table:
        print("  ".join(cell.ljust(width) for cell, width in zip(row, widths)).rstrip())


if __name__ == "__main__":
    main()
