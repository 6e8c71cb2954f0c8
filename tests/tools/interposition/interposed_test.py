#!/usr/bin/env python3
"""The tool and the trace library go before those functions of other libraries that the README of their room names.

    interposed_test.py NM PROGRAM TRACE-LIBRARY LIBRARY...
"""

from __future__ import annotations

import re
import subprocess
import sys
import unittest
from pathlib import Path

TOOLS = Path(__file__).resolve().parents[3] / "tools"
ROOM = TOOLS / "interposition"
LOOKUP = re.compile(r"\b(?:dlsym|RTLD_NEXT)\b")

NM, PROGRAM, TRACE_LIBRARY, *LIBRARIES = sys.argv[1:]


def functions(file: str) -> set[str]:
    """The functions that a program or library exports, without their parameters; inline ones are weak and no matter."""
    command = [NM, "--dynamic", "--defined-only", "--demangle", "--format=posix", file]
    output = subprocess.run(command, check=True, capture_output=True, text=True).stdout
    symbols = (re.fullmatch(r"(.+?) T(?: [0-9a-f]+){1,2} *", line) for line in output.splitlines())
    return {symbol[1].split("(")[0] for symbol in symbols if symbol}


def described() -> dict[str, str]:
    """The functions of the README's table, and the sources that define them."""
    rows = re.findall(r"^\| `([\w:]+)` \|[^|]+\| `([\w.]+)` \|", (ROOM / "README.md").read_text(encoding="utf-8"), re.M)
    return dict(rows)


class Interposed(unittest.TestCase):
    def setUp(self) -> None:
        self.others = set().union(*(functions(library) for library in LIBRARIES))

    def test_the_tool_goes_before_what_the_readme_names(self) -> None:
        of_tool = {name for name, source in described().items() if source != "Notices.cpp"}
        self.assertEqual(functions(PROGRAM) & self.others, of_tool)

    def test_the_trace_library_goes_before_what_the_tap_defines(self) -> None:
        tapped = {name for name, source in described().items() if source in ("Tap.cpp", "Notices.cpp")}
        self.assertEqual(functions(TRACE_LIBRARY) & self.others, tapped)

    def test_only_the_room_looks_for_the_next_definition(self) -> None:
        sources = [path for path in TOOLS.rglob("*") if path.suffix in (".h", ".cpp")]
        users = {path for path in sources if LOOKUP.search(path.read_text(encoding="utf-8"))}
        self.assertEqual({path.parent for path in users}, {ROOM})


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
