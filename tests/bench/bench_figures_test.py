"""That the pages show the figures that are kept in docs/speed.json, and what scripts/bench makes of lines and options."""

from __future__ import annotations

import json
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent
sys.path.insert(0, str(ROOT / "bench" / "runner"))

import figures  # noqa: E402
import instructions  # noqa: E402
import picture  # noqa: E402
import tables  # noqa: E402

COMPUTER = {
    "processor": "Z80",
    "cores": 2,
    "memory_gib": 4,
    "virtual": False,
    "system": "Debian GNU/Linux 12",
    "kernel": "6.1.0",
}
LINES = [
    "calls/same_core/bare/p50_us 4",
    "calls/same_core/bare/ratio_to_bare 1",
    "calls/same_core/set_volume/p50_us 4.2",
    "calls/same_core/set_volume/ratio_to_bare 1.05",
    "threads/16/library_calls_per_s 123456.7",
    "threads/16/bare_calls_per_s 130000",
    "threads/16/ratio_to_bare 0.949667",
    "threads/2/library_calls_per_s 990.4",
    "threads/2/bare_calls_per_s 1000",
    "threads/2/ratio_to_bare 0.9904",
    "idle/clients 200",
    "idle/memory_kib_per_client 2.36",
    "idle/threads_per_client 0",
    "idle/descriptors_per_client 2",
]
TABLES = """\
Medians on a computer with 2 cores (Z80), 4 GiB, Debian GNU/Linux 12,
Linux 6.1.0:

| one call at a time | one core | / bare |
| --- | ---: | ---: |
| bare exchange | 4 us | 1.00 |
| `linux_tv_Audio_setVolume` | 4.20 us | 1.05 |

| threads | calls a second | bare pairs | / bare |
| --- | ---: | ---: | ---: |
| 2 | 990 | 1,000 | 0.99 |
| 16 | 123,457 | 130,000 | 0.95 |

A client that is connected and calls nothing costs the service 2.36 KiB, 2 descriptors and
0 threads, measured with 200 of them.
"""
RUN = """\
machine: start {0}
D/TvbaseClient something is said
calls/same_core/bare/p50_us {1}
calls/same_core/bare/p99_us 25
calls/same_core/bare/ratio_to_bare 1
calls/same_core/set_volume/p50_us 26.4539
calls/same_core/set_volume/p99_us 30
calls/same_core/set_volume/ratio_to_bare 1.1
first_answer/bare/exec_to_main_us 1000
first_answer/bare/main_to_answer_us 50.25
first_answer/library/main_to_answer_us 500
first_answer/bound_early/main_to_answer_us 400.5
machine: end {0} exit 0 after 1.1 s
"""
CONSOLE = RUN.format("sockets", "12.5") + RUN.format("driver", "24.049") + "machine: done\n"
COUNTED = """\
| instructions of a call, both sides and the kernel | sockets | / bare | the kernel's driver | / bare |
| --- | ---: | ---: | ---: | ---: |
| bare exchange | 12,500 | 1.00 | 24,049 | 1.00 |
| `linux_tv_Audio_setVolume` | 26,454 | 1.10 | 26,454 | 1.10 |
| `main` to the first answer | 500,000 |  | 500,000 |  |
"""


class Pages(unittest.TestCase):
    def setUp(self) -> None:
        self.document = figures.load(ROOT / "docs" / "speed.json")

    def test_pages_show_the_figures_that_are_kept(self) -> None:
        for name, parts in tables.PAGES.items():
            page = (ROOT / name).read_text(encoding="utf-8")
            begin, end = tables.section_of(page)
            wanted = tables.text_of(self.document, parts)
            self.assertEqual(page[begin:end], wanted, f"write {name} with scripts/bench --readme --from docs/speed.json")

    def test_the_picture_shows_them_too(self) -> None:
        self.assertIn(picture.digest_of(self.document), (ROOT / "docs" / "speed.svg").read_text(encoding="utf-8"))

    def test_they_are_of_a_whole_run(self) -> None:
        self.assertEqual(self.document["extent"], "full")
        self.assertEqual(self.document["figures"].keys(), tables.PARTS.keys())
        self.assertLessEqual({"sd_bus", "grpc"}, self.document["figures"]["calls"]["same_core"].keys())


class Lines(unittest.TestCase):
    def test_tables_of_what_was_measured(self) -> None:
        document = {"computer": COMPUTER, "extent": "full", "figures": figures.read_lines(LINES)}
        self.assertEqual(tables.text_of(document, tables.PARTS), TABLES)

    def test_a_line_that_is_no_figure(self) -> None:
        for line in ("calls/bare", "calls 3", "Hello, world", "calls/bare 3 4"):
            with self.assertRaises(figures.BenchError, msg=line) as caught:
                figures.read_lines([line])
            self.assertIn(repr(line), str(caught.exception))

    def test_a_page_without_a_place_for_figures(self) -> None:
        with self.assertRaises(figures.BenchError):
            tables.section_of(tables.END + tables.BEGIN)

    def test_instructions_of_the_machine(self) -> None:
        counted = instructions.figures_in(CONSOLE)
        set_volume = {"instructions": 26454, "ratio_to_bare": 1.1}
        calls = {"bare": {"instructions": 24049, "ratio_to_bare": 1.0}, "set_volume": set_volume}
        first = {"bare": 50250, "library": 500000, "bound_early": 400500}
        self.assertEqual(counted["driver"], {"calls": calls, "first_answer": first})
        self.assertEqual(tables.instructions_table(counted), COUNTED)

    def test_a_machine_that_has_not_measured(self) -> None:
        for console in (CONSOLE.replace("exit 0", "exit 1"), RUN.format("sockets", "12.5"), "machine: start sockets\n", ""):
            with self.assertRaises(figures.BenchError):
                instructions.figures_in(console)


class Script(unittest.TestCase):
    def setUp(self) -> None:
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def assert_refused(self, complaint: str, *arguments: str, environment: dict[str, str] | None = None) -> None:
        command = [sys.executable, "-B", str(ROOT / "scripts" / "bench"), *arguments]
        done = subprocess.run(command, env=environment, capture_output=True, text=True, check=False)
        self.assertEqual(done.returncode, 2, done.stdout)
        self.assertIn(complaint, done.stderr)

    def test_an_unknown_measurement(self) -> None:
        self.assert_refused("bench: 'speed' is no measurement; they are calls, instructions, threads,", "speed")

    def test_files_that_hold_no_figures(self) -> None:
        missing = self.folder / "missing.json"
        self.assert_refused(f"bench: {missing}: ", "--from", str(missing))
        other = self.folder / "other.json"
        other.write_text("{}", encoding="utf-8")
        self.assert_refused(f"bench: {other} holds no figures", "--from", str(other))

    def test_the_pages_take_no_figures_of_a_part(self) -> None:
        part = self.folder / "part.json"
        document = {"computer": COMPUTER, "extent": "full", "figures": figures.read_lines(LINES)}
        part.write_text(json.dumps(document), encoding="utf-8")
        complaint = "the pages take figures of a full run of all measurements alone"
        self.assert_refused(complaint, "--readme", "--from", str(part))
        # Before anything is built.
        for options in (["--quick"], ["calls"], ["--no-machine"]):
            with tempfile.TemporaryDirectory() as nowhere:
                self.assert_refused(complaint, "--readme", *options, environment={"PATH": nowhere})


if __name__ == "__main__":
    unittest.main()
