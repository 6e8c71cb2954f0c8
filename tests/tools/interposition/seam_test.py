#!/usr/bin/env python3
"""Library, tool and trace library need of the platform what docs/reference/platform.md lists, and nothing else.

    seam_test.py NM PROGRAM... -- PLATFORM-LIBRARY...
"""

from __future__ import annotations

import re
import subprocess
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[3]
PAGE = ROOT / "docs" / "reference" / "platform.md"
# What is built over any platform.
ROOMS = ("client", "tools", "wire", "cli")
PLATFORM_HEADER = re.compile(r"^#include <((?:android|binder|keluem|kqcommon|kqlog|utils)/[^>]+)>", re.M)
# The tables and thunks of a class come with deriving from it.
OF_A_CLASS = re.compile(r"^(?:(?:vtable|VTT|typeinfo(?: name)?) for|(?:non-)?virtual thunk to) ")

NM, *FILES = sys.argv[1:]
PROGRAMS, PLATFORM = FILES[: FILES.index("--")], FILES[FILES.index("--") + 1 :]


def symbols(file: str, *options: str) -> dict[str, str]:
    """The dynamic symbols of a program or library, as they are linked and as they are read."""
    columns = []
    for form in ("--no-demangle", "--demangle"):
        command = [NM, "--dynamic", "--format=posix", form, *options, file]
        output = subprocess.run(command, check=True, capture_output=True, text=True).stdout
        columns.append([re.sub(r" [A-Za-z][ 0-9a-f]*$", "", line) for line in output.splitlines()])
    return dict(zip(*columns, strict=True))


def rows() -> list[tuple[str, str]]:
    """The headers and the names of each row of the page's first table."""
    table = PAGE.read_text(encoding="utf-8").split("\n## ", 1)[0]
    return re.findall(r"^\| (.*?`[a-z]+/\w+\.h`.*?) \| (.*?) \|", table, re.M)


def words(cell: str) -> list[str]:
    return re.findall(r"`([^`]+)`", cell)


class Names:
    """The names that the page allows."""

    def __init__(self) -> None:
        self.names = {name for _, cell in rows() for name in words(cell)}
        # `Class`: `member`, ... says which; a class that stands alone is meant as a whole.
        self.with_members = {name for _, cell in rows() for name in re.findall(r"`(\w+)`(?: \([^)]*\))?: ", cell)}

    def allow(self, symbol: str) -> bool:
        name = OF_A_CLASS.sub("", symbol).split("(")[0]
        scopes = [scope for scope in name.split("::") if scope != "android"]
        if OF_A_CLASS.match(symbol):
            return scopes[0] in self.names
        if len(scopes) == 1 or scopes[0] not in self.with_members:
            return scopes[0] in self.names
        is_structor = scopes[-1].lstrip("~") == scopes[-2]
        return scopes[0] in self.names and (is_structor or all(scope in self.names for scope in scopes[1:]))


class Seam(unittest.TestCase):
    def test_the_page_is_read(self) -> None:
        names = Names()
        self.assertIn("transact", names.names)
        self.assertLessEqual({"Parcel", "IBinder", "IInterface"}, names.with_members)
        for allowed in ("android::Parcel::Parcel()", "android::Parcel::readInt32(int*) const", "vtable for android::RefBase"):
            self.assertTrue(names.allow(allowed), allowed)
        for refused in ("android::Parcel::readInplace(unsigned long) const", "android::ProcessState::self()", "keluem::now()"):
            self.assertFalse(names.allow(refused), refused)

    def test_every_symbol_is_on_the_page(self) -> None:
        names = Names()
        of_platform = {symbol for library in PLATFORM for symbol in symbols(library, "--defined-only")}
        for program in PROGRAMS:
            needed = {read for symbol, read in symbols(program, "--undefined-only").items() if symbol in of_platform}
            # The trace library needs nothing at all where what it uses is inline.
            self.assertTrue(needed or program.endswith("libkelutvtrace.so"), program)
            self.assertEqual({symbol for symbol in needed if not names.allow(symbol)}, set(), program)

    def test_every_header_is_on_the_page(self) -> None:
        listed = {header for cell, _ in rows() for header in words(cell)}
        for room in ROOMS:
            for path in (ROOT / room).rglob("*"):
                if path.suffix in (".h", ".cpp") and path.parent != ROOT / "client" / "android":
                    included = set(PLATFORM_HEADER.findall(path.read_text(encoding="utf-8")))
                    self.assertEqual(included - listed, set(), path.relative_to(ROOT))

    def test_nothing_of_the_simulator_is_needed_but_for_its_command(self) -> None:
        pattern = re.compile(r'^#include "(?:simulator|platform)/', re.M)
        users = {
            str(path.relative_to(ROOT))
            for room in ROOMS
            for path in (ROOT / room).rglob("*")
            if path.suffix in (".h", ".cpp") and pattern.search(path.read_text(encoding="utf-8"))
        }
        self.assertEqual(users, {"tools/kelutv/commands/sim_command.cpp", "tools/kelutv/sim/SimDocument.cpp",
                                 "tools/kelutv/sim/SimWords.cpp"})


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
