"""The events of a television, and the blocks of data that are handed to its data callback."""

from __future__ import annotations

import os
import struct
import time
import weakref
from collections.abc import AsyncIterator, Callable, Iterator
from dataclasses import dataclass
from typing import TYPE_CHECKING, Any, Generic, Self, TypeVar

from ._closing import Closing
from ._event_table import EVENTS
from ._memory import decoded, to_named
from ._notices import EVENT, Hub, Listener, Notice
from .enums import KELU_EM_MODE_E
from .errors import LinkLost

if TYPE_CHECKING:
    import asyncio

__all__ = [
    "AsyncStream",
    "Event",
    "Stream",
    "VbiData",
]

_MODULE = 0xFFFF0000


@dataclass(frozen=True)
class Event:
    """What the television tells by itself.

    id: The number of the event; its upper half is the module.
    payload: What comes with it, as it came.
    """

    id: int
    payload: bytes

    @property
    def module(self) -> KELU_EM_MODE_E:
        """The module that the event is of."""
        return KELU_EM_MODE_E(self.id & _MODULE)

    @property
    def name(self) -> str | None:
        """The name that the simulated television's event of this number has; another television may mean another."""
        row = _row_of(self.id)
        return row[2] if row else None

    @property
    def fields(self) -> dict[str, Any]:
        """The payload as the simulated television's event of this number has it; empty where it is of another form."""
        row = _row_of(self.id)
        return _fields_of(row[3], self.payload) if row else {}

    def __str__(self) -> str:
        known = " ".join(f"{name}={value!s}" for name, value in self.fields.items()) or self.payload.hex(" ")
        return f"0x{self.id:x} {self.name or self.module.name} {known}".rstrip()


@dataclass(frozen=True)
class VbiData:
    """A block of data that was handed to the installed data callback.

    type: Kind of the data.
    data: The bytes.
    """

    type: int
    data: bytes


def _row_of(number: int) -> tuple[int, int, str, tuple[tuple[str, str, str], ...]] | None:
    return next((row for row in EVENTS if row[0] <= number <= row[1]), None)


def _fields_of(rows: tuple[tuple[str, str, str], ...], payload: bytes) -> dict[str, Any]:
    found: dict[str, Any] = {}
    at = 0
    for name, code, enumeration in rows:
        if code in ("s", "y"):
            found[name] = decoded(payload[at:]) if code == "s" else payload[at:]
            at = len(payload)
            continue
        form = struct.Struct("=" + ("i" if code == "?" else code))
        if at + form.size > len(payload):
            return {}
        (value,) = form.unpack_from(payload, at)
        found[name] = bool(value) if code == "?" else to_named(enumeration)(value)
        at += form.size
    return found if at == len(payload) else {}


Said = TypeVar("Said", Event, VbiData)


def said_by(notice: Notice) -> Any:
    return Event(notice.id, notice.payload) if notice.kind == EVENT else VbiData(notice.id, notice.payload)


class Stream(Closing, Generic[Said], Iterator[Said]):
    """What comes from now on, one after the other, until the time is over.

    The newest are kept while nobody takes them, as many as the television was made to keep. To be closed, or used in
    a `with`, when no more is wanted; the end of the time closes it, too.
    """

    def __init__(self, hub: Hub, count: Callable[[], int], kind: int, most: int, timeout: float | None):
        self._hub = hub
        self._listener = Listener(kind, most)
        hub.listen(self._listener, count)
        self._end = None if timeout is None else time.monotonic() + timeout

    @property
    def dropped(self) -> int:
        """How many were lost since this began, because they were not taken fast enough."""
        return self._listener.dropped

    def __iter__(self) -> Self:
        return self

    def __next__(self) -> Said:
        said = self._next(self._end)
        if said is not None:
            return said
        self.close()
        if not self._hub.is_open:
            raise LinkLost("events", "the link is gone")
        raise StopIteration

    def take(self, seconds: float) -> Said | None:
        """The next one, or None when none comes within so many seconds; the time of the whole ends nothing here.

        Raises LinkLost when none can come any more.
        """
        said = self._next(time.monotonic() + seconds)
        if said is None and not self._hub.is_open:
            raise LinkLost("events", "the link is gone")
        return said

    def _next(self, end: float | None) -> Said | None:
        notice = self._hub.next(self._listener, end)
        said: Said | None = None if notice is None else said_by(notice)
        return said

    def close(self) -> None:
        """Takes nothing more."""
        self._hub.leave(self._listener)
        self._end = 0.0

    def __repr__(self) -> str:
        return _described(self._listener)


class AsyncStream(Generic[Said], AsyncIterator[Said]):
    """The same for `async for`, in the loop that it is made in."""

    _is_closed = True

    def __init__(self, hub: Hub, count: Callable[[], int], kind: int, most: int, timeout: float | None):
        import asyncio  # It takes as long as the rest of the package, and who needs no loop has no use for it.

        self._loop = asyncio.get_running_loop()
        self._something = asyncio.Event()
        self._hub = hub
        this = weakref.ref(self)
        self._listener = Listener(kind, most, lambda: _wake(this()))
        hub.listen(self._listener, count)
        self._end = None if timeout is None else self._loop.time() + timeout
        # Of its own, so that the loop may know it under this number until the end.
        self._descriptor = os.dup(hub.fileno())
        self._loop.add_reader(self._descriptor, hub.read)
        self._is_closed = False

    def something_came(self) -> None:
        """Wakes who waits; from any thread."""
        if not self._loop.is_closed():
            self._loop.call_soon_threadsafe(self._look)

    def _look(self) -> None:
        if not self._hub.is_open and not self._is_closed:
            # An ended link can always be read.
            self._loop.remove_reader(self._descriptor)
        self._something.set()

    @property
    def dropped(self) -> int:
        """How many were lost since this began, because they were not taken fast enough."""
        return self._listener.dropped

    def __aiter__(self) -> Self:
        return self

    async def __anext__(self) -> Said:
        import asyncio

        while not self._listener.waiting and not self._is_closed:
            if not self._hub.is_open:
                self.close()
                raise LinkLost("events", "the link is gone")
            self._something.clear()
            left = None if self._end is None else self._end - self._loop.time()
            try:
                await asyncio.wait_for(self._something.wait(), left)
            except TimeoutError:
                self.close()
        if not self._listener.waiting:
            raise StopAsyncIteration
        said: Said = said_by(self._listener.waiting.popleft())
        return said

    def close(self) -> None:
        """Takes nothing more."""
        if not self._is_closed:
            self._is_closed = True
            self._hub.leave(self._listener)
            if not self._loop.is_closed():
                self._loop.remove_reader(self._descriptor)
            os.close(self._descriptor)
            self._something.set()

    def __del__(self) -> None:
        if not self._is_closed:
            self.close()

    async def __aenter__(self) -> Self:
        return self

    async def __aexit__(self, *_: object) -> None:
        self.close()

    def __repr__(self) -> str:
        return _described(self._listener)


def _described(listener: Listener) -> str:
    return f"<stream, {len(listener.waiting)} waiting, {listener.dropped} dropped>"


def _wake(stream: AsyncStream[Any] | None) -> None:
    if stream is not None:
        stream.something_came()
