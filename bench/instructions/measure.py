"""Counts what calls and commands cost, by callgrind."""

from __future__ import annotations

import re
import shutil
import subprocess
import tempfile
from collections.abc import Iterator
from contextlib import contextmanager
from functools import reduce
from pathlib import Path

import callgrind
from callgrind import Counts, Dump
from table import Row, summed

PATIENCE = 120
FINISHED = "finished_request"
COMMANDS = {
    "tool_get": ["get", "volume"],
    "tool_status": ["status"],
    "tool_complete": ["complete", "--line", "kelutv get vol"],
}


class MeasureError(Exception):
    pass


@contextmanager
def serving(command: list[str], environment: dict[str, str]) -> Iterator[None]:
    """A service that says that it is ready, until the end of the block."""
    with subprocess.Popen(command, env=environment, stdout=subprocess.PIPE, text=True) as process:
        try:
            if "ready" not in process.stdout.readline():
                raise MeasureError(f"{' '.join(command)} did not get ready")
            yield
        finally:
            process.kill()


def order_of(path: Path) -> list[int]:
    """By the numbers in the name: that of the dump, none at the end of the program, and that of the thread."""
    return [int(number) for number in re.findall(r"\d+", path.name)]


def count(command: list[str], environment: dict[str, str], folder: Path) -> list[Dump]:
    """Runs a program by callgrind; gives its dumps in their order."""
    if shutil.which("valgrind", path=environment["PATH"]) is None:
        raise MeasureError("valgrind is missing; install it by scripts/setup torture")
    counted = ["valgrind", "--tool=callgrind", f"--callgrind-out-file={folder / 'dump'}", "--collect-systime=nsec",
               "--separate-threads=yes", *command]
    ended = subprocess.run(counted, env=environment, stdin=subprocess.DEVNULL, capture_output=True, text=True,
                           timeout=PATIENCE, check=False)
    if ended.returncode != 0:
        raise MeasureError(f"{' '.join(command)} ended with {ended.returncode}:\n{ended.stderr[-4000:]}")
    paths = sorted(folder.glob("dump*-*"), key=order_of)
    dumps = [callgrind.read_dump(path) for path in paths]
    for path in folder.iterdir():
        path.unlink()
    return dumps


def calls(program: Path, environment: dict[str, str], folder: Path) -> dict[str, Counts]:
    """What one call of each shape costs the thread that makes it, without the measuring program itself."""
    with serving([str(program), "serve"], environment):
        dumps = count([str(program), "call"], environment, folder)
    runs: dict[str, dict[int, Counts]] = {}
    for dump in dumps:
        if dump.name and dump.thread == 1:
            shape, number = dump.name.split()
            runs.setdefault(shape, {})[int(number)] = dump.counts.without(program.name)
    costs = {}
    for shape, lengths in runs.items():
        few, many = sorted(lengths)
        costs[shape] = lengths[many].minus(lengths[few]).divided(many - few)
    return costs


def call_rows(costs: dict[str, Counts]) -> dict[str, Row]:
    return {
        name: Row({
            "instructions": cost.instructions,
            "above_transact": cost.instructions - costs[FINISHED].instructions,
            "allocations": cost.allocations,
            "system_calls": cost.system_calls,
        }, summed(cost))
        for name, cost in costs.items()
    }


def commands(simulator: Path, tool: Path, environment: dict[str, str], folder: Path) -> dict[str, Counts]:
    """What commands of the tool cost from their start to their end, in all threads."""
    with serving([str(simulator)], environment):
        runs = {name: count([str(tool), *words], environment, folder) for name, words in COMMANDS.items()}
    return {name: reduce(Counts.plus, [dump.counts for dump in dumps]) for name, dumps in runs.items()}


def command_rows(costs: dict[str, Counts]) -> dict[str, Row]:
    return {name: Row({"instructions": cost.instructions}, summed(cost)) for name, cost in costs.items()}


@contextmanager
def surroundings() -> Iterator[tuple[dict[str, str], Path]]:
    """An environment in which nothing but the programs decides what is counted, and a folder for the dumps."""
    with tempfile.TemporaryDirectory() as runtime, tempfile.TemporaryDirectory() as dumps:
        yield {
            "PATH": "/usr/bin:/bin",
            "KQDROID_RUNTIME_DIR": runtime,
            "KQDROID_TRANSPORT": "sockets",
            "KQLOG_LEVEL": "w",
            # The string functions that every processor of the kind has: others count bytes that they fill at once.
            "GLIBC_TUNABLES": "glibc.cpu.hwcaps=-AVX2,-ERMS,-FSRM",
        }, Path(dumps)
