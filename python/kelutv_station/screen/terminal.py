"""The terminal of the operator: its own screen, and keys one by one."""

from __future__ import annotations

import os
import select
import sys
import termios
import tty
from contextlib import suppress
from types import TracebackType

ENTER = "\x1b[?1049h\x1b[?25l\x1b[?7l"
LEAVE = "\x1b[?7h\x1b[?25h\x1b[?1049l"
HOME, CLEAR_LINE, CLEAR_REST = "\x1b[H", "\x1b[K", "\x1b[J"


class Terminal:
    """Takes the terminal over while the context lasts, and leaves it as it was."""

    def __init__(self) -> None:
        self._input, self._output = sys.stdin.fileno(), sys.stdout.fileno()
        self._wake_read, self._wake_write = os.pipe2(os.O_NONBLOCK | os.O_CLOEXEC)

    def __enter__(self) -> Terminal:
        self._before = termios.tcgetattr(self._input)
        tty.setcbreak(self._input, termios.TCSANOW)
        modes = termios.tcgetattr(self._input)
        modes[6][termios.VSUSP] = b"\0"  # A station that is stopped would hold up every unit.
        termios.tcsetattr(self._input, termios.TCSANOW, modes)
        self._write(ENTER)
        return self

    def __exit__(self, kind: type[BaseException] | None, error: BaseException | None, trace: TracebackType | None) -> None:
        self._write(LEAVE)
        with suppress(termios.error):
            termios.tcsetattr(self._input, termios.TCSANOW, self._before)
        os.close(self._wake_read)
        os.close(self._wake_write)

    @property
    def size(self) -> tuple[int, int]:
        """Columns and rows."""
        with suppress(OSError):
            return os.get_terminal_size(self._output)
        return 80, 24

    def draw(self, lines: list[str]) -> None:
        """Puts lines onto the screen, from its top."""
        rows = "".join(f"{line}{CLEAR_LINE}\r\n" for line in lines[: self.size[1] - 1])
        self._write(f"{HOME}{rows}{CLEAR_REST}")

    def keys(self, seconds: float) -> list[str]:
        """What has been pressed; waits at most so long for it, or until wake() is called. `q` when the terminal is gone."""
        ready, _, _ = select.select([self._input, self._wake_read], [], [], seconds)
        if self._wake_read in ready:
            os.read(self._wake_read, 4096)
        return keys_of(self._read()) if self._input in ready else []

    def _read(self) -> bytes:
        try:
            return os.read(self._input, 4096)
        except OSError:
            return b""

    def wake(self) -> None:
        """Lets keys() return; from any thread."""
        with suppress(BlockingIOError):
            os.write(self._wake_write, b".")

    def _write(self, text: str) -> None:
        """Nothing is shown on a terminal that is gone; keys() tells of it."""
        data = text.encode(errors="backslashreplace")
        with suppress(OSError):
            while data:
                data = data[os.write(self._output, data) :]


def keys_of(data: bytes) -> list[str]:
    """The characters typed; sequences of function keys are left out, the end of the terminal is `q`."""
    text = data.decode(errors="replace")
    if not text:
        return ["q"]
    return [] if text.startswith("\x1b") else list(text)
