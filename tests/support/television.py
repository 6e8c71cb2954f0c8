"""A simulated television, or a service of another name, for tests in Python, in a runtime directory of its own."""

from __future__ import annotations

import os
import signal
import subprocess
import tempfile
from pathlib import Path

PATIENCE = 20
# What a shell may have set for the tool, the client library and the platform.
SETTINGS = ("KELUTV_", "KQDROID_", "KQLOG_")


def own_environment() -> dict[str, str]:
    """The environment without settings of the programs under test, but for the emulator that runs them."""
    return {
        name: value
        for name, value in os.environ.items()
        if name == "KELUTV_EMULATOR" or not name.startswith(SETTINGS)
    }


class Television:
    """Runs the simulator, or another service, while the context lasts."""

    def __init__(self, simulator: str, *options: str) -> None:
        self._ready = f"{Path(simulator).name}: ready (TVBaseService)\n"
        self._command = [*os.environ.get("KELUTV_EMULATOR", "").split(), simulator, *options]

    def __enter__(self) -> Television:
        self._folder = tempfile.TemporaryDirectory()
        self.environment = {**own_environment(), "KQDROID_RUNTIME_DIR": str(Path(self._folder.name) / "runtime")}
        self._process = subprocess.Popen(self._command, env=self.environment, stdout=subprocess.PIPE, text=True)
        if self._process.stdout.readline() != self._ready:
            self.__exit__()
            raise RuntimeError(f"{self._command[-1]} did not get ready")
        return self

    def __exit__(self, *_: object) -> None:
        self.end()
        self._folder.cleanup()

    def end(self) -> int:
        """Switches it off; does nothing when it is off. Returns its exit code."""
        self._process.send_signal(signal.SIGTERM)
        self._process.wait(PATIENCE)
        self._process.stdout.close()
        return self._process.returncode
