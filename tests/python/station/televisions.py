"""Simulated televisions whose requests are counted, and the station as a program."""

from __future__ import annotations

import json
import os
import subprocess
import sys
import threading
from pathlib import Path
from typing import Any

ROOT = Path(__file__).resolve().parents[3]
sys.path.insert(0, str(ROOT / "tests"))

from jsonschema import Draft202012Validator  # noqa: E402
from support.television import PATIENCE, Television  # noqa: E402

SCHEMA = Draft202012Validator(
    json.loads((ROOT / "python" / "distribution" / "kelutv-station.schema.json").read_text(encoding="utf-8")))

STATION = [sys.executable, "-m", "kelutv_station"]


class TracedTelevision(Television):
    """A simulated television that remembers the requests it was sent."""

    def __init__(self, *options: str) -> None:
        super().__init__(os.environ["KELUTV_SIMULATOR"], "--trace", *options)
        self._lines: list[str] = []
        self._changed = threading.Condition()

    def __enter__(self) -> TracedTelevision:
        super().__enter__()
        self._reader = threading.Thread(target=self._read)
        self._reader.start()
        return self

    def _read(self) -> None:
        for line in self._process.stdout:
            with self._changed:
                self._lines.append(line)
                self._changed.notify_all()

    def end(self) -> None:
        self._process.terminate()
        self._process.wait(PATIENCE)
        if hasattr(self, "_reader"):
            self._reader.join(PATIENCE)
        self._process.stdout.close()

    @property
    def runtime_dir(self) -> str:
        """Where its service is found."""
        return self.environment["KQDROID_RUNTIME_DIR"]

    def meet(self, request: str) -> None:
        """Waits until it is sent such a request."""
        with self._changed:
            if not self._changed.wait_for(lambda: self.count(request), PATIENCE):
                raise AssertionError(f"no {request} came")

    def count(self, request: str) -> int:
        """How often it was sent a request with this in its line; up to now, or in all once it has ended."""
        return sum(request in line and " meets fault " not in line for line in self._lines)


class Run:
    """A run of the station in a folder: its plan, its program and what came of it."""

    def __init__(self, folder: Path, plan: str, televisions: dict[str, TracedTelevision]) -> None:
        self.folder = folder
        (folder / "line.py").write_text(plan, encoding="utf-8")
        self.units = [word for serial, each in televisions.items() for word in ("--unit", f"{serial}={each.runtime_dir}")]

    def start(self, *options: str) -> subprocess.Popen[str]:
        """The program, under way."""
        return subprocess.Popen(
            [*STATION, "line.py", *self.units, *options], cwd=self.folder, stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
            start_new_session=True)

    def go(self, *options: str) -> tuple[int, str]:
        """Runs the program to its end; its exit code and what it printed."""
        process = self.start(*options)
        output, _ = process.communicate(timeout=PATIENCE)
        return process.returncode, output

    @property
    def journal(self) -> Path:
        """Where its journal is."""
        return self.folder / "line.run" / "journal.jsonl"

    def results(self) -> list[dict[str, Any]]:
        """What results.jsonl has of steps; all of it is as the schema says."""
        lines = (self.folder / "line.run" / "results.jsonl").read_text(encoding="utf-8").splitlines()
        documents = [json.loads(line, parse_constant=not_json) for line in lines]
        for document in documents:
            SCHEMA.validate(document)
        return [document for document in documents if "step" in document]


def not_json(constant: str) -> None:
    """What Python reads, and others do not."""
    raise AssertionError(f"{constant} is no JSON")
