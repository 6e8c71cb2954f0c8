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
from pathlib import Path
from typing import IO, Any

from ._channel import Channel
from ._notices import Hub, Notice
from ._table import FUNCTIONS
from .errors import LinkLost, NoService, Timeout

_START = "import sys; sys.path.insert(0, sys.argv.pop(1)); from kelutv._worker import main; main()"
_PACKAGES = str(Path(__file__).resolve().parents[1])

Messages = int | IO[Any] | None


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
        self._dropped = 0

    def fileno(self) -> int:
        return self._channel.fileno()

    def take(self) -> tuple[list[Notice], int, bool]:
        found: list[Notice] = []
        poll = select.poll()
        poll.register(self._channel, select.POLLIN)
        try:
            while poll.poll(0):
                notices, self._dropped = self._channel.receive()
                found += notices
        except (EOFError, OSError):
            return found, self._dropped, False
        return found, self._dropped, True

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
        return self._ask(FUNCTIONS[index][1], limit, ("call", index, arguments))

    def connect(self, limit: float | None) -> None:
        """Connects; raises NoService."""
        self._ask("connect", limit, ("connect", 0, ()))

    def hub(self, limit: float | None) -> Hub:
        """What hands out the events; raises NoService."""
        self._ask("events", limit, ("notices", self._most_notices, ()))
        worker = self._worker
        if worker is None:
            raise LinkLost("events", "the link is gone")
        if worker.hub is None:
            worker.hub = Hub(WorkerNotices(worker.notices))
        return worker.hub

    def drop(self) -> None:
        """Ends the worker; the next call makes one."""
        with self._lock:
            self._drop()

    def close(self) -> None:
        self._is_closed = True
        self.drop()

    @property
    def is_closed(self) -> bool:
        return self._is_closed

    def _ask(self, name: str, limit: float | None, message: tuple[str, int, tuple[Any, ...]]) -> Any:
        end = None if limit is None else time.monotonic() + limit
        if not self._lock.acquire(timeout=-1 if limit is None else limit):
            raise Timeout(name, f"not begun within {limit:g} s, another call did not return")
        try:
            return self._exchange(name, limit, end, message)
        finally:
            self._lock.release()

    def _exchange(self, name: str, limit: float | None, end: float | None, message: tuple[str, int, tuple[Any, ...]]) -> Any:
        worker = self._living()
        try:
            worker.calls.send(message)
            went_well, outcome = worker.calls.receive(end)
        except TimeoutError:
            self._drop()
            raise Timeout(name, f"no answer within {limit:g} s") from None
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
        if self._is_closed:
            raise ValueError("the television is closed")
        if self._worker is None:
            self._worker = Worker(self._environment, self._messages)
            self._finalizer = weakref.finalize(self, self._worker.forget, self._lock)
        return self._worker

    def _drop(self) -> int:
        """Its exit code."""
        worker, self._worker = self._worker, None
        if worker is None:
            return 0
        self._finalizer.detach()
        return worker.end()


def _ending(code: int) -> str:
    return f"exit code {code}" if code >= 0 else signal.Signals(-code).name
