"""Recordings of what the programs of a test and the television say to each other."""

from __future__ import annotations

import json
import os
import re
import shutil
import subprocess
import tempfile
import time
from collections.abc import Iterator, MutableMapping
from contextlib import contextmanager
from pathlib import Path
from typing import Any

PATIENCE, PAUSE = 10.0, 0.02


class Recording:
    """A file into which the programs that are started meanwhile record."""

    def __init__(self, path: Path) -> None:
        self.path = path
        self._preloaded = _preloaded_library()

    @contextmanager
    def environment(self, environment: MutableMapping[str, str]) -> Iterator[None]:
        """Lets programs record that are started with this environment."""
        before = {name: environment.get(name) for name in ("LD_PRELOAD", "KELUTV_RECORD")}
        preloaded = [*filter(None, [before["LD_PRELOAD"]]), self._preloaded]
        environment.update({"LD_PRELOAD": ":".join(preloaded), "KELUTV_RECORD": str(self.path)})
        try:
            yield
        finally:
            for name, value in before.items():
                if value is None:
                    del environment[name]
                else:
                    environment[name] = value

    def wait(self) -> None:
        """Waits until all that was said is in the file, since the recorder is a process of its own."""
        deadline = time.monotonic() + PATIENCE
        while self.path.exists() and not self._has_ended() and time.monotonic() < deadline:
            time.sleep(PAUSE)

    def _has_ended(self) -> bool:
        lines = self.path.read_bytes().splitlines(keepends=True)
        return bool(lines) and lines[-1].endswith(b"\n") and json.loads(lines[-1]).get("kind") == "end"

    def keep(self, path: Path) -> None:
        """Copies the file."""
        path.parent.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(self.path, path)


def keep_path(folder: Path, test: str) -> Path:
    """Where the recording of a test is kept."""
    return folder.absolute() / f"{re.sub(r'[^A-Za-z0-9_.-]+', '_', test).strip('_')}.jsonl"


def _preloaded_library() -> str:
    """The library that programs are recorded by: what the tool has them load."""
    from kelutv.tool import program

    with tempfile.TemporaryDirectory() as folder:
        environment: dict[str, Any] = {name: value for name, value in os.environ.items() if name != "LD_PRELOAD"}
        found = subprocess.run(
            [program("kelutv"), "--quiet", "record", "-o", f"{folder}/none.jsonl", "--", "printenv", "LD_PRELOAD"],
            env=environment, capture_output=True, text=True, check=True, timeout=PATIENCE)
    return found.stdout.strip()
