"""The process that holds a link for another: it can be given up when a call does not return."""

from __future__ import annotations

import os
import select
import socket
import sys
import threading
from typing import Any

from ._channel import Channel
from ._library import library
from ._local import LocalLink, notice_count, take_notice
from ._notices import Notice

_MOST_AT_ONCE = 64


class Worker:
    def __init__(self, calls: Channel, notices: Channel):
        self._calls = calls
        self._notices = notices
        self._link = LocalLink()
        self._watch = threading.Thread(target=self._watch_parent, name="kelutv-worker", daemon=True)
        self._added, self._adding = os.pipe()
        self._queue: int | None = None

    def run(self) -> None:
        """Carries out what comes until the other end is gone."""
        self._watch.start()
        while True:
            try:
                what, index, arguments = self._calls.receive()
                self._calls.send(self._outcome(what, index, arguments))
            except (EOFError, OSError):
                return

    def _outcome(self, what: str, index: int, arguments: tuple[Any, ...]) -> tuple[bool, Any]:
        try:
            return True, self._carry_out(what, index, arguments)
        except Exception as error:  # whatever it is, it is the caller's
            return False, error

    def _carry_out(self, what: str, index: int, arguments: tuple[Any, ...]) -> Any:
        if what == "call":
            return self._link.call(index, *arguments)
        if what == "connect":
            return self._link.connect(*arguments)
        if what == "load":
            library()
            return None
        if what == "count":
            return notice_count()
        self._queue = self._link.begin_notices(index)
        os.write(self._adding, b"\0")
        return None

    def _watch_parent(self) -> None:
        """Sends notices on; ends the process with the other one, also while a call does not return."""
        poll = select.poll()
        poll.register(self._notices, select.POLLIN)
        poll.register(self._added, select.POLLIN)
        while True:
            ready = {descriptor for descriptor, _ in poll.poll()}
            if self._notices.fileno() in ready:
                os._exit(0)
            if self._added in ready:
                os.read(self._added, 1)
                poll.register(self._queue or 0, select.POLLIN)
            if self._queue in ready:
                self._send_notices()

    def _send_notices(self) -> None:
        notices: list[Notice] = []
        while len(notices) < _MOST_AT_ONCE and (notice := take_notice()) is not None:
            notices.append(notice)
        try:
            self._notices.send(notices)
        except OSError:
            os._exit(0)


def main() -> None:
    calls, notices = (Channel(socket.socket(fileno=int(descriptor))) for descriptor in sys.argv[1:3])
    Worker(calls, notices).run()
    # Threads of the runtime may be in the middle of something; nothing here is left to be put in order.
    os._exit(0)
