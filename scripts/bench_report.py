#!/usr/bin/python3
"""Writes docs/performance.md and its overview picture from Google Benchmark results.

    bench_report.py RESULTS     RESULTS/<folder>/<program>.json, as scripts/bench leaves them
"""
import json
import pathlib
import platform
import re
import subprocess
import sys

import bench_table
import docs_pages

INTRODUCTION = """# Performance

Every row is measured beside what one would otherwise use, in one run of `scripts/bench --report`, which writes this page.

- *ratio* is the peer's time by ours: above 1, qxTools is faster.
- *growth* is the slope of log(time) over log(size) from the smallest to the largest size: 1 is linear. Rows of the canvas and
  of bitmaps give the side of a square, so that 2 is linear there. Caches show: 1,000,000 nodes do not fit where 10,000 do.
- *memory* is the most that the row held at one time, with its own data, but not with data that several rows share.

`scripts/bench --growth` counts instructions instead, and fails where a row grows faster than its size.

![The ratio of every row at its largest size](performance.svg)
"""


def machine(context):
    model = re.search(r"model name\s*: (.*)", pathlib.Path("/proc/cpuinfo").read_text(encoding="utf-8"))
    system = platform.freedesktop_os_release()["PRETTY_NAME"]
    compiler = subprocess.run(["c++", "--version"], capture_output=True, text=True, check=True).stdout.splitlines()[0]
    caches = ", ".join(f"L{c['level']} {c['type'].lower()} {c['size'] >> 10} KiB" for c in context["caches"])
    return (f"Measured on {context['date'][:10]}: {model.group(1) if model else platform.machine()}, {context['num_cpus']} processors "
            f"({caches}), {system}, {compiler}, release build. Load at the start: {context['load_avg'][0]:.1f}.\n")


def memory_of(paths):
    """{(work, who, size): bytes}"""
    found = {}
    for path in paths:
        for run in json.loads(path.read_text(encoding="utf-8"))["benchmarks"]:
            name = (run.get("run_name", "").split("/") + ["0", "0"])[:3]
            if "max_bytes_used" in run:
                found[(name[0], name[1], name[2])] = run["max_bytes_used"]
    return found


def show_bytes(count):
    for unit, scale in (("GB", 1e9), ("MB", 1e6), ("KB", 1e3)):
        if count >= scale:
            return f"{count / scale:.3g} {unit}"
    return f"{count:.0f} B"


def table(works, memory):
    lines = ["| work | size | qxTools | memory | peer | its time | its memory | ratio | growth |",
             "|---|--:|--:|--:|---|--:|--:|--:|--:|"]
    for work, size, ours, who, theirs, ratio, exponent in bench_table.rows(works):
        held = [memory.get((work, name, size or "0")) for name in (bench_table.OURS, who)]
        ours_held, peer_held = (show_bytes(count) if count is not None else "" for count in held)
        lines.append(f"| {work} | {int(size or 0):,} | {ours} | {ours_held} | {who} | {theirs} | {peer_held} | {ratio} | {exponent} |")
    return "\n".join(lines) + "\n"


def main():
    results = pathlib.Path(sys.argv[1])
    docs = pathlib.Path(__file__).resolve().parent.parent / "docs"
    page = [INTRODUCTION]
    for folder in sorted(path for path in results.iterdir() if path.is_dir()):
        paths = sorted(folder.glob("*.json"))
        if len(page) == 1:
            page.append(machine(json.loads(paths[0].read_text(encoding="utf-8"))["context"]))
        works = {work: dict(sorted(whos.items())) for work, whos in sorted(bench_table.read(paths).items())}
        page.append(f"## {folder.name}\n")
        page.append(table(works, memory_of(paths)))
    text = "\n".join(page)
    (docs / "performance.md").write_text(text, encoding="utf-8")
    docs_pages.draw_overview(docs_pages.sections_of(text), docs / "performance.svg")


if __name__ == "__main__":
    main()
