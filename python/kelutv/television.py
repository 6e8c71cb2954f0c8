"""A television and its functions."""

from __future__ import annotations

import os
import threading
from collections.abc import Callable
from functools import partial
from pathlib import Path
from typing import Any

from ._calls import index_of
from ._closing import Closing
from ._local import LocalLink, local_link, notice_count, take_notice
from ._modules import Modules
from ._notices import EVENT, VBI_DATA, Hub, Notice
from ._remote import Messages, RemoteLink, limit_of_beginning
from .events import AsyncStream, Event, Stream, VbiData

__all__ = [
    "LEVELS",
    "Limited",
    "Television",
]

LEVELS = (28, 29, 30)
_MOST_EVENTS = 1024


class _LocalNotices:
    """The notices of this process."""

    def __init__(self, descriptor: int):
        self._descriptor = descriptor

    def fileno(self) -> int:
        return self._descriptor

    def take(self) -> tuple[list[Notice], bool]:
        found: list[Notice] = []
        while (notice := take_notice()) is not None:
            found.append(notice)
        return found, True

    def close(self) -> None:
        """The queue lives as long as the process."""


_local_hub: Hub | None = None
_local_hub_lock = threading.Lock()


def _hub_of(link: LocalLink, most: int) -> Hub:
    global _local_hub
    with _local_hub_lock:
        descriptor = link.begin_notices(most)
        if _local_hub is None:
            _local_hub = Hub(_LocalNotices(descriptor))
        return _local_hub


class Limited(Modules):
    """The functions of a television, each within a time of its own."""

    def __init__(self, name: str, seconds: float, call: Callable[..., Any]):
        self._name = name
        self._seconds = seconds
        self._call = call

    def __repr__(self) -> str:
        return f"<{self._name} within {self._seconds:g} s>"


class Television(Modules, Closing):
    """A television, with its functions as `tv.audio.set_volume(...)` and so on.

    A worker process holds the link and makes the calls, one after the other, so that a call can be given up; it is made
    with the first call, and anew with the first call after a loss or a time that was over. With `in_process` this process
    holds it: calls cost microseconds and threads call side by side, yet none can be given up, a lost link stays
    lost, and there is one such television in a process.

    runtime_dir: Where its service is found, as `KQDROID_RUNTIME_DIR` says; where nothing is said, as for any program.
    level: The form of requests, 28, 29 or 30, as `KQDROID_BINDER_LEVEL` says.
    timeout: Seconds after which a call is given up, beside those of making a worker; None waits for as long as it takes.
    in_process: Whether this process holds the link.
    messages: Where the library's messages on standard error go, as for `subprocess`: None with those of this process.
    most_events: How many events are kept while nobody takes them.
    """

    def __init__(
        self,
        runtime_dir: str | os.PathLike[str] | None = None,
        level: int | None = None,
        timeout: float | None = None,
        in_process: bool = False,
        messages: Messages = None,
        most_events: int = _MOST_EVENTS,
    ):
        if level is not None and level not in LEVELS:
            raise ValueError(f"level is {level}, one of {', '.join(map(str, LEVELS))} is allowed")
        if timeout is not None:
            _require_above_0("timeout", timeout)
        if in_process and (timeout is not None or messages is not None):
            raise ValueError("in_process goes without timeout and messages: a call of this process cannot be given up")
        if most_events < 1:
            raise ValueError(f"most_events is {most_events}, at least 1 is allowed")
        self.runtime_dir = Path(runtime_dir) if runtime_dir is not None else None
        self.level = level
        self.timeout = timeout
        self._most_events = most_events
        environment = _environment(self.runtime_dir, level)
        self._local = local_link(environment) if in_process else None
        self._remote = None if in_process else RemoteLink(environment, messages, most_events)
        if self._remote is not None:
            self._call = partial(self._remote.call, timeout)
        elif self._local is not None:
            self._call = self._local.call

    def call(self, function: str, *arguments: Any, timeout: float | None = None) -> Any:
        """Calls a function by its name: `linux_tv_Audio_setVolume`, `Audio::setInputVolume`, `audio.set_volume`.

        timeout: Seconds for this call, instead of the television's.
        """
        index = index_of(function)
        return self._call(index, *arguments) if timeout is None else self.within(timeout)._call(index, *arguments)

    def within(self, seconds: float) -> Limited:
        """The same functions with another time limit: `tv.within(2).audio.set_volume(...)`."""
        if self._remote is None:
            raise ValueError("a call of this process cannot be given up: leave in_process out")
        _require_above_0("seconds", seconds)
        return Limited(repr(self), seconds, partial(self._remote.call, seconds))

    def connect(self, timeout: float | None = None) -> None:
        """Connects now instead of with the first call; raises NoService.

        timeout: Seconds for it, making a worker included; 20, or the television's if that is longer, where nothing is said.
        """
        if timeout is not None:
            _require_above_0("timeout", timeout)
        if self._remote is not None:
            self._remote.connect(limit_of_beginning(self.timeout) if timeout is None else timeout)
        elif timeout is not None:
            raise ValueError("a link of this process cannot be given up: leave timeout out")
        elif self._local is not None:
            self._local.connect("connect")

    def reconnect(self) -> None:
        """Connects anew, by a new worker; calls and streams of events of the old one end with LinkLost."""
        if self._remote is None:
            raise ValueError("the link of a process is made once: leave in_process out")
        self._remote.drop()
        self.connect()

    def _hub(self) -> Hub:
        if self._local is not None:
            return _hub_of(self._local, self._most_events)
        assert self._remote is not None
        return self._remote.hub(self.timeout)

    def _notice_count(self) -> int:
        return notice_count() if self._remote is None else self._remote.notice_count(self.timeout)

    def events(self, timeout: float | None = None) -> Stream[Event]:
        """The events that come from now on, for so many seconds altogether, or for ever."""
        return Stream(self._hub(), self._notice_count, EVENT, self._most_events, timeout)

    def events_async(self, timeout: float | None = None) -> AsyncStream[Event]:
        """The same for `async for`."""
        return AsyncStream(self._hub(), self._notice_count, EVENT, self._most_events, timeout)

    def vbi_data(self, timeout: float | None = None) -> Stream[VbiData]:
        """The blocks that are handed to the data callback from now on, for so many seconds altogether, or for ever."""
        return Stream(self._hub(), self._notice_count, VBI_DATA, self._most_events, timeout)

    def close(self) -> None:
        """Ends the worker and the call that it makes; a link of this process stays. Calls raise ValueError afterwards."""
        if self._remote is not None:
            self._remote.close()

    def __repr__(self) -> str:
        place = f" in {self.runtime_dir}" if self.runtime_dir else ""
        held = "in this process" if self._local is not None else "by a worker"
        closed = ", closed" if self._remote is not None and self._remote.is_closed else ""
        return f"<Television{place} {held}{closed}>"


def _require_above_0(name: str, seconds: float) -> None:
    if not seconds > 0:
        raise ValueError(f"{name} is {seconds}, more than 0 is allowed")


def _environment(runtime_dir: Path | None, level: int | None) -> dict[str, str]:
    found = {}
    if runtime_dir is not None:
        found["KQDROID_RUNTIME_DIR"] = str(runtime_dir.absolute())
    if level is not None:
        found["KQDROID_BINDER_LEVEL"] = str(level)
    return found
