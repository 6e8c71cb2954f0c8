"""The command-line tool: recordings, snapshots and whatever else it does."""

from __future__ import annotations

import json
import os
import shutil
import subprocess
from collections.abc import Sequence
from pathlib import Path
from typing import Any

from .errors import ToolError

__all__ = [
    "PROGRAMS",
    "Tool",
    "program",
]

PROGRAMS = {"kelutv": "KELUTV_TOOL", "kelutv-simulator": "KELUTV_SIMULATOR"}


def program(name: str) -> str:
    """Where a program is: as its environment variable says, or as a shell would find it."""
    found = os.environ.get(PROGRAMS[name]) or shutil.which(name)
    if found is None:
        raise FileNotFoundError(f"there is no {name}: install it, or name it in {PROGRAMS[name]}")
    return found


class Tool:
    """Commands of the tool, for the television of a runtime directory.

    runtime_dir: As for Television.
    timeout: Seconds after which a command is given up; None waits for as long as it takes.
    """

    def __init__(self, runtime_dir: str | os.PathLike[str] | None = None, timeout: float | None = None):
        self.runtime_dir = None if runtime_dir is None else Path(runtime_dir).absolute()
        self.timeout = timeout

    def run(self, *words: str, allowed: Sequence[int] = (0,)) -> str:
        """What a command prints; raises ToolError for an exit code that is not allowed."""
        done = self._run(words)
        if done.returncode not in allowed:
            raise _error_of(words, done)
        return done.stdout

    def _run(self, words: tuple[str, ...]) -> subprocess.CompletedProcess[str]:
        environment = dict(os.environ)
        if self.runtime_dir is not None:
            environment["KQDROID_RUNTIME_DIR"] = str(self.runtime_dir)
        return subprocess.run(
            [program("kelutv"), *words], stdin=subprocess.DEVNULL, capture_output=True, text=True, env=environment,
            timeout=self.timeout, check=False,
        )

    def documents(self, *words: str, allowed: Sequence[int] = (0,)) -> list[Any]:
        """The documents that a command prints with --json."""
        return [json.loads(line) for line in self.run(*words, "--json", allowed=allowed).splitlines() if line]

    def snapshot(self, path: str | os.PathLike[str]) -> None:
        """Puts every readable state of the television into a file."""
        self.run("snapshot", "-o", os.fspath(path))

    def snapshot_difference(self, before: str | os.PathLike[str], after: str | os.PathLike[str]) -> Any:
        """What differs between two snapshots, as `kelutv snapshot diff --json` has it."""
        return self.documents("snapshot", "diff", os.fspath(before), os.fspath(after), allowed=(0, 1))

    def compliance(self, report: str | os.PathLike[str], *words: str) -> bool:
        """Judges the service by the checks that the words choose, all without any; whether nothing failed.

        report: The file that says what became of each check.
        """
        command = ("compliance", "-o", os.fspath(report), *words)
        done = self._run(command)
        if done.returncode not in (0, 1):
            raise _error_of(command, done)
        return done.returncode == 0

    def record(self, path: str | os.PathLike[str], *command: str) -> str:
        """Runs a program and records what it sends; what it printed."""
        return self.run("record", "-o", os.fspath(path), "--", *command)

    def __repr__(self) -> str:
        return f"<Tool{f' for {self.runtime_dir}' if self.runtime_dir else ''}>"


def _error_of(words: tuple[str, ...], done: subprocess.CompletedProcess[str]) -> ToolError:
    return ToolError(words, done.returncode, done.stderr.strip() or done.stdout.strip())
