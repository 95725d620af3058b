#!/usr/bin/python3
"""Makes the pages of the guide that are not written by hand, with their pictures.

    docs_pages.py FOLDER    performance.md with a chart for each subsystem, and qxtool.md, the man page
"""
import pathlib
import re
import subprocess
import sys

import matplotlib

matplotlib.use("svg")
matplotlib.rcParams.update({"svg.fonttype": "none", "svg.hashsalt": "qxTools", "font.size": 8, "font.family": "sans-serif",
                            "axes.spines.top": False, "axes.spines.right": False})
from matplotlib import pyplot  # noqa: E402

COLUMNS = 4
OURS, OURS_COLOR, PEER_COLORS = "qxTools", "#1f5fbf", ["#d9822b", "#5a9a5a", "#8a6fb0", "#888888"]
UNITS = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}
DOCS = pathlib.Path(__file__).resolve().parent.parent / "docs"


def seconds(text):
    number, unit = text.split()
    return float(number) * UNITS[unit]


def read_section(text):
    """{work: {who: {size: seconds}}} from the table of a section, whose head names its columns."""
    works = {}
    lines = [[cell.strip() for cell in line.strip("|").split("|")] for line in text.splitlines() if line.startswith("| ")]
    for cells in lines[1:]:
        row = dict(zip(lines[0], cells))
        whos = works.setdefault(row["work"], {})
        for who, time in ((OURS, row[OURS]), (row["peer"], row["its time"])):
            if time:
                whos.setdefault(who, {})[int(row["size"].replace(",", ""))] = seconds(time)
    return {work: whos for work, whos in works.items() if any(len(times) > 1 for times in whos.values())}


def save(figure, path):
    figure.tight_layout()
    figure.savefig(path, metadata={"Date": None, "Creator": None})
    pyplot.close(figure)


def draw_section(works, path):
    """Time over size, both logarithmic, a panel for each work."""
    count = -(-len(works) // COLUMNS)
    figure, panels = pyplot.subplots(count, COLUMNS, figsize=(3 * COLUMNS, 2.3 * count), squeeze=False)
    for panel, (work, whos) in zip(panels.flat, works.items()):
        colors = iter(PEER_COLORS)
        for who, times in sorted(whos.items(), key=lambda item: item[0] != OURS):
            sizes = sorted(times)
            panel.loglog(sizes, [times[size] for size in sizes], marker="o", markersize=3, label=who,
                         color=OURS_COLOR if who == OURS else next(colors, "#888888"), linewidth=2 if who == OURS else 1.2)
        panel.set_title(work, loc="left", fontsize=9)
        panel.grid(True, which="major", color="#e4e4e4", linewidth=0.6)
        panel.minorticks_off()
        panel.legend(frameon=False, fontsize=7)
    for panel in panels.flat[len(works):]:
        panel.axis("off")
    for row in panels:
        row[0].set_ylabel("seconds")
    save(figure, path)


def draw_overview(sections, path):
    """One picture of all: the ratio to the quickest peer at the largest size, a point for each work."""
    figure, panel = pyplot.subplots(figsize=(7, 0.35 * len(sections) + 0.9))
    for place, (_, works) in enumerate(reversed(sections)):
        ratios = []
        for whos in works.values():
            ours = whos.get(OURS, {})
            peers = [times[max(ours)] for who, times in whos.items() if who != OURS and max(ours, default=0) in times]
            if peers:
                ratios.append(ours[max(ours)] / min(peers))
        panel.plot(ratios, [place] * len(ratios), "o", color=OURS_COLOR, alpha=0.5, markersize=5)
    panel.set_xscale("log")
    panel.axvline(1, color="#d9822b", linewidth=1)
    panel.set_yticks(range(len(sections)), [name for name, _ in reversed(sections)])
    panel.set_xlabel("time of qxTools by time of the quickest peer, at the largest size: left of the line qxTools is faster")
    panel.grid(True, axis="x", color="#e4e4e4", linewidth=0.6)
    save(figure, path)


def sections_of(page):
    """[(name, works)] of the report's sections that have a table of measurements."""
    parts = re.split(r"(?m)^## (.*)\n", page)
    found = [(name, text) for name, text in zip(parts[1::2], parts[2::2]) if f"| {OURS} |" in text and "| its time |" in text]
    return [(name, works) for name, works in ((name, read_section(text)) for name, text in found) if works]


def make_performance(folder):
    page = (DOCS / "performance.md").read_text(encoding="utf-8")
    for name, works in sections_of(page):
        draw_section(works, folder / f"performance_{name}.svg")
        page = page.replace(f"## {name}\n", f"## {name}\n\n![Time over size, both logarithmic: {name}](performance_{name}.svg)\n", 1)
    (folder / "performance.md").write_text(page, encoding="utf-8")


def make_man_page(folder):
    html = subprocess.run(["groff", "-k", "-Thtml", "-P-l", "-man", str(DOCS / "qxtool.1")], capture_output=True, text=True,
                          check=True).stdout
    body = re.sub(r"(?s).*<body>|</body>.*|<h1.*?</h1>", "", html)
    (folder / "qxtool.md").write_text("# Command line: qxtool (man page)\n\n\\htmlonly\n" + body + "\n\\endhtmlonly\n",
                                      encoding="utf-8")


def main():
    folder = pathlib.Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    make_performance(folder)
    make_man_page(folder)


if __name__ == "__main__":
    main()
