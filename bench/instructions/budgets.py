#!/usr/bin/env python3
"""Holds what calls and commands cost in instructions against their budgets; see --help."""

from __future__ import annotations

import argparse
import subprocess
import sys
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parent))

import measure  # noqa: E402
import table  # noqa: E402
from callgrind import Counts  # noqa: E402

BUDGETS = Path(__file__).resolve().parent / "budgets.toml"

DESCRIPTION = """\
Counts by valgrind's callgrind what a call of each shape of operation costs its process in user space, and what commands
of the tool cost, and compares it with the budgets in bench/instructions/budgets.toml. A budget that is exceeded by 3 %
fails, and so does any allocation or system call more; what is said of it names the functions that have grown.

Build first: cmake --preset release && cmake --build --preset release --target kelutv-shapes kelutv kelutv-simulator"""


def arguments() -> argparse.Namespace:
    parser = argparse.ArgumentParser(description=DESCRIPTION, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", type=Path, default=BUDGETS.parents[2] / "build/release", metavar="DIR",
                        help="the build tree to measure, a Release build; build/release without it")
    parser.add_argument("--table", type=Path, default=BUDGETS, metavar="FILE", help="another table of budgets")
    what = parser.add_mutually_exclusive_group()
    what.add_argument("--update", action="store_true", help="write the table anew, of what is measured now")
    what.add_argument("--times", action="store_true",
                      help="take the processor's time of the tool's commands instead, which other load disturbs")
    what.add_argument("--profile", metavar="ROW", help="print the functions of one row with their own instructions")
    return parser.parse_args()


def print_profile(counts: Counts) -> None:
    for function, count in counts.functions.most_common():
        if count > 0:
            print(f"{count:>10,}  {function.place:<28} {function.name}")
    print(f"{counts.instructions:>10,}  in all")


def print_rows(rows: dict[str, table.Row]) -> None:
    for name, row in rows.items():
        print(f"{name:<18}" + "".join(f" {count:>12,} {figure}" for figure, count in row.figures.items()))


def print_times(times: dict[str, float]) -> int:
    for name, time in times.items():
        print(f"{name:<18} {time:12.1f} ms, at most {measure.COMMANDS[name].milliseconds}")
    return 1 if any(time > measure.COMMANDS[name].milliseconds for name, time in times.items()) else 0


def main() -> int:
    asked = arguments()
    programs = {name: asked.build / path for name, path in {
        "shapes": "bench/instructions/kelutv-shapes",
        "simulator": "simulator/kelutv-simulator",
        "tool": "tools/kelutv/kelutv",
    }.items()}
    for program in programs.values():
        if not program.exists():
            raise measure.MeasureError(f"there is no {program}; build it first, see --help")
    with measure.surroundings() as (environment, folder):
        if asked.times:
            return print_times(measure.times(programs["simulator"], programs["tool"], environment))
        calls = measure.calls(programs["shapes"], environment, folder)
        commands = measure.commands(programs["simulator"], programs["tool"], environment, folder)
    if asked.profile:
        costs = calls | commands
        if asked.profile not in costs:
            raise measure.MeasureError(f"there is no row {asked.profile}, use: {', '.join(costs)}")
        print_profile(costs[asked.profile])
        return 0
    rows = measure.call_rows(calls) | measure.command_rows(commands)
    print_rows(rows)
    if asked.update:
        table.write(asked.table, rows)
        return 0
    wrong = table.compare(rows, table.read(asked.table))
    for text in wrong:
        print(text)
    print(f"torture: instructions: {len(rows)} shapes and commands, {len(wrong)} figures above their budget")
    return 1 if wrong else 0


if __name__ == "__main__":
    try:
        sys.exit(main())
    except (measure.MeasureError, subprocess.TimeoutExpired, OSError) as error:
        print(f"budgets.py: {error}", file=sys.stderr)
        sys.exit(2)
