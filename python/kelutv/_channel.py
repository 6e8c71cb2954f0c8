"""Messages between a process and its worker."""

from __future__ import annotations

import pickle
import select
import socket
import struct
import time
from typing import Any

_HEAD = struct.Struct("=I")
# The system counts in milliseconds and not beyond some weeks.
_MOST_SECONDS = 86_400.0


def is_readable(what: int | socket.socket, end: float | None) -> bool:
    """Waits until something can be read; whether it can before the time is over, which None never is."""
    poll = select.poll()
    poll.register(what, select.POLLIN)
    while True:
        left = None if end is None else max(0.0, end - time.monotonic())
        if poll.poll(None if left is None else min(left, _MOST_SECONDS) * 1000):
            return True
        if left is not None and left <= _MOST_SECONDS:
            return False


class Channel:
    """One end of a pair of sockets that takes and gives objects, one at a time."""

    def __init__(self, end: socket.socket):
        self._end = end

    def send(self, message: Any) -> None:
        """Raises OSError when the other end is gone."""
        data = pickle.dumps(message, pickle.HIGHEST_PROTOCOL)
        self._end.sendall(_HEAD.pack(len(data)) + data)

    def receive(self, end: float | None = None) -> Any:
        """The next message; raises EOFError when the other end is gone, TimeoutError when there is none in time."""
        (length,) = _HEAD.unpack(self._bytes(_HEAD.size, end))
        return pickle.loads(self._bytes(length, end))

    def _bytes(self, count: int, end: float | None) -> bytes:
        data = bytearray()
        while len(data) < count:
            if end is not None and not is_readable(self._end, end):
                raise TimeoutError("no answer in time")
            try:
                part = self._end.recv(count - len(data))
            except ConnectionError:
                part = b""
            if not part:
                raise EOFError("the other end is gone")
            data += part
        return bytes(data)

    def fileno(self) -> int:
        return self._end.fileno()

    def close(self) -> None:
        self._end.close()
