"""The client library and the shim, as the process has opened them."""

from __future__ import annotations

import threading
from functools import cache
from pathlib import Path
from typing import Any

from ._foreign import ffi

SHIM = Path(__file__).with_name("_shim.so")
_TEXT = 4096
# More than any answer can bring: a transaction has at most 1 MiB.
MOST_BYTES = 1 << 20


class Here(threading.local):
    """What each thread has of its own.

    summary: What became of its requests, see the shim.
    """

    def __init__(self) -> None:
        self.summary: Any = library().kelutv_python_summary()
        self._buffers: list[tuple[bytearray, Any]] = []

    def buffer(self, index: int) -> tuple[bytearray, Any]:
        """One of several that are large enough for any answer, with its address."""
        while index >= len(self._buffers):
            made = bytearray(MOST_BYTES)
            self._buffers.append((made, ffi.from_buffer(made)))
        return self._buffers[index]


@cache
def library() -> Any:
    """Everything that can be called, C functions and the shim."""
    return ffi.dlopen(str(SHIM))


@cache
def here() -> Here:
    return Here()


@cache
def places() -> dict[str, int]:
    """Where the fields of records stand, and how long records are, in bytes."""
    lib = library()
    first, count = lib.kelutv_python_places(), lib.kelutv_python_place_count()
    return {ffi.string(first[i].name).decode(): first[i].bytes for i in range(count)}


def connect() -> str | None:
    """Connects the process to the service; why it is not connected, or nothing."""
    text = ffi.new("char[]", _TEXT)
    if library().kelutv_python_connect(text, _TEXT):
        return None
    return ffi.string(text).decode("utf-8", "replace") or "nothing says why"


def failure(is_value: bool) -> tuple[int, int, str]:
    """What was wrong with the requests of this thread: the kind as the shim numbers it, the number, the words."""
    number, text = ffi.new("int32_t *"), ffi.new("char[]", _TEXT)
    kind = library().kelutv_python_failure(is_value, number, text, _TEXT)
    return kind, number[0], ffi.string(text).decode("utf-8", "replace")


def listed() -> list[str]:
    """The texts of the list that this thread was given last."""
    size = ffi.new("unsigned int *")
    first = library().kelutv_python_list(size)
    texts = bytes(ffi.buffer(first, size[0])).split(b"\0")[:-1]
    return [text.decode("utf-8", "surrogateescape") for text in texts]
