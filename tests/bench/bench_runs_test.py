"""kelutv-bench in its quick form: every measurement gives the figures that the tables show. bench_runs_test.py PROGRAM"""

from __future__ import annotations

import os
import subprocess
import sys
import tempfile
import unittest
from collections.abc import Iterator
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent.parent / "bench" / "runner"))

from figures import Figures, read_lines  # noqa: E402
from tables import PARTS  # noqa: E402

PROGRAM = sys.argv[1]
PATIENCE = 100
# Made by scripts/bench in a virtual machine.
ELSEWHERE = {"instructions"}
# The only ones that may be nothing or, as differences, less.
FREE = ("threads_per_client", "memory_kib_per_client", "loader_part_us")


def leaves(figures: Figures, path: str = "") -> Iterator[tuple[str, float]]:
    for name, value in figures.items():
        if isinstance(value, dict):
            yield from leaves(value, f"{path}/{name}")
        else:
            yield f"{path}/{name}", value


def run(*arguments: str, **settings: str) -> subprocess.CompletedProcess[str]:
    environment = os.environ | {"KQDROID_TRANSPORT": "sockets"} | settings
    command = [PROGRAM, *arguments]
    return subprocess.run(command, env=environment, capture_output=True, text=True, timeout=PATIENCE, check=False)


class BenchRuns(unittest.TestCase):
    def test_every_measurement_gives_what_its_table_shows(self) -> None:
        done = run("--quick")
        self.assertEqual(done.returncode, 0, done.stderr)
        figures = read_lines(done.stdout.splitlines())
        self.assertEqual(figures.keys(), PARTS.keys() - ELSEWHERE)
        for name, part in figures.items():
            self.assertTrue(PARTS[name](part).startswith(("|", "A c")), name)
        for path, value in leaves(figures):
            if not path.endswith(FREE):
                self.assertGreater(value, 0, path)

    def test_what_is_named_alone_is_measured(self) -> None:
        done = run("--quick", "first_answer")
        self.assertEqual(read_lines(done.stdout.splitlines()).keys(), {"first_answer"}, done.stderr)

    def test_an_unknown_measurement(self) -> None:
        done = run("--quick", "calls", "speed")
        self.assertEqual((done.returncode, done.stdout), (2, ""))
        names = "calls, threads, clients, replies, events, idle, first_answer, recorded_calls"
        self.assertEqual(done.stderr, f"kelutv-bench: 'speed' is no measurement; they are {names}\n")

    def test_a_measurement_that_fails(self) -> None:
        # A folder whose path is too long for sockets.
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        folder = Path(temporary.name) / ("x" * 100)
        folder.mkdir()
        done = run("--quick", "events", "idle", TMPDIR=str(folder))
        self.assertEqual(done.returncode, 1)
        self.assertIn("kelutv-bench: events has failed", done.stderr)
        self.assertNotIn("idle", done.stdout)
        self.assertEqual(list(folder.iterdir()), [])

    def test_a_signal_ends_a_measurement_with_all_that_it_made(self) -> None:
        with tempfile.TemporaryDirectory() as folder:
            environment = os.environ | {"TMPDIR": folder}
            pipes = {"stdout": subprocess.PIPE, "stderr": subprocess.PIPE}
            with subprocess.Popen([PROGRAM, "events"], env=environment, text=True, **pipes) as bench:
                assert bench.stdout is not None
                self.assertTrue(bench.stdout.readline().startswith("events/all_fast/1/"))
                bench.terminate()
                # The ends of its pipes close with its last process.
                _, errors = bench.communicate(timeout=PATIENCE)
            self.assertEqual(bench.returncode, 1)
            self.assertIn("kelutv-bench: events has failed\n", errors)
            self.assertEqual(os.listdir(folder), [])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
