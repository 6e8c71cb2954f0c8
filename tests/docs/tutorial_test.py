"""The tutorial, carried out as it stands: its files are written, its commands run in one shell and show what the page says.

    tutorial_test.py HOME LIBDIR [HEADING]

HOME is the home directory of whoever follows the page, with the installed programs and archives that it asks for, and
LIBDIR where the libraries lie among them, which builds that are not packed have in another place than the page says. With
a heading the page ends before it.
"""

from __future__ import annotations

import os
import re
import select
import signal
import sys
import tempfile
import time
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests"))

from docs.console import PATIENCE, Shell, Step, steps_of  # noqa: E402

PAGE = ROOT / "docs" / "tutorial.md"
FILE = re.compile(r"^`(?P<name>[\w.-]+)`:\n\n```(?:c|cmake)\n(?P<text>.*?)^```$", re.M | re.S)
HOME = Path(sys.argv.pop(1)).resolve()
LIBDIR = sys.argv.pop(1)
END = f"\n## {sys.argv.pop(1)}\n" if len(sys.argv) > 1 else None


class Terminal(Shell):
    """A shell that waits for what its programs in the background are to show."""

    def __exit__(self, *reason: object) -> None:
        os.killpg(self._bash.pid, signal.SIGKILL)
        super().__exit__(*reason)

    def show(self, step: Step) -> str:
        mark = f"{self._mark}\n"
        self._bash.stdin.write(f"{{ {step.command}\n}} </dev/null\necho {mark}".encode())
        self._bash.stdin.flush()
        output, deadline = "", time.monotonic() + PATIENCE
        while mark not in output or not step.shows(output.replace(mark, "")):
            if not select.select([self._bash.stdout], [], [], max(deadline - time.monotonic(), 0))[0]:
                break
            output += os.read(self._bash.stdout.fileno(), 65536).decode(errors="replace")
        return output.replace(mark, "")


def files_of(page: str) -> list[Step]:
    """The files of a page, each as the step that writes it."""
    return [
        Step(page.count("\n", 0, found.start()) + 1, f"cat >{found['name']} <<'END OF FILE'\n{found['text']}END OF FILE")
        for found in FILE.finditer(page)
    ]


class Tutorial(unittest.TestCase):
    def test_runs_as_it_stands(self) -> None:
        page = PAGE.read_text(encoding="utf-8").replace("/kelutv/lib/x86_64-linux-gnu", f"/kelutv/{LIBDIR}")
        if END is not None:
            page, found, _ = page.partition(END)
            self.assertTrue(found, f"the page has no heading{END}")
        files = files_of(page)
        self.assertEqual(
            page.count("\n```") // 2, page.count("\n```console\n") + len(files), "a block is neither commands nor a file"
        )
        environment = {**os.environ, "HOME": str(HOME), "LC_ALL": "C.UTF-8", "KQDROID_TRANSPORT": "sockets"}
        with tempfile.TemporaryDirectory() as folder, tempfile.TemporaryDirectory() as runtime:
            environment["KQDROID_RUNTIME_DIR"] = runtime
            with Terminal(Path(folder), environment) as terminal:
                for step in sorted(steps_of(page) + files, key=lambda step: step.line):
                    output = terminal.show(step)
                    self.assertTrue(step.shows(output), f"line {step.line}: $ {step.command}\n{output}")


if __name__ == "__main__":
    unittest.main()
