"""The table of budgets: reads, compares and writes it."""

from __future__ import annotations

import json
import tomllib
from collections.abc import Iterable
from dataclasses import dataclass, field
from pathlib import Path

from callgrind import Counts

TOLERANCE = 0.03
# Functions with a smaller share of a row are not kept.
SMALLEST_SHARE = 0.02
LONGEST_NAME = 110
MOST_NAMED = 4
# A smaller growth is no reason to name a function.
SMALLEST_GROWTH = 0.005

HEAD = """\
# What one call costs its process, and what a command of the tool does, in instructions: budgets that a test holds.
# instructions   in user space, of all libraries of the process
# above_transact as many more than the same transact of a finished request
# allocations, system_calls  each of them
# functions      those that took most, each with its own instructions, to name what has grown
# Written by bench/instructions/budgets.py --update.
"""


@dataclass
class Row:
    """What was counted of one call or command."""

    figures: dict[str, int]
    functions: dict[str, int] = field(default_factory=dict)


# Figures that have no tolerance.
EXACT = {"allocations", "system_calls"}


def shortened(name: str) -> str:
    return name if len(name) <= LONGEST_NAME else name[: LONGEST_NAME - 3] + "..."


def summed(counts: Counts) -> dict[str, int]:
    """The functions by their shortened names, the most expensive first."""
    functions: dict[str, int] = {}
    for function, count in counts.functions.items():
        name = shortened(function.name)
        functions[name] = functions.get(name, 0) + count
    return dict(sorted(functions.items(), key=lambda item: (-item[1], item[0])))


def grown(measured: Row, budget: Row) -> list[str]:
    """The functions whose share has grown, most first. What is not kept had less than the smallest share."""
    unkept = int(budget.figures["instructions"] * SMALLEST_SHARE)
    least = budget.figures["instructions"] * SMALLEST_GROWTH
    growth = {name: count - budget.functions.get(name, unkept) for name, count in measured.functions.items()}
    most = sorted(growth.items(), key=lambda item: -item[1])[:MOST_NAMED]
    return [f"{name} +{by:,}" for name, by in most if by > least]


def exceeded(name: str, figure: str, measured: Row, budget: Row) -> str:
    """What is wrong with one figure; nothing if it is within its budget."""
    count, allowed = measured.figures[figure], budget.figures[figure]
    if figure in EXACT:
        return f"{name}: {count} {figure}, allowed are {allowed}" if count > allowed else ""
    if count <= allowed * (1 + TOLERANCE):
        return ""
    functions = ", ".join(grown(measured, budget)) or f"functions with less than {SMALLEST_SHARE:.0%} each"
    return f"{name}: {count:,} {figure}, {count / allowed - 1:.1%} above the budget of {allowed:,}; grown: {functions}"


def compare(measured: dict[str, Row], budgets: dict[str, Row]) -> list[str]:
    """What is wrong; nothing if each row is within its budget and each budget has its row."""
    wrong = [f"{name}: has no budget" for name in measured.keys() - budgets.keys()]
    wrong += [f"{name}: has a budget, but was not measured" for name in budgets.keys() - measured.keys()]
    for name in measured.keys() & budgets.keys():
        row, budget = measured[name], budgets[name]
        if row.figures.keys() != budget.figures.keys():
            wrong.append(f"{name}: has {', '.join(row.figures)}, its budget {', '.join(budget.figures)}")
            continue
        wrong += [text for figure in row.figures if (text := exceeded(name, figure, row, budget))]
    return sorted(wrong)


def read(path: Path) -> dict[str, Row]:
    rows = {}
    for name, fields in tomllib.loads(path.read_text()).items():
        functions = {function: count for count, function in fields.pop("functions")}
        rows[name] = Row(fields, functions)
    return rows


def text_of(name: str, row: Row) -> Iterable[str]:
    yield f"\n[{name}]"
    yield from (f"{figure} = {count}" for figure, count in row.figures.items())
    yield "functions = ["
    smallest = row.figures["instructions"] * SMALLEST_SHARE
    # A JSON string is one of TOML, too.
    yield from (f"    [{count}, {json.dumps(function)}]," for function, count in row.functions.items() if count >= smallest)
    yield "]"


def write(path: Path, rows: dict[str, Row]) -> None:
    lines = (line for name, row in rows.items() for line in text_of(name, row))
    path.write_text(HEAD + "\n".join(lines) + "\n")
