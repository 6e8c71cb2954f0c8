"""The television of a unit, as far as a station uses it."""

from __future__ import annotations

from collections.abc import Callable, Mapping
from typing import Any, Protocol

from kelutv_station.plan.plan import Unit


class Event(Protocol):
    """An event of a television."""

    @property
    def id(self) -> int:
        """Its number."""

    @property
    def fields(self) -> Mapping[str, Any]:
        """Its fields by name."""


class Events(Protocol):
    """The events of a television from a moment on, each handed out once."""

    def take(self, seconds: float) -> Event | None:
        """The next one, or None when none comes within so many seconds. Raises what has ended the connection."""

    def close(self) -> None:
        """Takes nothing more."""


class Television(Protocol):
    """A connection that calls functions and receives events."""

    def connect(self, timeout: float) -> None:
        """Connects within so many seconds, unless it is connected."""

    def call(self, function: str, *arguments: Any, timeout: float | None = None) -> Any:
        """Calls a function by the name that it has in C, within so many seconds."""

    def events(self) -> Events:
        """The events that come from now on."""

    def close(self) -> None:
        """Ends the connection, and with it the events."""


Connect = Callable[[Unit], Television]
