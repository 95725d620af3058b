#!/usr/bin/python3
"""Writes docs/performance.md and its overview picture from Google Benchmark results.

    bench_report.py RESULTS     RESULTS/<folder>/<program>.json, as scripts/bench leaves them
"""
import itertools
import json
import pathlib
import platform
import re
import subprocess
import sys

import bench_goals
import bench_table
import docs_pages

INTRODUCTION = """# Performance

Every row is measured beside what one would use otherwise, in one run of `scripts/bench --report`, which writes this page.

- *ratio* is our time by the peer's, or our memory by its: below 1, qxTools is better.
- *growth* is the slope of log(time) over log(size) from the smallest to the largest size: 1 is linear. Rows of the canvas and
  of bitmaps give the side of a square, so that 2 is linear there. Caches show: 1,000,000 nodes do not fit where 10,000 do.
- *memory* is the most that the row held at one time, with its own data, but not with data that several rows share. Memory is
  taken and given back as in any program. In the section `commands` it is the most that a whole process had; for large cases
  (`peak.`) less what an empty program has, with the input. Converted text goes to `/dev/null`, ours with a report.

`scripts/bench --growth` counts instructions instead, and fails where a row grows faster than its size.

![The ratio of every row at its largest size](performance.svg)
"""

GOALS = """## Goals

The best peer and the worst ratio of each row, what is not met first. A goal is a ratio at most, or an amount of memory at most
(`bench/goals.tsv`).
"""


def machine(context):
    model = re.search(r"model name\s*: (.*)", pathlib.Path("/proc/cpuinfo").read_text(encoding="utf-8"))
    system = platform.freedesktop_os_release()["PRETTY_NAME"]
    compiler = subprocess.run(["c++", "--version"], capture_output=True, text=True, check=True).stdout.splitlines()[0]
    caches = ", ".join(f"L{c['level']} {c['type'].lower()} {c['size'] >> 10} KiB" for c in context["caches"])
    return (f"Measured on {context['date'][:10]}: {model.group(1) if model else platform.machine()}, {context['num_cpus']} processors "
            f"({caches}), {system}, {compiler}, release build. Load at the start: {context['load_avg'][0]:.1f}.\n")


def table(times, memory):
    lines = ["| work | size | qxTools | memory | peer | its time | its memory | ratio | growth |",
             "|---|--:|--:|--:|---|--:|--:|--:|--:|"]
    for work, size, ours, who, theirs, ratio, exponent in bench_table.rows(times):
        held = [memory.get(work, {}).get(name, {}).get(int(size or 0)) for name in (bench_table.OURS, who)]
        ours_held, peer_held = (bench_goals.show_bytes(count) if count is not None else "" for count in held)
        lines.append(f"| {work} | {int(size or 0):,} | {ours} | {ours_held} | {who} | {theirs} | {peer_held} | {ratio} | {exponent} |")
    return "\n".join(lines) + "\n"


def page(results):
    paths = sorted(results.glob("*/*.json"))
    contexts = filter(None, (json.loads(path.read_text(encoding="utf-8")).get("context") for path in paths))
    memory = bench_table.read(paths, bench_table.bytes_of, bench_table.last)
    parts = [INTRODUCTION, *map(machine, itertools.islice(contexts, 1)), GOALS, bench_goals.table(bench_table.read(paths), memory)]
    for folder in sorted({path.parent for path in paths}):
        times = bench_table.read(sorted(folder.glob("*.json")))
        parts += [f"## {folder.name}\n", table(dict(sorted(times.items())), memory)]
    return "\n".join(parts)


def main():
    docs = pathlib.Path(__file__).resolve().parent.parent / "docs"
    text = page(pathlib.Path(sys.argv[1]))
    (docs / "performance.md").write_text(text, encoding="utf-8")
    docs_pages.draw_overview(docs_pages.sections_of(text), docs / "performance.svg")


if __name__ == "__main__":
    main()
