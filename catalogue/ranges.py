"""What a cell says of the values of a number: `1..9`, `0..? step 0.5 unit ms default 3`, `?` for what is not known."""

from __future__ import annotations

import re

from model import ValueSet
from tables import RowError

_RANGE = re.compile(r"(-?\d+|\?)\.\.(-?\d+|\?)((?: \w+ \S+)*)")
_NUMBER = re.compile(r"-?\d+(?:\.\d+)?")
_WORDS = ("step", "unit", "default")
FORM = "LEAST..GREATEST [step NUMBER] [unit UNIT] [default NUMBER], with ? for what is not known"


def parse_range(text: str) -> ValueSet | None:
    """The range that `text` describes; nothing where it does not begin like one."""
    if ".." not in text:
        return None
    match = _RANGE.fullmatch(text)
    if not match:
        raise RowError(f"'{text}' is not {FORM}")
    low, high = _known_int(match[1]), _known_int(match[2])
    words = _words(text, match[3].split())
    found = ValueSet(
        low=low,
        high=high,
        unit=None if words.get("unit") == "?" else words.get("unit"),
        step=_known_number(text, "step", words.get("step", "?")),
        default=_known_number(text, "default", words.get("default", "?")),
    )
    _check(text, found)
    return found


def _words(text: str, parts: list[str]) -> dict[str, str]:
    found: dict[str, str] = {}
    for word, value in zip(parts[::2], parts[1::2]):
        if word not in _WORDS or word in found:
            raise RowError(f"'{text}' is not {FORM}")
        found[word] = value
    return found


def _known_int(text: str) -> int | None:
    return None if text == "?" else int(text)


def _known_number(text: str, word: str, value: str) -> int | float | None:
    if value == "?":
        return None
    if not _NUMBER.fullmatch(value):
        raise RowError(f"'{text}': {word} '{value}' is not a number")
    return float(value) if "." in value else int(value)


def _check(text: str, values: ValueSet) -> None:
    if values == ValueSet():
        raise RowError(f"range '{text}' says nothing, leave it out")
    if values.bounded and values.low > values.high:
        raise RowError(f"range '{text}' is empty")
    if values.step is not None and values.step <= 0:
        raise RowError(f"range '{text}' has a step that is not above 0")
    if values.default is not None and not values.holds(values.default):
        raise RowError(f"range '{text}' does not hold its default")


def range_text(values: ValueSet) -> str:
    """A range for a reader."""
    known = [f"in steps of {values.step}"] if values.step is not None else []
    known += [f"{values.default} by default"] if values.default is not None else []
    unit = f" {values.unit}" if values.unit else ""
    return ", ".join([f"{_shown(values.low)} to {_shown(values.high)}{unit}", *known])


def _shown(bound: int | None) -> str:
    return "?" if bound is None else str(bound)
