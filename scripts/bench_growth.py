#!/usr/bin/env python3
"""Counts the instructions of qxTools' rows at two small sizes, and fails where they grow faster than the size.

    bench_growth.py PROGRAM...

The exponent is the slope of log(instructions) over log(size): 1 is linear. Instructions are counted by callgrind, so
that the result is the same on a busy machine.
"""
import concurrent.futures
import math
import os
import pathlib
import re
import subprocess
import sys
import tempfile

LIMIT = 1.15  # a sorted list of names, or a table that has just doubled, stays below
# Rows whose size is the side of a picture: their work is its area. The smallest sizes are all start-up there.
AREAS = {"canvas.triangle", "bitmap.load", "frame.draw"}
# The C library's memset and nothing else: which of its loops it takes is what would be counted.
LEFT_OUT = {"canvas.fill"}


def rows(program):
    """{work: two full names, smaller size first}."""
    names = subprocess.run([program, "--benchmark_list_tests"], check=True, capture_output=True, text=True).stdout
    works = {}
    for name in names.splitlines():
        parts = name.split("/")
        if len(parts) > 2 and parts[1] == "qxTools":
            works.setdefault(parts[0], []).append((int(parts[2]), name))
    return {work: [name for _, name in (sorted(sizes)[-2:] if work in AREAS else sorted(sizes)[:2])] for work, sizes in works.items()
            if len(sizes) > 1 and work not in LEFT_OUT}


def count(program):
    """{full name: instructions} of two sizes of each row."""
    names = [name for pair in rows(program).values() for name in pair]
    if not names:
        return {}
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run(
            ["valgrind", "--tool=callgrind", f"--callgrind-out-file={folder}/out", program,
             f"--benchmark_filter=^({'|'.join(name.replace('.', '[.]') for name in names)})$", "--benchmark_min_time=0"],
            check=True, capture_output=True, env={**os.environ, "QT_QPA_PLATFORM": "offscreen"})
        counts = {}
        for dump in pathlib.Path(folder).iterdir():
            text = dump.read_text(encoding="utf-8")
            trigger = re.search(r"^desc: Trigger: Client Request: (.*)$", text, re.MULTILINE)
            totals = re.search(r"^totals: (\d+)$", text, re.MULTILINE)
            if trigger and totals:
                counts[trigger.group(1)] = int(totals.group(1))
        missing = [name for name in names if name not in counts]
        if missing:
            raise SystemExit(f"{program}: not counted: {missing}")
        return counts


def main():
    programs = sys.argv[1:]
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        counts = list(pool.map(count, programs))
    failed = 0
    print(f"{'work':36} {'sizes':>18} {'instructions':>14} growth")
    for program, counted in zip(programs, counts):
        for work, (small, large) in rows(program).items():
            sizes = [int(name.split("/")[2]) for name in (small, large)]
            exponent = math.log(counted[large] / counted[small]) / math.log(sizes[1] / sizes[0])
            bad = exponent > LIMIT * (2 if work in AREAS else 1)
            failed += bad
            print(f"{work:36} {sizes[0]:>9}{sizes[1]:>9} {counted[large]:>14} {exponent:6.2f}{'  superlinear' if bad else ''}")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
