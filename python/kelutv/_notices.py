"""What comes in without having been asked for, on its way to those who listen."""

from __future__ import annotations

import threading
import time
import weakref
from collections import deque
from collections.abc import Callable
from typing import NamedTuple, Protocol

from ._channel import is_readable

EVENT, VBI_DATA = 0, 1


class Notice(NamedTuple):
    """What waits in the queue: an event or a block of data. They are numbered from 1 as they come in."""

    number: int
    kind: int
    id: int
    payload: bytes


class Source(Protocol):
    """Where notices come from."""

    def fileno(self) -> int:
        """A descriptor that can be read while something waits."""

    def take(self) -> tuple[list[Notice], bool]:
        """What waits, and whether there may be more one day."""

    def close(self) -> None:
        """Nothing is asked of it any more."""


class Listener:
    """The notices of one kind for one who listens, the newest `most` of them."""

    def __init__(self, kind: int, most: int, wake: Callable[[], None] | None = None):
        self.kind = kind
        self.wake = wake
        self.most = most
        self.waiting: deque[Notice] = deque()
        # How many are lost: those here, and those of any kind before they came here.
        self.dropped = 0
        self._last: int | None = None

    def add(self, notice: Notice) -> None:
        last = notice.number - 1 if self._last is None else self._last
        if notice.number <= last:
            return
        self.dropped += notice.number - last - 1
        self._last = notice.number
        if notice.kind != self.kind:
            return
        if len(self.waiting) >= self.most:
            self.waiting.popleft()
            self.dropped += 1
        self.waiting.append(notice)

    def begin_behind(self, number: int) -> None:
        """Forgets those up to this one."""
        while self.waiting and self.waiting[0].number <= number:
            self.waiting.popleft()
        self._last = max(number, self._last or 0)


class Hub:
    """Hands the notices of a source to all who listen. Whoever waits reads for all."""

    def __init__(self, source: Source):
        self._source = source
        self._state = threading.Condition()
        self._is_read = False
        # Who forgets to leave is not held.
        self._listeners: weakref.WeakSet[Listener] = weakref.WeakSet()
        self.is_open = True

    def listen(self, listener: Listener, count: Callable[[], int]) -> None:
        """Hands what comes from now on to a listener.

        count: Says how many have come, some of which are still on their way.
        """
        with self._state:
            self._listeners.add(listener)
        number = count()
        with self._state:
            listener.begin_behind(number)

    def leave(self, listener: Listener) -> None:
        with self._state:
            self._listeners.discard(listener)

    def fileno(self) -> int:
        return self._source.fileno()

    def is_free(self) -> bool:
        """Whether nobody waits."""
        return not self._is_read

    def close(self) -> None:
        """Hands on what is left of a source that has ended."""
        with self._state:
            self._state.wait_for(self.is_free)
            self._is_read = True
        try:
            if self.is_open:
                self._hand_on()
            self._end()
            self._source.close()
        finally:
            self._end_reading()

    def _end(self) -> None:
        """Nothing comes any more."""
        self.is_open = False
        with self._state:
            listeners = list(self._listeners)
        for listener in listeners:
            if listener.wake:
                listener.wake()

    def next(self, listener: Listener, end: float | None) -> Notice | None:
        """The next notice, or nothing when the time is over or nothing comes any more."""
        while not listener.waiting and self.is_open:
            if self._begin_reading(listener, end):
                try:
                    if is_readable(self._source.fileno(), end):
                        self._hand_on()
                finally:
                    self._end_reading()
            if end is not None and end <= time.monotonic():
                break
        # What another thread read may have come at the very end.
        return listener.waiting.popleft() if listener.waiting else None

    def read(self) -> None:
        """Hands on what is there, without waiting."""
        with self._state:
            if self._is_read or not self.is_open:
                return
            self._is_read = True
        try:
            self._hand_on()
        finally:
            self._end_reading()

    def _begin_reading(self, listener: Listener, end: float | None) -> bool:
        """Waits while another thread reads and has nothing for this listener; whether it is now this thread's turn."""

        def goes_on() -> bool:
            return not self._is_read or bool(listener.waiting) or not self.is_open

        with self._state:
            left = None if end is None else min(end - time.monotonic(), threading.TIMEOUT_MAX)
            self._state.wait_for(goes_on, left)
            if self._is_read or listener.waiting or not self.is_open:
                return False
            self._is_read = True
            return True

    def _end_reading(self) -> None:
        with self._state:
            self._is_read = False
            self._state.notify_all()

    def _hand_on(self) -> None:
        notices, goes_on = self._source.take()
        with self._state:
            listeners = list(self._listeners)
            for listener in listeners:
                for notice in notices:
                    listener.add(notice)
        for listener in listeners:
            if listener.wake and notices:
                listener.wake()
        if not goes_on:
            self._end()
