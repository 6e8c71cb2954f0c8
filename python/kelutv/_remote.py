"""A link in a worker process, made anew when it is needed."""

from __future__ import annotations

import os
import select
import signal
import socket
import subprocess
import sys
import threading
import time
import weakref
from collections.abc import Iterator
from contextlib import contextmanager
from pathlib import Path
from typing import IO, Any

from ._channel import Channel
from ._notices import Hub, Notice
from ._table import FUNCTIONS
from .errors import LinkLost, NoService, Timeout

_START = "import sys; sys.path.insert(0, sys.argv.pop(1)); from kelutv._worker import main; main()"
_PACKAGES = str(Path(__file__).resolve().parents[1])
_NEEDS_SERVICE = 9
_BEGIN_SECONDS = 20.0

Messages = int | IO[Any] | None
Message = tuple[str, int, tuple[Any, ...]]


class Worker:
    """A worker process with its two channels."""

    def __init__(self, environment: dict[str, str], messages: Messages):
        calls, their_calls = socket.socketpair()
        notices, their_notices = socket.socketpair()
        with their_calls, their_notices:
            ends = (their_calls.fileno(), their_notices.fileno())
            self.process = subprocess.Popen(
                [sys.executable, "-P", "-c", _START, _PACKAGES, *map(str, ends)],
                stdin=subprocess.DEVNULL,
                stdout=subprocess.DEVNULL,
                stderr=messages,
                env=os.environ | environment,
                pass_fds=ends,
                # What a terminal sends is for the program, which may want to finish its calls.
                start_new_session=True,
            )
        self.calls = Channel(calls)
        self.notices = Channel(notices)
        self.hub: Hub | None = None
        self.is_loaded = False
        self.is_connected = False

    def forget(self, lock: threading.Lock) -> None:
        """Ends the process unless a thread uses it, which then stays in its call to the end of this one.

        The worker ends by itself when nobody is at the other end any more.
        """
        is_free = lock.acquire(blocking=False)
        if is_free and (self.hub is None or self.hub.is_free()):
            self.end()

    def end(self) -> int:
        """Ends the process, whatever it does; its exit code."""
        self.process.kill()
        code = self.process.wait()
        self.calls.close()
        if self.hub is None:
            self.notices.close()
        else:
            self.hub.close()
        return code


class WorkerNotices:
    """The notices that a worker sends on."""

    def __init__(self, channel: Channel):
        self._channel = channel

    def fileno(self) -> int:
        return self._channel.fileno()

    def take(self) -> tuple[list[Notice], bool]:
        found: list[Notice] = []
        poll = select.poll()
        poll.register(self._channel, select.POLLIN)
        try:
            while poll.poll(0):
                found += self._channel.receive()
        except (EOFError, OSError):
            return found, False
        return found, True

    def close(self) -> None:
        self._channel.close()


class RemoteLink:
    """Calls by a worker, one after the other, each within a limit if there is one."""

    def __init__(self, environment: dict[str, str], messages: Messages, most_notices: int):
        self._environment = environment
        self._messages = messages
        self._most_notices = most_notices
        self._lock = threading.Lock()
        self._worker: Worker | None = None
        self._finalizer = weakref.finalize(self, lambda: None)
        self._is_closed = False

    def call(self, limit: float | None, index: int, *arguments: Any) -> Any:
        """Makes the call of a row; raises TelevisionError."""
        row = FUNCTIONS[index]
        with self._turn(row[1], limit) as left:
            return self._ask(row[1], left, ("call", index, arguments), bool(row[_NEEDS_SERVICE]))

    def connect(self, limit: float | None) -> None:
        """Connects, making a worker included; raises NoService."""
        with self._turn("connect", limit) as left:
            self._begin(self._living(), "connect", left, needs_service=True)

    def hub(self, limit: float | None) -> Hub:
        """What hands out the events; raises NoService."""
        with self._turn("events", limit) as left:
            self._ask("events", left, ("notices", self._most_notices, ()))
            worker = self._living()
            if worker.hub is None:
                worker.hub = Hub(WorkerNotices(worker.notices))
            return worker.hub

    def notice_count(self, limit: float | None) -> int:
        """How many events and blocks of data have come to the worker; raises TelevisionError."""
        with self._turn("events", limit) as left:
            return int(self._ask("events", left, ("count", 0, ())))

    def drop(self) -> None:
        """Ends the worker, also in a call, which fails; the next call makes one."""
        worker = self._worker
        if worker is not None:
            worker.process.kill()
        with self._lock:
            if self._worker is worker or self._is_closed:
                self._drop()

    def close(self) -> None:
        self._is_closed = True
        self.drop()

    @property
    def is_closed(self) -> bool:
        return self._is_closed

    @contextmanager
    def _turn(self, name: str, limit: float | None) -> Iterator[float | None]:
        """Waits for other calls; what is left of the limit."""
        begin = time.monotonic()
        if not self._lock.acquire(timeout=-1 if limit is None else min(limit, threading.TIMEOUT_MAX)):
            raise Timeout(name, f"not begun within {limit:g} s, another call did not return")
        try:
            yield None if limit is None else limit - (time.monotonic() - begin)
        finally:
            self._lock.release()

    def _ask(self, name: str, limit: float | None, message: Message, needs_service: bool = True) -> Any:
        """The outcome of a message; what the worker needs for it has a limit of its own."""
        worker = self._living()
        self._begin(worker, name, limit_of_beginning(limit), needs_service)
        return self._exchange(worker, name, limit, message)

    def _begin(self, worker: Worker, name: str, limit: float | None, needs_service: bool) -> None:
        if needs_service and not worker.is_connected:
            self._exchange(worker, name, limit, ("connect", 0, (name,)))
            worker.is_connected = worker.is_loaded = True
        elif not worker.is_loaded:
            self._exchange(worker, name, limit, ("load", 0, ()))
            worker.is_loaded = True

    def _exchange(self, worker: Worker, name: str, limit: float | None, message: Message) -> Any:
        end = None if limit is None else time.monotonic() + limit
        try:
            worker.calls.send(message)
            went_well, outcome = worker.calls.receive(end)
        except TimeoutError:
            self._drop()
            raise Timeout(name, f"no answer within {round(limit or 0, 3):g} s") from None
        except (EOFError, OSError):
            raise LinkLost(name, f"the process that held the link ended ({_ending(self._drop())})") from None
        except BaseException:
            # The answer may still come and must not be taken for that of another call.
            self._drop()
            raise
        if went_well:
            return outcome
        if isinstance(outcome, (LinkLost, NoService)):
            self._drop()
        raise outcome

    def _living(self) -> Worker:
        worker = self._worker
        if worker is None and not self._is_closed:
            self._worker = worker = Worker(self._environment, self._messages)
            self._finalizer = weakref.finalize(self, worker.forget, self._lock)
        # Looked at last, since who closes looks at the worker after having said so.
        if worker is None or self._is_closed:
            raise ValueError("the television is closed")
        return worker

    def _drop(self) -> int:
        """Its exit code."""
        worker, self._worker = self._worker, None
        if worker is None:
            return 0
        self._finalizer.detach()
        return worker.end()


def limit_of_beginning(limit: float | None) -> float | None:
    """How long making a worker and connecting it may take, where a call may take so long."""
    return None if limit is None else max(limit, _BEGIN_SECONDS)


def _ending(code: int) -> str:
    return f"exit code {code}" if code >= 0 else signal.Signals(-code).name
