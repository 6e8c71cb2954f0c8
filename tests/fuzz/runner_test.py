"""The table of the fuzz targets against the checkout, and what scripts/fuzz makes of what the engine prints."""

from __future__ import annotations

import subprocess
import sys
import tempfile
import unittest
from dataclasses import replace
from pathlib import Path
from unittest import mock

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "fuzz" / "runner"))

import check  # noqa: E402
import coverage  # noqa: E402
import engine  # noqa: E402
import plants  # noqa: E402
from targets import FuzzError, Plant, read_targets  # noqa: E402

TARGETS = read_targets()
LARGEST_CORPUS = 400_000

# As the engine prints it: two functions of the file, one of another.
PRINTED = f"""\
COVERAGE:
COVERED_FUNC: hits: 4 edges: 3/4 one(int, char) {ROOT}/build/fuzz/../../platform/droid/Parcel.cpp:10
  UNCOVERED_PC: {ROOT}/platform/droid/Parcel.cpp:12
UNCOVERED_FUNC: hits: 0 edges: 0/2 two() {ROOT}/platform/droid/Parcel.cpp:20
  UNCOVERED_PC: {ROOT}/platform/droid/Parcel.cpp:21
  UNCOVERED_PC: {ROOT}/platform/droid/Parcel.cpp:22
COVERED_FUNC: hits: 1 edges: 5/5 three() {ROOT}/platform/droid/Binder.cpp:3
"""


class Table(unittest.TestCase):
    def test_has_a_row_for_every_target(self) -> None:
        self.assertEqual(sorted(TARGETS), sorted(path.stem for path in (ROOT / "fuzz/targets").glob("*.cpp")))

    def test_names_files_that_exist(self) -> None:
        for target in TARGETS.values():
            self.assertEqual(coverage.unmatched_files(target), [], target.name)

    def test_has_a_floor_for_each(self) -> None:
        self.assertEqual([target.name for target in TARGETS.values() if not 10 <= target.floor <= 100], [])


class Corpus(unittest.TestCase):
    def test_is_there_for_each_target_and_small(self) -> None:
        sizes = []
        for target in TARGETS.values():
            files = [path.stat().st_size for path in target.corpus.iterdir()]
            self.assertTrue(files, target.name)
            self.assertLessEqual(max(files), target.longest, target.name)
            sizes += files
        self.assertLess(sum(sizes), LARGEST_CORPUS)

    def test_names_given_by_people_stay(self) -> None:
        self.assertTrue(engine.is_made(Path("0123456789abcdef")))
        self.assertFalse(engine.is_made(Path("line-of-a-tab")))


class Plants(unittest.TestCase):
    def test_each_stands_once_in_its_source(self) -> None:
        for target in TARGETS.values():
            text = plants.planted(target)
            self.assertIn(target.plant.wrong, text)

    def test_one_that_does_not_fit_is_named(self) -> None:
        parcel = TARGETS["parcel"]
        lost = replace(parcel, plant=Plant(parcel.plant.file, "what nobody wrote", "anything"))
        with self.assertRaisesRegex(FuzzError, "^parcel: 'what nobody wrote' stands 0 times in platform/droid/Parcel.cpp"):
            plants.planted(lost)


class Floor(unittest.TestCase):
    def reach(self, floor: int) -> str:
        target = replace(TARGETS["parcel"], files=("platform/droid/Parcel.cpp",), floor=floor)
        done = subprocess.CompletedProcess([], 0, PRINTED)
        with tempfile.TemporaryDirectory() as folder, mock.patch.object(engine, "WORK", Path(folder)):
            with mock.patch.object(coverage.subprocess, "run", return_value=done):
                return check.reach(target)

    def test_counts_the_edges_of_the_files_that_the_target_names(self) -> None:
        self.assertEqual(self.reach(50), "3 of 6 edges, 50.0 %, at least 50 %")

    def test_names_the_lines_that_are_missed(self) -> None:
        with self.assertRaises(FuzzError) as raised:
            self.reach(51)
        self.assertIn("platform/droid/Parcel.cpp: lines 12, 21-22", str(raised.exception))


if __name__ == "__main__":
    unittest.main()
