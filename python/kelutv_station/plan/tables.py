"""Reading the tables of a plan, with messages that say where, what is wrong and what is allowed."""

from __future__ import annotations

import difflib
import math
from collections.abc import Iterable, Mapping
from typing import Any, TypeVar

from kelutv_station.plan.plan import PlanError

Kind = TypeVar("Kind")
NAMES = {str: "a text", bool: "true or false", int: "a whole number", list: "a list", dict: "a table"}


class Table:
    """The members of one table; each is taken once, and what is left in the end is not allowed."""

    def __init__(self, place: str, members: object) -> None:
        if not isinstance(members, Mapping) or not all(isinstance(name, str) for name in members):
            raise PlanError(f"{place}: must be a table, not {shown(members)}")
        self.place = place
        self._members = dict(members)
        self._known: set[str] = set()

    def __contains__(self, name: str) -> bool:
        self._known.add(name)
        return name in self._members

    def take(self, name: str, kind: type[Kind]) -> Kind:
        """A member that must be there."""
        if name not in self:
            raise PlanError(f"{self.place}: needs {name}, {NAMES[kind]}")
        return self.take_or(name, kind, None)  # type: ignore[return-value]

    def take_or(self, name: str, kind: type[Kind], default: Kind | None) -> Kind | None:
        """A member of this kind, or the default."""
        if name not in self:
            return default
        value = self._members.pop(name)
        if not isinstance(value, kind) or (kind is int and isinstance(value, bool)):
            raise PlanError(f"{self.place}: {name} must be {NAMES[kind]}, not {shown(value)}")
        return value

    def take_text(self, name: str) -> str:
        """A text that is not empty."""
        text = self.take(name, str)
        if not text.strip():
            raise PlanError(f"{self.place}: {name} is empty")
        return text

    def take_number(self, name: str) -> float | None:
        """A number, or None."""
        value = self.take_any(name)
        if value is not None and (isinstance(value, bool) or not isinstance(value, (int, float)) or math.isnan(value)):
            raise PlanError(f"{self.place}: {name} must be a number, not {shown(value)}")
        return value

    def take_seconds(self, name: str) -> float | None:
        """A time above 0 s and at most a day, or None."""
        value = self.take_number(name)
        if value is not None and not 0 < value <= 86400:
            raise PlanError(f"{self.place}: {name} must be above 0 and at most 86400 seconds, not {value:g}")
        return value

    def take_texts(self, name: str) -> tuple[str, ...]:
        """A list of texts, empty where it is missing."""
        texts = self.take_or(name, list, [])
        assert texts is not None
        if not all(isinstance(text, str) and text for text in texts):
            raise PlanError(f"{self.place}: {name} must be a list of texts, not {shown(texts)}")
        return tuple(texts)

    def take_any(self, name: str) -> Any:
        """A member of any kind, or None."""
        return self._members.pop(name) if name in self else None

    def end(self) -> None:
        """Complains about members that nobody has taken."""
        for name in self._members:
            close = difflib.get_close_matches(name, self._known, 1)
            nearest = f"; the nearest is {close[0]}" if close else ""
            raise PlanError(f"{self.place}: there is no {name}{nearest}; allowed: {join(sorted(self._known))}")


def join(names: Iterable[str]) -> str:
    """Names for a message."""
    return ", ".join(names)


def shown(value: object) -> str:
    """A value for a message, cut where it is long."""
    text = repr(value)
    return text if len(text) <= 60 else f"{text[:57]}..."
