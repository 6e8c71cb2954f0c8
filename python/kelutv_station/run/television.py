"""The television of a unit, as far as a station uses it."""

from __future__ import annotations

import threading
import time
from collections import deque
from collections.abc import Callable, Iterator, Mapping
from typing import Any, Protocol

from kelutv import LinkLost

from kelutv_station.plan.plan import Unit

MOST_EVENTS = 4096


class Event(Protocol):
    """An event of a television."""

    @property
    def id(self) -> int:
        """Its number."""

    @property
    def fields(self) -> Mapping[str, Any]:
        """Its fields by name."""


class Television(Protocol):
    """A connection that calls functions and receives events."""

    def connect(self) -> None:
        """Connects, unless it is connected."""

    def call(self, function: str, *arguments: Any, timeout: float | None = None) -> Any:
        """Calls a function by the name that it has in C, within so many seconds."""

    def events(self) -> Iterator[Event]:
        """The events that come from now on."""

    def close(self) -> None:
        """Ends the connection, and with it the events."""


Connect = Callable[[Unit], Television]


class EventLog:
    """The events of a television behind a mark, each handed out once; beyond MOST_EVENTS the oldest are lost."""

    def __init__(self, television: Television) -> None:
        self._television = television
        self._condition = threading.Condition()
        self._waiting: deque[Event] = deque(maxlen=MOST_EVENTS)
        self._is_listening = False
        self._end: Exception | None = None

    def mark(self) -> None:
        """Forgets what has come so far. Listens anew where the connection was lost."""
        if not self._is_listening:
            events = self._television.events()
            self._is_listening = True
            threading.Thread(target=self._collect, args=(events,), daemon=True).start()
        with self._condition:
            self._waiting.clear()

    def until(self, deadline: float) -> Iterator[Event]:
        """Events as they come, until the deadline of time.monotonic().

        Raises what has ended the connection once no event waits any longer.
        """
        while (event := self._next(deadline)) is not None:
            yield event

    def _next(self, deadline: float) -> Event | None:
        with self._condition:
            self._condition.wait_for(lambda: self._waiting or not self._is_listening, deadline - time.monotonic())
            if self._waiting:
                return self._waiting.popleft()
            if not self._is_listening:
                raise self._end or LinkLost("events", "the connection has ended")
            return None

    def _collect(self, events: Iterator[Event]) -> None:
        end = None
        try:
            for event in events:
                with self._condition:
                    self._waiting.append(event)
                    self._condition.notify()
        except Exception as error:
            end = error
        with self._condition:
            self._is_listening, self._end = False, end
            self._condition.notify()
