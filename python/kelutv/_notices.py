"""What comes in without having been asked for, on its way to those who listen."""

from __future__ import annotations

import select
import threading
import time
import weakref
from collections import deque
from collections.abc import Callable
from typing import NamedTuple, Protocol

EVENT, VBI_DATA = 0, 1


class Notice(NamedTuple):
    """What waits in the queue: an event or a block of data."""

    kind: int
    id: int
    payload: bytes


class Source(Protocol):
    """Where notices come from."""

    def fileno(self) -> int:
        """A descriptor that can be read while something waits."""

    def take(self) -> tuple[list[Notice], int, bool]:
        """What waits, how many were dropped so far, and whether there may be more one day."""

    def close(self) -> None:
        """Nothing is asked of it any more."""


class Listener:
    """The notices of one kind for one who listens, the newest `most` of them."""

    def __init__(self, hub: Hub, kind: int, most: int, wake: Callable[[], None] | None = None):
        self.hub = hub
        self.kind = kind
        self.wake = wake
        self.most = most
        self.waiting: deque[Notice] = deque()
        self.overflowed = 0
        self.dropped_before = hub.dropped

    @property
    def dropped(self) -> int:
        """How many are lost: those here, and those before they came here."""
        return self.overflowed + self.hub.dropped - self.dropped_before

    def add(self, notice: Notice) -> None:
        if len(self.waiting) >= self.most:
            self.waiting.popleft()
            self.overflowed += 1
        self.waiting.append(notice)


class Hub:
    """Hands the notices of a source to all who listen. Whoever waits reads for all."""

    def __init__(self, source: Source):
        self._source = source
        self._reading = threading.Lock()
        self._changing = threading.Lock()
        # Who forgets to leave is not held.
        self._listeners: weakref.WeakSet[Listener] = weakref.WeakSet()
        self.dropped = 0
        self.is_open = True

    def listen(self, kind: int, most: int, wake: Callable[[], None] | None = None) -> Listener:
        with self._changing:
            listener = Listener(self, kind, most, wake)
            self._listeners.add(listener)
        return listener

    def leave(self, listener: Listener) -> None:
        with self._changing:
            self._listeners.discard(listener)

    def fileno(self) -> int:
        return self._source.fileno()

    def is_free(self) -> bool:
        """Whether nobody waits."""
        return not self._reading.locked()

    def close(self) -> None:
        """Hands on what is left of a source that has ended."""
        with self._reading:
            if self.is_open:
                self._hand_on()
            self._end()
            self._source.close()

    def _end(self) -> None:
        """Nothing comes any more."""
        self.is_open = False
        with self._changing:
            listeners = list(self._listeners)
        for listener in listeners:
            if listener.wake:
                listener.wake()

    def next(self, listener: Listener, end: float | None) -> Notice | None:
        """The next notice, or nothing when the time is over or nothing comes any more."""
        while not listener.waiting:
            left = None if end is None else end - time.monotonic()
            if not self.is_open or left is not None and left <= 0:
                return None
            if not self._reading.acquire(timeout=-1 if left is None else left):
                return None
            try:
                if not listener.waiting and self.is_open:
                    self._wait(left)
            finally:
                self._reading.release()
        return listener.waiting.popleft()

    def read(self) -> None:
        """Hands on what is there, without waiting."""
        if self._reading.acquire(blocking=False):
            try:
                self._hand_on()
            finally:
                self._reading.release()

    def _wait(self, left: float | None) -> None:
        poll = select.poll()
        poll.register(self._source.fileno(), select.POLLIN)
        if poll.poll(None if left is None else max(1, int(left * 1000))):
            self._hand_on()

    def _hand_on(self) -> None:
        notices, self.dropped, goes_on = self._source.take()
        with self._changing:
            listeners = list(self._listeners)
        for listener in listeners:
            for notice in notices:
                if notice.kind == listener.kind:
                    listener.add(notice)
            if listener.wake and notices:
                listener.wake()
        if not goes_on:
            self._end()
