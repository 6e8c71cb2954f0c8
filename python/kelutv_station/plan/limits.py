"""What a measured value may be."""

from __future__ import annotations

import re
from dataclasses import dataclass
from typing import Any

Value = int | float | bool | str
FORMS = ("low", "high", "equals", "one_of", "matches")


@dataclass(frozen=True)
class Limit:
    """Bounds of one value; each is None where the plan sets none. Bounds of a list hold for each of its numbers."""

    low: float | None = None
    high: float | None = None
    equals: Value | list[Any] | None = None
    one_of: tuple[Value, ...] | None = None
    matches: str | None = None
    unit: str = ""

    def allows(self, value: object, name: str | None = None) -> bool:
        """Whether the value is within; `name` is that of an enumeration's value, which `equals` and `one_of` may give."""
        checks = (
            self.low is None or all(number >= self.low for number in _numbers(value)),
            self.high is None or all(number <= self.high for number in _numbers(value)),
            self.equals is None or _is(value, name, self.equals),
            self.one_of is None or any(_is(value, name, each) for each in self.one_of),
            self.matches is None or re.fullmatch(self.matches, str(value)) is not None,
        )
        return all(checks)

    def document(self) -> dict[str, Any]:
        """The bounds that are set, by name."""
        forms = {form: getattr(self, form) for form in (*FORMS, "unit")}
        return {
            form: list(bound) if isinstance(bound, tuple) else bound for form, bound in forms.items() if bound not in (None, "")
        }

    def text(self) -> str:
        """The bounds for a reader; empty where there are none."""
        parts = [
            f">= {self.low:g}" if self.low is not None else "",
            f"<= {self.high:g}" if self.high is not None else "",
            f"= {self.equals}" if self.equals is not None else "",
            f"one of {', '.join(map(str, self.one_of))}" if self.one_of is not None else "",
            f"like {self.matches}" if self.matches is not None else "",
        ]
        return " and ".join(part for part in parts if part)


def limit_of(document: dict[str, Any]) -> Limit:
    """The limit that Limit.document() gave."""
    members = dict(document)
    if "one_of" in members:
        members["one_of"] = tuple(members["one_of"])
    return Limit(**members)


def is_number(value: object) -> bool:
    """Whether it can be held against a lowest and a highest value."""
    return isinstance(value, (int, float)) and not isinstance(value, bool)


def is_named(name: str, text: str) -> bool:
    """Whether the text is the name of an enumeration's value, or its end behind a `_`, in any case of letters."""
    return f"_{name}".lower().endswith(f"_{text}".lower())


def _numbers(value: object) -> list[float]:
    """The numbers of a value; what is none is beyond every bound."""
    entries = value if isinstance(value, (list, tuple)) else [value]
    return [entry if is_number(entry) else float("nan") for entry in entries] or [float("nan")]


def _is(value: object, name: str | None, wanted: object) -> bool:
    if isinstance(wanted, str) and name is not None:
        return is_named(name, wanted)
    if isinstance(value, (list, tuple)) and isinstance(wanted, list):
        return list(value) == wanted
    return value == wanted
