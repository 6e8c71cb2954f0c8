"""The link in this process."""

from __future__ import annotations

import os
import threading
from typing import Any

from ._calls import Call, make_call
from ._foreign import ffi
from ._library import connect, library
from ._notices import Notice
from ._table import FUNCTIONS
from .errors import NoService

_NEEDS_SERVICE = 9


class LocalLink:
    """The one link that a process can have."""

    def __init__(self) -> None:
        self._calls: list[Call | None] = [None] * len(FUNCTIONS)
        self._is_connected = False
        self._descriptor: int | None = None
        self._lock = threading.Lock()

    def call(self, index: int, *arguments: Any) -> Any:
        """Makes the call of a row; raises TelevisionError."""
        made = self._calls[index]
        return made(*arguments) if made is not None else self._first(index)(*arguments)

    def _first(self, index: int) -> Call:
        row = FUNCTIONS[index]
        if row[_NEEDS_SERVICE]:
            self.connect(row[1])
        made = make_call(index)
        self._calls[index] = made
        return made

    def connect(self, what: str) -> None:
        """Connects the process; raises NoService."""
        if self._is_connected:
            return
        reason = connect()
        if reason is not None:
            raise NoService(what, f"there is no television service: {reason}")
        self._is_connected = True

    def begin_notices(self, most: int) -> int:
        """Has what comes in queued; a descriptor that can be read while something waits."""
        self.connect("events")
        with self._lock:
            if self._descriptor is None:
                descriptor = library().kelutv_python_notices_begin(most)
                if descriptor < 0:
                    raise OSError("there is no descriptor left for the queue of events")
                library().kelutv_python_events_begin()
                self._descriptor = descriptor
        return self._descriptor


def take_notice() -> Notice | None:
    """The oldest that waits."""
    head, room = ffi.new("kelutv_python_notice *"), 256
    while True:
        payload = bytearray(room)
        taken = library().kelutv_python_notice_take(head, ffi.from_buffer(payload), room)
        if taken == 0:
            return None
        if taken > 0:
            return Notice(head.number, head.kind, head.id, bytes(payload[: head.length]))
        room = head.length


def notice_count() -> int:
    """How many have come since the queue began."""
    return int(library().kelutv_python_notice_count())


_made: LocalLink | None = None
_place: tuple[str | None, str | None] | None = None


def local_link(environment: dict[str, str]) -> LocalLink:
    """The link of this process; raises ValueError where it belongs to another television."""
    global _made, _place
    wanted = tuple(environment.get(name, os.environ.get(name)) for name in ("KQDROID_RUNTIME_DIR", "KQDROID_BINDER_LEVEL"))
    if _made is None:
        os.environ.update(environment)
        _made, _place = LocalLink(), (wanted[0], wanted[1])
    elif wanted != _place:
        raise ValueError("a process can have one television in itself; leave in_process out for others")
    return _made
