#!/usr/bin/env python3
"""Writes qxTools/base/CodePage950Table.inc, the characters of code page 950 outside its user-defined areas.

Source: the Unicode Consortium's mapping table VENDORS/MICSFT/WINDOWS/CP950.TXT, as Python's `cp950` codec
carries it. The C library's CP950 must agree on every character, or nothing is written.

    scripts/make_cp950_table.py        (a second run writes the same bytes)
"""
import pathlib
import subprocess

TARGET = pathlib.Path(__file__).parent.parent / "qxTools/base/CodePage950Table.inc"
LEADS = range(0xA1, 0xFA)
TRAILS = [*range(0x40, 0x7F), *range(0xA1, 0xFF)]
USER_DEFINED = range(0xC6A1, 0xC8FF)  # the codec reads later characters in part of it

HEAD = """\
// Written by scripts/make_cp950_table.py; do not edit.
// Source: Unicode Consortium, VENDORS/MICSFT/WINDOWS/CP950.TXT, as Python's cp950 codec and the C library's
// CP950 both read it. Lead bytes A1 to F9, a row of 157 characters each: trail bytes 40 to 7E, then A1 to FE.
// 0 stands where no character is, in the user-defined area C6A1 to C8FE too.
"""


def wide(code):
    if code in USER_DEFINED:
        return 0
    try:
        return ord(code.to_bytes(2, "big").decode("cp950"))
    except UnicodeDecodeError:
        return 0


def check_against_c_library(table):
    known = {code: unit for code, unit in table.items() if unit}
    text = b"".join(code.to_bytes(2, "big") for code in known)
    answer = subprocess.run(["iconv", "-f", "CP950", "-t", "UTF-16BE"], input=text, stdout=subprocess.PIPE,
                            check=True).stdout
    assert answer == b"".join(unit.to_bytes(2, "big") for unit in known.values()), "the two sources differ"


def main():
    table = {lead << 8 | trail: wide(lead << 8 | trail) for lead in LEADS for trail in TRAILS}
    check_against_c_library(table)
    lines = [HEAD]
    for lead in LEADS:
        lines.append(f"// {lead:02X}\n")
        units = [table[lead << 8 | trail] for trail in TRAILS]
        for first in range(0, len(units), 13):
            row = ", ".join(f"0x{unit:04X}" if unit else "0" for unit in units[first:first + 13])
            lines.append(row + ",\n")
    TARGET.write_text("".join(lines), encoding="utf-8")


if __name__ == "__main__":
    main()
