#!/usr/bin/env python3
"""Prints a table from Google Benchmark results whose names are <work>/<who>/<size>.

Of several repetitions the fastest counts. The ratio is our figure by the peer's: below 1 we are quicker. The growth
exponent is the slope of log(time) over log(size) from the smallest to the largest size: 1 is linear.
"""
import json
import math
import sys

OURS = "qxTools"
SECONDS = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}


def seconds_of(run):
    return run["real_time"] * SECONDS[run["time_unit"]]


def bytes_of(run):
    return run.get("max_bytes_used")


def least(new, old):
    return new if old is None else min(new, old)


def last(new, _):
    """Of the memory of several repetitions the library reports the last one only; the others are not its numbers."""
    return new


def runs_of(path):
    """The measured repetitions in a file; a failed one is reported."""
    with open(path, encoding="utf-8") as file:
        for run in json.load(file)["benchmarks"]:
            if run.get("error_occurred"):
                print(f"error: {run['name']}: {run['error_message']}", file=sys.stderr)
            elif run.get("run_type") != "aggregate":
                yield run


def read(paths, figure=seconds_of, keep=least):
    """{work: {who: {size: figure}}}, in the order of the files; a row without a size has 0."""
    works = {}
    for path in paths:
        for run in runs_of(path):
            value = figure(run)
            if value is not None:
                work, who, size = (run["run_name"].split("/") + ["0"])[:3]
                sizes = works.setdefault(work, {}).setdefault(who, {})
                sizes[int(size)] = keep(value, sizes.get(int(size)))
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


def peers_of(whos, size):
    """[(who, figure)] of the others at a size, the best first."""
    return sorted(((who, figures[size]) for who, figures in whos.items() if who != OURS and size in figures), key=lambda peer: peer[1])


def rows(works):
    for work, whos in works.items():
        ours = whos.get(OURS, {})
        exponent = growth(ours) if ours else None
        for size in sorted(ours):
            for who, seconds in peers_of(whos, size) or [("", None)]:
                yield (work, str(size) if size else "", show_time(ours[size]), who,
                       show_time(seconds) if seconds else "", f"{ours[size] / seconds:.2f}" if seconds else "",
                       f"{exponent:.2f}" if exponent is not None and size == max(ours) else "")


def main():
    table = [("work", "size", OURS, "peer", "its time", "ratio", "growth"), *rows(read(sys.argv[1:]))]
    widths = [max(len(row[i]) for row in table) for i in range(len(table[0]))]
    for row in table:
        print("  ".join(cell.ljust(width) for cell, width in zip(row, widths)).rstrip())


if __name__ == "__main__":
    main()
