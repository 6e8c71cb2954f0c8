"""Reads a plan from a file: TOML, or Python that leaves the same tables in PLAN."""

from __future__ import annotations

import re
import runpy
import tomllib
from collections.abc import Callable
from pathlib import Path
from typing import Any

from kelutv_station.plan.limits import FORMS, Limit, is_number
from kelutv_station.plan.plan import (
    DEFAULT_TIMEOUT,
    Call,
    Operation,
    Picture,
    Plan,
    PlanError,
    Prompt,
    Snapshot,
    Step,
    Unit,
    Wait,
)
from kelutv_station.plan.tables import Table, join, shown

MOST_DEFECTS = 9
LEVELS = (28, 29, 30)
PLACEHOLDER = re.compile(r"\{([^{}]*)\}")


def read_plan(path: Path) -> Plan:
    """The plan of a file that ends in .toml or .py. Raises PlanError."""
    readers: dict[str, Callable[[Path], object]] = {".toml": _read_toml, ".py": _run_python}
    if path.suffix not in readers:
        raise PlanError(f"{path}: a plan is a file that ends in {' or '.join(readers)}")
    return plan_of(readers[path.suffix](path), str(path), path.parent)


def _read_toml(path: Path) -> object:
    try:
        return tomllib.loads(path.read_text(encoding="utf-8"))
    except (OSError, ValueError) as error:
        raise PlanError(f"{path}: {_reason(error)}") from error


def _run_python(path: Path) -> object:
    try:
        path.read_bytes()
        members = runpy.run_path(str(path))
    except OSError as error:
        raise PlanError(f"{path}: {_reason(error)}") from error
    except Exception as error:
        raise PlanError(f"{path}: {type(error).__name__}: {error}") from error
    if "PLAN" not in members:
        raise PlanError(f"{path}: sets no PLAN, a table as a plan in TOML has it")
    return members["PLAN"]


def _reason(error: Exception) -> str:
    return (error.strerror if isinstance(error, OSError) else None) or str(error)


def plan_of(document: object, place: str, folder: Path) -> Plan:
    """The plan of a document; files that it names are found from the folder. Raises PlanError."""
    table = Table(place, document)
    title = table.take_or("title", str, Path(place).stem) or Path(place).stem
    allow, timeout = table.take_texts("allow"), table.take_seconds("timeout")
    units = tuple(_unit(each, f"{place}: unit {number}") for number, each in _numbered(table, "unit"))
    steps = tuple(_step(each, f"{place}: step {number}", folder) for number, each in _numbered(table, "step"))
    table.end()
    if not steps:
        raise PlanError(f"{place}: has no steps; a plan needs at least one [[step]]")
    _require_different([step.name for step in steps], f"{place}: steps")
    return Plan(place, folder, title, steps, units, allow, timeout or DEFAULT_TIMEOUT)


def _numbered(table: Table, name: str) -> list[tuple[int, object]]:
    return list(enumerate(table.take_or(name, list, []) or [], 1))


def _require_different(names: list[str], place: str) -> None:
    twice = next((name for name in names if names.count(name) > 1), None)
    if twice is not None:
        raise PlanError(f"{place}: there are two of the name '{twice}'; each needs one of its own")


def require_units(plan: Plan) -> None:
    """Complains when there is no unit, or two are the same."""
    if not plan.units:
        raise PlanError(f"{plan.place}: names no units; give each as [[unit]] or by --unit SERIAL=RUNTIME_DIR")
    _require_different([unit.serial for unit in plan.units], f"{plan.place}: units")
    _require_different([unit.runtime_dir for unit in plan.units], f"{plan.place}: runtime_dir of units")


def _unit(document: object, place: str) -> Unit:
    table = Table(place, document)
    serial, runtime_dir = table.take_text("serial"), table.take_text("runtime_dir")
    values = table.take_or("values", dict, {}) or {}
    for name, value in values.items():
        if name == "serial" or isinstance(value, bool) or not isinstance(value, (int, str)):
            raise PlanError(f"{place}: values has texts and whole numbers, of any name but serial; not {name} = {value!r}")
    level = table.take_or("level", int, None)
    if level is not None and level not in LEVELS:
        raise PlanError(f"{place}: level must be one of {join(map(str, LEVELS))}, not {level}")
    unit = Unit(serial, runtime_dir, level, table.take_seconds("timeout"), table.take_seconds("limit"), values)
    table.end()
    return unit


def _step(document: object, place: str, folder: Path) -> Step:
    table = Table(place, document)
    name = table.take_text("name")
    table.place = f"{place} '{name}'"
    kinds = [kind for kind in _KINDS if kind in table]
    if len(kinds) != 1:
        raise PlanError(f"{table.place}: needs one of {join(_KINDS)}, {'none' if not kinds else join(kinds)} is there")
    common = {
        "name": name,
        "repeat": table.take_or("repeat", bool, None),
        "stop": table.take_or("stop", bool, False),
        "timeout": table.take_seconds("timeout"),
    }
    step = _KINDS[kinds[0]](table, common, folder)
    table.end()
    return step


def _call(table: Table, common: dict[str, Any], _: Path) -> Step:
    operation = _operation(table)
    limits = {
        name: _named_limit(f"{table.place}: limits of {name}", each)
        for name, each in (table.take_or("limits", dict, {}) or {}).items()
    }
    own = _limit(table)
    if own != Limit():
        if "result" in limits:
            raise PlanError(f"{table.place}: limits the result twice, by itself and by limits.result")
        limits["result"] = own
    return Call(**common, operation=operation, limits=limits)


def _operation(table: Table) -> Operation:
    function = table.take_text("call")
    arguments = table.take_or("arguments", list, []) or []
    return Operation(function, tuple(arguments))


def _limit(table: Table) -> Limit:
    low, high = table.take_number("low"), table.take_number("high")
    if low is not None and high is not None and low > high:
        raise PlanError(f"{table.place}: low is {low:g}, which is above high, {high:g}")
    equals, matches = table.take_any("equals"), table.take_or("matches", str, None)
    if equals is not None and not _is_plain(equals):
        raise PlanError(f"{table.place}: equals must be a number, a text, true, false or a list, not {shown(equals)}")
    one_of = table.take_or("one_of", list, None)
    if one_of is not None and not (one_of and all(isinstance(each, (str, bool)) or is_number(each) for each in one_of)):
        raise PlanError(f"{table.place}: one_of must be a list of numbers or texts, not {shown(one_of)}")
    _require_pattern(table.place, matches)
    unit = table.take_or("unit", str, "") or ""
    return Limit(low, high, equals, tuple(one_of) if one_of is not None else None, matches, unit)


def _named_limit(place: str, document: object) -> Limit:
    table = Table(place, document)
    limit = _limit(table)
    table.end()
    if not limit.text():
        raise PlanError(f"{place}: has no bounds; allowed: {join(FORMS)}")
    return limit


def _is_plain(value: object) -> bool:
    return isinstance(value, (str, bool, list)) or is_number(value)


def _require_pattern(place: str, matches: str | None) -> None:
    try:
        re.compile(matches or "")
    except re.error as error:
        raise PlanError(f"{place}: matches is no regular expression: {error}") from error


def _wait(table: Table, common: dict[str, Any], _: Path) -> Step:
    return Wait(**common, event=table.take_text("wait"), fields=table.take_or("fields", dict, {}) or {})


def _prompt(table: Table, common: dict[str, Any], _: Path) -> Step:
    return Prompt(**common, text=table.take_text("prompt"))


def _picture(table: Table, common: dict[str, Any], _: Path) -> Step:
    question, defects = table.take_text("picture"), table.take_texts("defects")
    if len(defects) > MOST_DEFECTS:
        raise PlanError(f"{table.place}: has {len(defects)} defects; there are keys for {MOST_DEFECTS}")
    show = None
    if "show" in table:
        shown_by = Table(f"{table.place}: show", table.take("show", dict))
        show = _operation(shown_by)
        shown_by.end()
    return Picture(**common, question=question, show=show, defects=defects)


def _snapshot(table: Table, common: dict[str, Any], folder: Path) -> Step:
    golden = folder / table.take_text("snapshot")
    if not golden.is_file():
        raise PlanError(f"{table.place}: there is no snapshot {golden}; 'kelutv snapshot -o FILE' takes one")
    settings = table.take_or("settings", bool, False) or False
    return Snapshot(**common, golden=golden, ignore=table.take_texts("ignore"), settings=settings)


_KINDS: dict[str, Callable[[Table, dict[str, Any], Path], Step]] = {
    "call": _call,
    "wait": _wait,
    "prompt": _prompt,
    "picture": _picture,
    "snapshot": _snapshot,
}
