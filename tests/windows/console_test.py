#!/usr/bin/env python3
"""Runs qxtool.exe under wine in a pseudo terminal, as on a console: its characters are readable, and Ctrl-C ends a
statement that runs.

    console_test.py WINE QXTOOL
"""
import os
import pty
import re
import sys
import tempfile
import time

LONG = "with recursive c(x) as (select 1 union all select x + 1 from c where x < 2000000000) select count(*) from c"


def run(arguments, press_after=None):
    """What the terminal shows without its control sequences, and the exit status."""
    child, terminal = pty.fork()
    if child == 0:
        os.execvp(arguments[0], arguments)
    if press_after is not None:
        time.sleep(press_after)
        os.write(terminal, b"\x03")
    shown = b""
    while True:
        try:
            piece = os.read(terminal, 4096)
        except OSError:  # the other side has ended
            break
        if not piece:
            break
        shown += piece
    status = os.waitstatus_to_exitcode(os.waitpid(child, 0)[1])
    return re.sub(r"\x1b\[[0-9;?]*[A-Za-z]", "", shown.decode(errors="replace")), status


def expect(what, shown, status, text, wanted):
    if text not in shown or status != wanted:
        sys.exit(f"{what}: exit status {status}, not {wanted}; {text!r} in:\n{shown}")


tool = sys.argv[1:]
shown, status = run(tool + ["date", "2003/01/01"])
expect("date", shown, status, "2003年1月1日  星期三", 0)
shown, status = run(tool + ["call", "年"])
expect("a message", shown, status, 'Cannot open file "年"', 2)
with tempfile.NamedTemporaryFile("w", suffix=".sql") as statement:
    statement.write(LONG)
    statement.flush()
    shown, status = run(tool + ["command", statement.name, "--run", "Driver=SQLite3;Database=:memory:"], press_after=2)
    expect("Ctrl-C", shown, status, "cancelled", 2)
