"""Results as JSON lines, and as lines and a summary of text."""

from __future__ import annotations

import json
from collections.abc import Iterable

from kelutv_station.report.outline import Outline, UnitOutline
from kelutv_station.run.results import Result, Verdict


def json_lines(outline: Outline) -> str:
    """A line of JSON text each: every result, then every unit."""
    results = [result.document() for unit in outline.units for result in unit.results]
    units = [
        {
            "unit": unit.serial, "verdict": unit.verdict.value, "complete": unit.is_complete,
            "seconds": round(unit.seconds, 6), "failed": [result.step for result in unit.failures],
        }
        for unit in outline.units
    ]
    return "".join(f"{json.dumps(document)}\n" for document in [*results, *units])


def result_line(result: Result) -> str:
    """One result for a reader."""
    values = ", ".join(f"{each.name} {cut(each.text())}" for each in result.measurements[:4])
    return f"{result.unit}: {result.step}: {': '.join(filter(None, (result.verdict.value, values, result.reason)))}"


def summary(outline: Outline) -> str:
    """A line a unit with the steps that kept it from passing, then the yield."""
    lines = [_unit_line(unit) for unit in outline.units]
    total = len(outline.units)
    return "\n".join([*lines, f"{outline.title}: {outline.passed} of {total} units passed ({percent(outline.passed, total)})"])


def _unit_line(unit: UnitOutline) -> str:
    named = _reasons(unit.failures)
    rest = sum(result.verdict is Verdict.LEFT_OUT for result in unit.results)
    left_out = f"; {counted(rest, 'step')} left out" if rest else ""
    incomplete = "" if unit.is_complete else "; has not ended"
    return f"{unit.serial}: {unit.verdict.value}{f': {named}' if named else ''}{left_out}{incomplete}"


def _reasons(failures: Iterable[Result]) -> str:
    return "; ".join(f"{result.step} ({result.reason})" for result in failures)


def percent(part: int, whole: int) -> str:
    """A share for a reader."""
    return f"{100 * part / whole:.1f} %" if whole else "-"


def cut(text: str) -> str:
    """A text of at most 80 characters."""
    return text if len(text) <= 80 else f"{text[:77]}..."


def counted(number: int, noun: str) -> str:
    """A number of things: `1 unit`, `2 units`."""
    return f"{number} {noun}{'' if number == 1 else 's'}"
