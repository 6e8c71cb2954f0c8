"""Finds the package that was built, before the tests import it; and one simulator for all cases of a program."""

from __future__ import annotations

import os
import subprocess
import sys
import unittest
from pathlib import Path

HERE = Path(__file__).resolve().parent
PACKAGE = os.environ["KELUTV_PYTHON"]
sys.path[:0] = [PACKAGE, str(HERE), str(HERE.parent)]
sys.dont_write_bytecode = True

import kelutv  # noqa: E402
from support.television import own_environment  # noqa: E402

PATIENCE = 20.0
LONG = os.environ.get("KELUTV_TORTURE") == "long"
PATIENCE_WITH_PROGRAMS = PATIENCE * (30 if LONG else 3)
QUIET = subprocess.DEVNULL
SPEAKER = kelutv.enums.KELU_TV_AUDIO_CHANNEL_E.SPEAKER


def child_environment(**more: str) -> dict[str, str]:
    """The environment of a Python program that uses the package."""
    programs = {name: os.environ[name] for name in ("KELUTV_TOOL", "KELUTV_SIMULATOR")}
    return own_environment() | programs | {"PYTHONPATH": PACKAGE, "PYTHONDONTWRITEBYTECODE": "1"} | more


def run_python(code: str, *arguments: str, runtime_dir: object = "", options: tuple[str, ...] = ()) -> subprocess.CompletedProcess[str]:
    """Runs a program in Python against the service of a runtime directory."""
    return subprocess.run(
        [sys.executable, "-B", *options, "-c", code, *arguments],
        env=child_environment(KQDROID_RUNTIME_DIR=str(runtime_dir)), capture_output=True, text=True,
        timeout=PATIENCE_WITH_PROGRAMS, check=False,
    )


class WithTelevision(unittest.TestCase):
    """Has a simulator and a television, both the same for all cases of the class."""

    simulator: kelutv.Simulator
    tv: kelutv.Television

    @classmethod
    def setUpClass(cls) -> None:
        cls.simulator = kelutv.Simulator(messages=QUIET)
        cls.addClassCleanup(cls.simulator.close)
        cls.tv = cls.simulator.television(timeout=PATIENCE, messages=QUIET)
        cls.addClassCleanup(cls.tv.close)

    def tearDown(self) -> None:
        if self.simulator.is_running:
            self.simulator.clear_faults()
