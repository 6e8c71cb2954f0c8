"""What all modules of functions have in common."""

from __future__ import annotations

from collections.abc import Callable
from typing import Any


class Module:
    """The functions of one module, bound to a television."""

    __slots__ = ("_call",)

    def __init__(self, call: Callable[..., Any]):
        self._call = call

    def __repr__(self) -> str:
        return f"<functions of the module {type(self).__name__.lower()}>"
