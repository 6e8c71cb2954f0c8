"""The console blocks of the pages: what stands there is what the programs show, with the file of the first other block."""

from __future__ import annotations

import difflib
import os
import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path


from kelutv_station.program import parser

from televisions import ROOT, TracedTelevision

from docs.console import Shell, steps_of  # noqa: E402

FILE = re.compile("^```(?:toml|python)\n(.*?)^```$", re.M | re.S)
MANUAL = ROOT / "python" / "distribution" / "kelutv-station.1"
PROGRAMS = ("KELUTV_TOOL", "KELUTV_SIMULATOR")


class Pages(unittest.TestCase):
    def assert_shows(self, page: str, file: str) -> None:
        text = (ROOT / "docs" / page).read_text(encoding="utf-8")
        steps = steps_of(text)
        self.assertTrue(steps)
        with TracedTelevision() as television, tempfile.TemporaryDirectory() as folder:
            (Path(folder) / file).write_text(FILE.search(text)[1], encoding="utf-8")
            with Shell(Path(folder), self.environment(television, folder)) as shell:
                for step in steps:
                    output = shell.show(step)
                    lines = difflib.unified_diff(step.expected, output.splitlines(), "the page", "the programs", lineterm="")
                    self.assertTrue(step.shows(output), f"{page}: $ {step.command}\n" + "\n".join(lines))

    def environment(self, television: TracedTelevision, folder: str) -> dict[str, str]:
        """Where the programs are those of the build, and python3 the interpreter of the test."""
        programs = Path(self.enterContext(tempfile.TemporaryDirectory()))
        (programs / "kelutv-station").write_text(f'#!/bin/sh\nexec {sys.executable} -m kelutv_station "$@"\n', encoding="utf-8")
        (programs / "kelutv-station").chmod(0o755)
        (programs / "python3").symlink_to(sys.executable)
        places = [str(programs), *(str(Path(os.environ[name]).parent) for name in PROGRAMS), os.environ["PATH"]]
        own = {name: os.environ[name] for name in (*PROGRAMS, "PYTHONPATH")}
        return {
            **television.environment, **own, "HOME": folder, "LC_ALL": "C.UTF-8", "PATH": os.pathsep.join(places),
            "PYTEST_ADDOPTS": f"--basetemp={folder}/pytest -p no:cacheprovider"}

    def test_of_the_station_show_what_it_does(self) -> None:
        self.assert_shows("station.md", "audio.toml")

    def test_of_the_plugin_show_what_it_does(self) -> None:
        self.assert_shows("pytest.md", "test_volume.py")


class Manuals(unittest.TestCase):
    """The manual page names every option, and can be read."""

    def test_say_what_the_help_says(self) -> None:
        text = MANUAL.read_text(encoding="utf-8")
        options = {name for action in parser()._actions for name in action.option_strings}
        named = set(re.findall(r"Fl (-?[a-z-]+)", "\n".join(re.findall("^[.]It Fl .*$", text, re.M))))
        self.assertEqual({f"-{name}" for name in named}, options)

    def test_can_be_read(self) -> None:
        found = subprocess.run(["mandoc", "-T", "lint", "-W", "warning", str(MANUAL)], capture_output=True, text=True)
        self.assertEqual((found.returncode, found.stdout), (0, ""))


if __name__ == "__main__":
    unittest.main()
