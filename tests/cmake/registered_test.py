"""Every test that stands in the tree is built and registered: one that is in no program cannot fail."""

from __future__ import annotations

import json
import re
import subprocess
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
# Built by tests of the installed library, in trees of their own.
ELSEWHERE = ROOT / "tests" / "cmake" / "consumer"
BUILD, CTEST = Path(sys.argv.pop(1)), sys.argv.pop(1)
# Of the optimised build, which has benchmarks.
OPTIMISED = [ROOT / "tests" / place for place in ("bench/bench_runs_test.py", "docs/tutorial_test.py", "python/station", "python/plugin")]
INCLUDED = re.compile(r'^#include "(.+)"$', re.M)
NAMED = re.compile(r'"(\w+_test)"')


def sources_of(path: Path) -> set[Path]:
    """The source itself, or those that it joins."""
    if path.parent.name not in ("Unity", "joined"):
        return {path}
    return {Path(each).resolve() for each in INCLUDED.findall(path.read_text(encoding="utf-8"))}


def run_by(path: Path) -> set[Path]:
    """The program itself, and those that it runs in one process."""
    names = NAMED.findall(path.read_text(encoding="utf-8")) if path.name == "all_tests.py" else []
    return {path, *(path.parent / f"{name}.py" for name in names)}


def unmentioned(paths: list[Path], known: set[Path]) -> list[str]:
    return [str(path.relative_to(ROOT)) for path in sorted(paths) if path not in known]


class Registered(unittest.TestCase):
    def test_every_source_is_compiled(self) -> None:
        commands = json.loads((BUILD / "compile_commands.json").read_text(encoding="utf-8"))
        compiled = set().union(*(sources_of((Path(entry["directory"]) / entry["file"]).resolve()) for entry in commands))
        sources = [path for kind in ("*.c", "*.cpp") for path in (ROOT / "tests").rglob(kind)]
        self.assertEqual(unmentioned([path for path in sources if ELSEWHERE not in path.parents], compiled), [])

    def test_every_program_in_python_is_a_test(self) -> None:
        listing = subprocess.run(
            [CTEST, "--test-dir", BUILD, "-C", "torture", "--show-only=json-v1"], check=True, capture_output=True, text=True
        )
        words = (word for test in json.loads(listing.stdout)["tests"] for word in test.get("command", []))
        registered = set().union(*(run_by(Path(word).resolve()) for word in words if word.endswith(".py")))
        has_benchmarks = "KELUTV_BUILD_BENCH:BOOL=ON" in (BUILD / "CMakeCache.txt").read_text(encoding="utf-8")
        without = [] if has_benchmarks else OPTIMISED
        programs = [path for path in (ROOT / "tests").rglob("*_test.py") if not {path, *path.parents} & set(without)]
        self.assertEqual(unmentioned(programs, registered), [])


if __name__ == "__main__":
    unittest.main()
