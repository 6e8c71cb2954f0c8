"""The television of a unit, as far as a station uses it."""

from __future__ import annotations

import time
from collections.abc import Callable, Iterator
from typing import Any, Protocol

from kelutv_station.plan.plan import Unit


class Event(Protocol):
    """An event of a television."""

    @property
    def id(self) -> int:
        """Its number."""

    @property
    def fields(self) -> dict[str, Any]:
        """Its fields by name."""


class Television(Protocol):
    """A connection that calls functions and receives events."""

    def call(self, function: str, *arguments: Any) -> Any:
        """Calls a function by the name that it has in C."""

    def events(self, timeout: float) -> Iterator[Event]:
        """The events that come within this time, in seconds."""

    def close(self) -> None:
        """Ends the connection."""


Connect = Callable[[Unit, float], Television]


class EventsBehind:
    """The events of a television behind a mark; each is handed out once."""

    def __init__(self, television: Television) -> None:
        self._television = television

    def mark(self) -> None:
        """Forgets what has come so far."""
        for _ in self._television.events(0):
            pass

    def until(self, deadline: float) -> Iterator[Event]:
        """Events as they come, until the deadline of time.monotonic()."""
        while (left := deadline - time.monotonic()) > 0:
            yield from self._television.events(left)
