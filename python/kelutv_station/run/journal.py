"""The journal of a run: what was begun and what came of it, written before it is done.

A line of JSON text each: first what run it is, then of each step of each unit that it begins and how it ended. A step that
must not be repeated begins only when its line is on the disk.
"""

from __future__ import annotations

import errno
import fcntl
import hashlib
import json
import os
import threading
from collections.abc import Iterator
from dataclasses import dataclass, field
from pathlib import Path
from typing import Any

from kelutv_station.plan.plan import Plan
from kelutv_station.run.results import Result, result_of

FORMAT = "kelutv station journal 1"


class JournalError(Exception):
    """A journal cannot be begun, read or written."""


@dataclass
class History:
    """What a journal tells of one unit: results by step, the attempts of each, and the step that has not ended."""

    results: dict[str, Result] = field(default_factory=dict)
    attempts: dict[str, int] = field(default_factory=dict)
    open: str | None = None

    def begin(self, step: str, behind: list[str]) -> None:
        """A step begins: what came of it and of those behind it before counts no longer."""
        self.attempts[step] = self.attempts.get(step, 0) + 1
        self.open = step
        for name in (step, *behind):
            self.results.pop(name, None)

    def end(self, result: Result) -> None:
        """A step has ended."""
        self.open = None
        self.results[result.step] = result


def digest_of(plan: Plan) -> str:
    """The same for plans that do the same with the same units."""
    return hashlib.sha256(repr((plan.title, plan.steps, plan.units, plan.allow, plan.timeout)).encode()).hexdigest()


class Journal:
    """A journal that is open for one station alone."""

    def __init__(self, path: Path, plan: Plan, *, resume: bool) -> None:
        """Begins the journal, or goes on with one of the same plan and units. Raises JournalError."""
        self._path, self._plan = path, plan
        self._names = [step.name for step in plan.steps]
        self._lock = threading.Lock()
        self.histories = {unit.serial: History() for unit in plan.units}
        if resume and not path.exists():
            raise JournalError(f"{path}: there is no run to go on with; without --resume one begins")
        self._descriptor = _open(path)
        try:
            self._prepare(resume)
        except BaseException:
            self.close()
            raise

    def close(self) -> None:
        """Ends writing; the file stays."""
        os.close(self._descriptor)

    def _prepare(self, resume: bool) -> None:
        lines = list(self._whole_lines())
        if not lines:
            self._append({"format": FORMAT, "title": self._plan.title, "plan": digest_of(self._plan)}, durable=True)
            _bring_to_disk(self._path.parent)
            return
        self._require_same_run(lines[0])
        if not resume:
            raise JournalError(f"{self._path} has a run already; --resume goes on with it, --output takes another folder")
        for line in lines[1:]:
            self._recall(line)

    def _require_same_run(self, head: dict[str, Any]) -> None:
        if head.get("format") != FORMAT:
            raise JournalError(f"{self._path}: is no journal of this station ({FORMAT})")
        if head.get("plan") != digest_of(self._plan):
            raise JournalError(
                f"{self._path} has a run of another plan or with other units; --output takes another folder for this one")

    def _whole_lines(self) -> Iterator[dict[str, Any]]:
        """The lines; what a crash left of a last one is cut off."""
        content = self._path.read_bytes()
        whole = content[: content.rfind(b"\n") + 1]
        os.ftruncate(self._descriptor, len(whole))
        for number, line in enumerate(whole.splitlines(), 1):
            try:
                document = json.loads(line)
            except ValueError as error:
                raise JournalError(f"{self._path}:{number}: is no line of a journal: {error}") from error
            if not isinstance(document, dict):
                raise JournalError(f"{self._path}:{number}: is no line of a journal")
            yield document

    def _recall(self, line: dict[str, Any]) -> None:
        try:
            history = self.histories[line["unit"]]
            if "result" in line:
                history.end(result_of(line["result"]))
            else:
                history.begin(line["begun"], self._behind(line["begun"]))
        except (KeyError, TypeError, ValueError) as error:
            raise JournalError(f"{self._path}: a line is no line of a journal: {line}") from error

    def _behind(self, step: str) -> list[str]:
        return self._names[self._names.index(step) + 1 :]

    def begin(self, unit: str, step: str, *, durable: bool) -> int:
        """Says that a step begins; a durable line is on the disk then. Gives the number of the attempt, from 1."""
        self._append({"unit": unit, "begun": step}, durable)
        history = self.histories[unit]
        history.begin(step, self._behind(step))
        return history.attempts[step]

    def end(self, result: Result, *, durable: bool) -> None:
        """Says how a step ended."""
        self._append({"unit": result.unit, "result": result.document()}, durable)
        self.histories[result.unit].end(result)

    def _append(self, line: dict[str, Any], durable: bool) -> None:
        data = f"{json.dumps(line)}\n".encode()
        try:
            with self._lock:
                self._write(data)
            if durable:
                os.fsync(self._descriptor)
        except OSError as error:
            raise JournalError(f"{self._path}: {error.strerror}") from error

    def _write(self, data: bytes) -> None:
        """Writes all of it or nothing."""
        size = os.fstat(self._descriptor).st_size
        if os.write(self._descriptor, data) != len(data):
            os.ftruncate(self._descriptor, size)
            raise OSError(errno.ENOSPC, os.strerror(errno.ENOSPC))


def _open(path: Path) -> int:
    try:
        _make_folder(path.parent)
        descriptor = os.open(path, os.O_RDWR | os.O_CREAT | os.O_APPEND | os.O_CLOEXEC, 0o644)
    except OSError as error:
        raise JournalError(f"{path}: {error.strerror}") from error
    try:
        fcntl.flock(descriptor, fcntl.LOCK_EX | fcntl.LOCK_NB)
    except OSError as error:
        os.close(descriptor)
        raise JournalError(f"{path}: another station is at work on this run") from error
    return descriptor


def _make_folder(folder: Path) -> None:
    """Makes a folder, and those above it, on the disk."""
    if not folder.is_dir():
        _make_folder(folder.parent)
        folder.mkdir(exist_ok=True)
        _bring_to_disk(folder.parent)


def _bring_to_disk(folder: Path) -> None:
    descriptor = os.open(folder, os.O_RDONLY | os.O_DIRECTORY)
    try:
        os.fsync(descriptor)
    finally:
        os.close(descriptor)
