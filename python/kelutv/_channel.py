"""Messages between a process and its worker."""

from __future__ import annotations

import pickle
import select
import socket
import struct
import time
from typing import Any

_HEAD = struct.Struct("=I")


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
            self._wait(end)
            try:
                part = self._end.recv(count - len(data))
            except ConnectionError:
                part = b""
            if not part:
                raise EOFError("the other end is gone")
            data += part
        return bytes(data)

    def _wait(self, end: float | None) -> None:
        if end is None:
            return
        poll = select.poll()
        poll.register(self._end, select.POLLIN)
        if not poll.poll(max(0.0, (end - time.monotonic()) * 1000)):
            raise TimeoutError("no answer in time")

    def fileno(self) -> int:
        return self._end.fileno()

    def close(self) -> None:
        self._end.close()
