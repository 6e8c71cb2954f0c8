"""The console blocks of the pages about the tool: what stands there is what the programs show.

Each page runs in an empty folder, against a television that has just been switched on. The form of the blocks is that of
console.py. With --update the pages get what the programs show where that is something else.
"""

from __future__ import annotations

import difflib
import os
import re
import subprocess
import sys
import tempfile
import unittest
from collections.abc import Iterator
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests"))

from docs.console import Shell, Step, steps_of  # noqa: E402
from support.television import Television, own_environment  # noqa: E402

PAGES = [
    ROOT / "docs" / name for name in ("tool.md", "tool-daily.md", "recording.md", "compliance.md", "service.md")
]
KELUTV, SIMULATOR = os.environ["KELUTV_TOOL"], os.environ["KELUTV_SIMULATOR"]
PROGRAMS = [str(Path(KELUTV).parent), str(Path(SIMULATOR).parent), os.environ["KELUTV_EXAMPLES"]]
NAMED_COMMAND = re.compile(r"\bkelutv (?:-\S+ )*([a-z][a-z-]*)")


def steps_on(page: Path) -> list[Step]:
    return steps_of(page.read_text(encoding="utf-8"))


def shown(page: Path) -> Iterator[tuple[Step, str]]:
    """The steps of a page, each with what the programs show."""
    with Television(SIMULATOR) as television, tempfile.TemporaryDirectory() as folder:
        environment = {
            **television.environment,
            "HOME": folder,
            "LC_ALL": "C.UTF-8",
            "PATH": os.pathsep.join([*PROGRAMS, os.environ["PATH"]]),
            # Programs that are traced load a library before that of a sanitizer.
            "ASAN_OPTIONS": "verify_asan_link_order=0",
        }
        with Shell(Path(folder), environment) as shell:
            for step in steps_on(page):
                yield step, shell.show(step)


def difference(step: Step, output: str) -> str:
    lines = difflib.unified_diff(step.expected, output.splitlines(), "the page", "the programs", lineterm="", n=99)
    return f"$ {step.command}\n" + "\n".join(lines)


def update(page: Path) -> None:
    wrong = [(step, output) for step, output in shown(page) if not step.shows(output)]
    lines = page.read_text(encoding="utf-8").splitlines()
    for step, output in reversed(wrong):
        lines[step.lines] = output.splitlines()
    page.write_text("\n".join(lines) + "\n", encoding="utf-8")


class ConsoleBlocks(unittest.TestCase):
    def test_show_what_the_programs_show(self) -> None:
        for page in PAGES:
            for step, output in shown(page):
                with self.subTest(page=page.name, line=step.line):
                    self.assertTrue(step.shows(output), difference(step, output))

    def test_show_every_command(self) -> None:
        at_work = {name for page in PAGES for step in steps_on(page) for name in NAMED_COMMAND.findall(step.command)}
        help_text = subprocess.run([KELUTV, "help"], env=own_environment(), check=True, capture_output=True, text=True).stdout
        commands = re.findall(r"^  ([a-z-]+) ", help_text.partition("Subcommands:\n")[2].partition("Exit codes:")[0], re.M)
        self.assertIn("get", commands)
        self.assertEqual([name for name in commands if name not in at_work], [], "commands that no page shows at work")


if __name__ == "__main__":
    if sys.argv[1:] == ["--update"]:
        for name in PAGES:
            update(name)
    else:
        unittest.main()
