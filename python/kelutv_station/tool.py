"""The command-line tool, which knows the interface and compares snapshots."""

from __future__ import annotations

import json
import os
import subprocess
from collections.abc import Mapping, Sequence
from dataclasses import dataclass
from typing import Any

PATIENCE = 60.0


class ToolError(Exception):
    """What the tool complains of."""


@dataclass(frozen=True)
class Answer:
    """The documents that the tool printed, and its exit code."""

    documents: list[Any]
    code: int


class Tool:
    """Runs `kelutv`, or the program that KELUTV_TOOL names."""

    def __init__(self, program: str | None = None) -> None:
        self.program = program or os.environ.get("KELUTV_TOOL") or "kelutv"

    def run(
        self, *words: str, environment: Mapping[str, str] | None = None, patience: float = PATIENCE,
        allowed: Sequence[int] = (0,)
    ) -> Answer:
        """Runs a command with --json, out of reach of the terminal's Ctrl-C.

        Raises ToolError when there is no tool, it complains, ends with an exit code that is not allowed, or not in time.
        """
        command = [self.program, "--json", *words]
        try:
            ended = subprocess.run(
                command, env={**os.environ, **(environment or {})}, stdin=subprocess.DEVNULL, capture_output=True,
                text=True, errors="replace", timeout=patience, check=False,
                start_new_session=True)
        except OSError as error:
            raise cannot_run(self.program, error) from error
        except subprocess.TimeoutExpired as error:
            raise ToolError(f"{self.program} {words[0]} has not ended after {patience:g} s") from error
        complaint = _complaint(ended.stderr)
        if complaint is not None:
            raise ToolError(complaint)
        if ended.returncode < 0:
            raise ToolError(f"{self.program} {words[0]} was ended by signal {-ended.returncode}")
        if ended.returncode not in allowed:
            raise ToolError(f"{self.program} {words[0]}: exit code {ended.returncode}: {ended.stderr.strip()[-500:]}")
        return Answer(_documents(ended.stdout.splitlines()), ended.returncode)


def cannot_run(program: str, error: OSError) -> ToolError:
    """What is said when a program cannot be started."""
    return ToolError(f"cannot run {program}: {error.strerror}")


def _documents(lines: Sequence[str]) -> list[Any]:
    try:
        return [json.loads(line) for line in lines if line.strip()]
    except ValueError as error:
        raise ToolError(f"the tool's answer cannot be read: {error}") from error


def _complaint(errors: str) -> str | None:
    for line in errors.splitlines():
        if line.startswith('{"error":'):
            return str(json.loads(line)["error"]["message"])
    return None
