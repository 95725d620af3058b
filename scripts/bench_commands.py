#!/usr/bin/env python3
"""Measures whole processes beside their peers, and writes what Google Benchmark would write.

    bench_commands.py BUILD RESULT.json     with the build folder; FILTER in the environment is a pattern for the rows

How long a command takes is the least of several runs, ours and the peer's in turn, with the output thrown away. Memory is the
most that the process had at one time; of the programs in bench/commands less what the empty program has.
"""
import json
import os
import pathlib
import random
import re
import subprocess
import sys
import tempfile
import time

QXTOOL, LARGE_CASES = "tools/qxtool/qxtool", "bench/large_cases"
NOWHERE = [(os.POSIX_SPAWN_OPEN, fd, os.devnull, os.O_RDWR, 0) for fd in range(3)]
MB = 1_000_000


def seconds_of(command):
    start = time.perf_counter()
    _, status = os.waitpid(os.posix_spawnp(command[0], command, os.environ, file_actions=NOWHERE), 0)
    seconds = time.perf_counter() - start
    if status != 0:
        raise SystemExit(f"failed: {' '.join(command)}")
    return seconds


def peak_of(command):
    """Bytes. By a small program that starts the command: what a process had before it became the command counts too."""
    with tempfile.NamedTemporaryFile() as result:
        subprocess.run(["/usr/bin/time", "-f", "%M", "-o", result.name, *command], check=True, stdin=subprocess.DEVNULL,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return int(result.read()) * 1024


def rows(work, size, commands, runs, without=0):
    """One row for each of {who: command}."""
    if not re.search(os.environ.get("FILTER", ""), work):
        return
    times = [{who: seconds_of(command) for who, command in commands.items()} for _ in range(runs)]
    for who, command in commands.items():
        yield {"name": f"{work}/{who}/{size}", "run_name": f"{work}/{who}/{size}", "run_type": "iteration", "time_unit": "s",
               "real_time": min(run[who] for run in times), "max_bytes_used": peak_of(command) - without}


# --- Texts ---

def converted(command, text):
    return subprocess.run(command, input=text, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False).stdout


def ours(qxtool, source, target):
    return [qxtool, "convert", "--report", "--from", source, "--to", target]


def peers(source, target):
    return ["iconv", "-f", source, "-t", target]


def shared_hanzi(qxtool):
    """The characters of GB2312 that are the same in BIG5 for us, for iconv and for Python."""
    hanzi = "".join(bytes([lead, trail]).decode("gb2312", "ignore") for lead in range(0xB0, 0xD8) for trail in range(0xA1, 0xFF))
    hanzi = [one for one in hanzi if one.encode("big5", "ignore")]
    text = "\n".join(hanzi).encode("gb2312")
    by_us = converted(ours(qxtool, "gb2312", "big5"), text).split(b"\n")
    by_peer = converted([*peers("GB2312", "BIG5"), "-c"], text).split(b"\n")
    return [one for one, big5, other in zip(hanzi, by_us, by_peer, strict=True) if big5 == other == one.encode("big5")]


def text_of(hanzi, words):
    """About 1 MB: runs of hanzi, each after a piece of `words`, all lengths random; lines of 40 runs."""
    draw = random.Random(7)
    parts = []
    for i in range(1, 70_000):
        parts += [words[:draw.randint(0, len(words))], *draw.choices(hanzi, k=draw.randint(1, 12))] + ["\n"] * (i % 40 == 0)
    return "".join(parts)


def convert_rows(build, folder):
    qxtool = str(build / QXTOOL)
    hanzi = shared_hanzi(qxtool)
    chinese, mixed = text_of(hanzi, ""), text_of(hanzi, "SELECT * FROM Goods WHERE ")
    kinds = {"chinese": ("gb2312", "big5", chinese), "mixed": ("gb2312", "big5", mixed), "utf8_to_big5": ("utf8", "big5", chinese),
             "big5_to_utf8": ("big5", "utf8", chinese)}
    for name, (source, target, text) in kinds.items():
        block = text.encode(source)
        commands = {"qxTools": ours(qxtool, source, target), "iconv": peers(source, target)}
        if any(converted(command, block) != text.encode(target) for command in commands.values()):
            raise SystemExit(f"wrong text: {name}")
        path = folder / name
        path.write_bytes((block * (100 * MB // len(block))).ljust(100 * MB, b"x"))
        yield from rows(f"convert.{name}", 100 * MB, {who: [*command, str(path)] for who, command in commands.items()}, 5)
        path.unlink()


# --- Large cases ---

def write_settings(folder):
    """The same 1,000,000 values for us and for the others; {who: file name}."""
    values = [(f"Name{i}", f"Text of value {i}") for i in range(MB)]
    our_file, peer_file = folder / "settings", folder / "peer_settings"
    our_file.write_text("Section0:[%RootKey%]\r\n[%\r\n" + "".join(f"  {name}:{text}\r\n" for name, text in values) + "%]\r\n", newline="")
    peer_file.write_text("[Section0]\r\n" + "".join(f"{name}={text}\r\n" for name, text in values), newline="")
    return {"qxTools": our_file, "SimpleIni": peer_file, "GKeyFile": peer_file}


def write_table(folder):
    path = folder / "table"
    with open(path, "w", encoding="ascii", newline="") as file:
        for i in range(MB + 1):
            file.write("".join(f"[#value {i:07} of {field}#]" for field in range(5)) + "\r\n")
    return {"qxTools": path, "getline": path}


def large_rows(build, folder):
    program = str(build / LARGE_CASES)
    nothing = peak_of([program, "nothing"])

    def case(name, size, files):
        commands = {who: [program, f"{name}/{who}", str(file)] for who, file in files.items()}
        return rows(f"peak.{name}", size, commands, 1, nothing)

    for name in ("call_lines", "call_wide", "command_lines"):
        yield from case(name, 100 * MB, {"qxTools": ""})
    yield from case("settings", MB, write_settings(folder))
    yield from case("table", MB, write_table(folder))
    yield from case("packet", MB, {"qxTools": "", "vector": ""})
    yield from case("tree", MB, {"qxTools": "", "unordered_map": ""})


def store_rows(build, folder):
    qxtool, data, store = str(build / QXTOOL), folder / "data", str(folder / "store")
    data.write_bytes(bytes(200 * MB))
    subprocess.run([qxtool, "store", "pack", str(data), store], check=True, stdout=subprocess.DEVNULL)
    yield from rows("peak.store_info", 200 * MB, {"qxTools": [qxtool, "store", "info", store]}, 3)


def start_rows(build, _):
    yield from rows("tool.start", 0, {"qxTools": [str(build / QXTOOL), "--version"], "iconv": ["iconv", "--version"]}, 100)


def main():
    build, result = map(pathlib.Path, sys.argv[1:])
    found = []
    for make in (start_rows, convert_rows, large_rows, store_rows):
        with tempfile.TemporaryDirectory(dir=".", prefix="qxtools-bench-") as folder:
            found += make(build, pathlib.Path(folder).resolve())
    result.write_text(json.dumps({"benchmarks": found}), encoding="utf-8")


if __name__ == "__main__":
    main()
