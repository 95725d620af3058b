"""The rows of bench/goals.tsv beside what was measured.

A goal is a ratio, our time by the best peer's, or so many MB at most. The first line of the file that fits a row holds; its
rows are a pattern with "*", and without a size it holds for all of them. The last column says why a goal is not met.
"""
import csv
import fnmatch
import itertools
import pathlib
from typing import NamedTuple, Optional

import bench_table

FILE = pathlib.Path(__file__).resolve().parent.parent / "bench" / "goals.tsv"


class Goal(NamedTuple):
    rows: str
    size: str
    text: str
    why: str

    @property
    def is_memory(self):
        return self.text.endswith(" MB")

    @property
    def limit(self):
        return float(self.text.removesuffix(" MB")) * (1e6 if self.is_memory else 1)

    def fits(self, work, size):
        return fnmatch.fnmatchcase(work, self.rows) and self.size in ("", str(size))


class Line(NamedTuple):
    """A row of the table at one size, with the goal that holds for it and the best peer."""
    work: str
    size: int
    ours: float
    peer: str
    theirs: Optional[float]
    goal: Optional[Goal]

    @property
    def ratio(self):
        return self.ours / self.theirs if self.theirs else None

    @property
    def excess(self):
        """How many times the goal: above 1 it is not met."""
        if self.goal is None or (self.ratio is None and not self.goal.is_memory):
            return None
        return (self.ours if self.goal.is_memory else self.ratio) / self.goal.limit

    @property
    def verdict(self):
        if self.excess is not None:
            return "yes" if self.excess <= 1 else "**no**"
        return "no goal" if self.theirs else "no peer"

    @property
    def place(self):
        """Not met, met, without a goal, without a peer; the worst of each first."""
        return (["**no**", "yes", "no goal", "no peer"].index(self.verdict), -(self.excess or self.ratio or 0), self.work)


def read_goals():
    with open(FILE, encoding="utf-8", newline="") as file:
        rows = list(csv.reader(file, delimiter="\t", quoting=csv.QUOTE_NONE))
    return [Goal(*row) for row in rows[1:]]


def lines_of(works, goals):
    """A line for each row and goal: that of the size where the ratio is worst, or the largest."""
    for work, whos in works.items():
        found = []
        for size, ours in sorted(whos.get(bench_table.OURS, {}).items()):
            who, theirs = (bench_table.peers_of(whos, size) or [("", None)])[0]
            found.append(Line(work, size, ours, who, theirs, next((goal for goal in goals if goal.fits(work, size)), None)))
        for _, same in itertools.groupby(sorted(found, key=lambda line: line.goal or ()), key=lambda line: line.goal):
            yield max(same, key=lambda line: (line.ratio or 0, line.size))


def lines(times, memory):
    """All lines in the order of the table: memory where it has a goal, time unless memory alone has one."""
    goals = read_goals()
    by_memory = [line for line in lines_of(memory, [goal for goal in goals if goal.is_memory]) if line.goal]
    by_time = lines_of(times, [goal for goal in goals if not goal.is_memory])
    only_memory = {line.work for line in by_memory}
    found = by_memory + [line for line in by_time if line.goal or line.work not in only_memory]
    return sorted(found, key=lambda line: line.place)


def show_bytes(count):
    for unit, scale in (("GB", 1e9), ("MB", 1e6), ("KB", 1e3)):
        if count >= scale:
            return f"{count / scale:.3g} {unit}"
    return f"{count:.0f} B"


def show(line):
    is_memory = line.goal is not None and line.goal.is_memory
    figure = show_bytes if is_memory else bench_table.show_time
    cells = [line.work + (", memory" if is_memory else ""), f"{line.size:,}" if line.size else "", figure(line.ours),
             f"{figure(line.theirs)} ({line.peer})" if line.theirs else "", f"{line.ratio:.2f}" if line.ratio else "",
             line.goal.text if line.goal else "", line.verdict, line.goal.why if line.verdict == "**no**" else ""]
    return f"| {' | '.join(cells)} |"


def table(times, memory):
    """The table in Markdown, below a sentence that counts."""
    found = lines(times, memory)
    verdicts = [line.verdict for line in found]
    count = f"{verdicts.count('yes')} of {verdicts.count('yes') + verdicts.count('**no**')} goals are met."
    used = {line.goal for line in found}
    without = [f"`{goal.rows}`" for goal in read_goals() if goal not in used]
    count += f" Not measured: {', '.join(without)}." if without else ""
    head = ["| row | size | ours | best peer | ratio | goal | met | why not |", "|---|--:|--:|---|--:|--:|---|---|"]
    return "\n".join([count, "", *head, *map(show, found)]) + "\n"
