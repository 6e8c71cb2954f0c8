"""Printing what nobody may be there to read."""

from __future__ import annotations

import os
from typing import TextIO


def say(text: str, stream: TextIO) -> None:
    """Prints a line, unless the reader is gone; then, and from then on, nothing is printed there.

    Characters that the stream cannot hold are printed by their numbers.
    """
    encoding = stream.encoding or "utf-8"
    try:
        print(text.encode(encoding, "backslashreplace").decode(encoding), file=stream, flush=True)
    except OSError:
        nowhere = os.open(os.devnull, os.O_WRONLY)
        os.dup2(nowhere, stream.fileno())
        os.close(nowhere)
