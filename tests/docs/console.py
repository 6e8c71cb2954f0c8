"""The console blocks of a page, and a shell that runs them.

A block is what stands between "```console" and "```". A line that begins with "$ " is a command, lines behind it that begin
with "> " go on with it, and the lines up to the next command are what a terminal shows then. "..." stands for any text of a
line, and a line of "..." alone for any lines. A comment "<!-- meanwhile: COMMAND -->" before a block names what happens in
another shell as soon as the first such line of its first command is there that is not "..." alone.
"""

from __future__ import annotations

import codecs
import os
import re
import secrets
import select
import signal
import subprocess
import time
from collections.abc import Iterator
from dataclasses import dataclass, field
from pathlib import Path

PATIENCE = 20
BLOCK = re.compile(r"(?:^<!-- meanwhile: (?P<meanwhile>[^\n]+) -->\n+)?^```console\n(?P<lines>.*?)^```$", re.M | re.S)


@dataclass
class Step:
    """One command, and what it shows."""

    line: int
    command: str
    expected: list[str] = field(default_factory=list)
    meanwhile: str | None = None

    @property
    def lines(self) -> slice:
        """Where its expected lines are in the lines of the page."""
        first = self.line + self.command.count("\n")
        return slice(first, first + len(self.expected))

    def shows(self, output: str) -> bool:
        return re.fullmatch("".join(map(pattern_of, self.expected)), output) is not None

    def has_begun(self, output: str) -> bool:
        first = next((line for line in self.expected if line != "..."), "")
        return re.search(f"^{pattern_of(first)}", output, re.M) is not None


def pattern_of(line: str) -> str:
    return r"(?:.*\n)*?" if line == "..." else ".*".join(re.escape(part) for part in line.split("...")) + r"\n"


def steps_of_block(lines: list[str], first: int, meanwhile: str | None) -> Iterator[Step]:
    step = None
    for number, line in enumerate(lines, first):
        if line.startswith("$ "):
            if step:
                yield step
            step, meanwhile = Step(number, line[2:], meanwhile=meanwhile), None
        elif step is None:
            raise ValueError(f"line {number}: a console block begins with a command, '$ COMMAND'")
        elif line.startswith("> ") and not step.expected:
            step.command += f"\n{line[2:]}"
        else:
            step.expected.append(line)
    if step:
        yield step


def steps_of(page: str) -> list[Step]:
    """The steps of all blocks of a page, in order. Raises ValueError for a block that does not begin with a command."""
    steps: list[Step] = []
    for block in BLOCK.finditer(page):
        first = page.count("\n", 0, block.start("lines")) + 1
        steps += steps_of_block(block["lines"].splitlines(), first, block["meanwhile"])
    return steps


class Shell:
    """One bash, from the first step to the last, so that a step finds what those before it have left."""

    def __init__(self, folder: Path, environment: dict[str, str]) -> None:
        self._mark = secrets.token_hex(16)
        self._others = {"cwd": folder, "env": environment}
        self._bash = subprocess.Popen(
            ["bash", "--norc", "--noprofile"], stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
            start_new_session=True, **self._others)

    def __enter__(self) -> Shell:
        return self

    def __exit__(self, failure: type | None, *_: object) -> None:
        if failure:
            os.killpg(self._bash.pid, signal.SIGKILL)  # What it runs may not end.
        self._bash.stdin.close()
        self._bash.stdout.close()
        self._bash.wait(PATIENCE)

    def show(self, step: Step) -> str:
        """What a terminal shows of a step. Raises TimeoutError when it does not end."""
        self._bash.stdin.write(f"{{ {step.command}\n}} </dev/null\nprintf '\\n%s\\n' {self._mark}\n".encode())
        self._bash.stdin.flush()
        end = f"\n{self._mark}\n"
        output, meanwhile = "", step.meanwhile
        for piece in self._pieces():
            output += piece
            if output.endswith(end):
                break
            if meanwhile and step.has_begun(output):
                self._do(meanwhile)
                meanwhile = None
        return output.removesuffix(end)

    def _do(self, command: str) -> None:
        subprocess.run(["bash", "-c", command], check=True, timeout=PATIENCE, stdout=subprocess.DEVNULL, **self._others)

    def _pieces(self) -> Iterator[str]:
        """What is shown, as it comes."""
        decoder, deadline = codecs.getincrementaldecoder("utf-8")("replace"), time.monotonic() + PATIENCE
        while True:
            if not select.select([self._bash.stdout], [], [], max(deadline - time.monotonic(), 0))[0]:
                raise TimeoutError(f"no end after {PATIENCE} s")
            piece = os.read(self._bash.stdout.fileno(), 65536)
            if not piece:
                raise EOFError("the shell has ended")
            yield decoder.decode(piece)
