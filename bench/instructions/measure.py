"""Counts what calls and commands cost, by callgrind."""

from __future__ import annotations

import os
import re
import shutil
import subprocess
import tempfile
from collections.abc import Iterator
from contextlib import contextmanager
from dataclasses import dataclass
from functools import reduce
from pathlib import Path
from statistics import median
from threading import Timer

import callgrind
from callgrind import Counts, Dump
from table import Row, summed

PATIENCE = 120
FINISHED = "finished_request"
# How often a command runs for its time.
RUNS = 41


@dataclass(frozen=True)
class Command:
    """A command of the tool, and how much of the processor's time it may take on a computer."""

    words: list[str]
    milliseconds: float


COMMANDS = {
    "tool_get": Command(["get", "volume"], 8),
    "tool_status": Command(["status"], 12),
    "tool_complete": Command(["complete", "--line", "kelutv get vol"], 5),
}


class MeasureError(Exception):
    pass


def first_line(process: subprocess.Popen[str]) -> str:
    """Ends the process when the line does not come in time."""
    patience = Timer(PATIENCE, process.kill)
    patience.start()
    try:
        return process.stdout.readline()
    finally:
        patience.cancel()


@contextmanager
def serving(command: list[str], environment: dict[str, str]) -> Iterator[None]:
    """A service that says that it is ready, until the end of the block."""
    with subprocess.Popen(command, env=environment, stdout=subprocess.PIPE, text=True) as process:
        try:
            if "ready" not in first_line(process):
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
    # Lines of the log are no part of a call.
    quiet = {**environment, "KQLOG_LEVEL": "w"}
    with serving([str(program), "serve"], quiet):
        dumps = count([str(program), "call"], quiet, folder)
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
        runs = {name: count([str(tool), *command.words], environment, folder) for name, command in COMMANDS.items()}
    return {name: reduce(Counts.plus, [dump.counts for dump in dumps]) for name, dumps in runs.items()}


def command_rows(costs: dict[str, Counts]) -> dict[str, Row]:
    return {name: Row({"instructions": cost.instructions}, summed(cost)) for name, cost in costs.items()}


def processor_time(command: list[str], environment: dict[str, str]) -> float:
    """The milliseconds of one run, of the program and of the kernel for it."""
    nowhere = subprocess.DEVNULL
    process = subprocess.Popen(command, env=environment, stdin=nowhere, stdout=nowhere, stderr=nowhere)
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode != 0:
        raise MeasureError(f"{' '.join(command)} ended with {process.returncode}")
    return (usage.ru_utime + usage.ru_stime) * 1000


def times(simulator: Path, tool: Path, environment: dict[str, str]) -> dict[str, float]:
    """The median of the milliseconds that each command takes."""
    with serving([str(simulator)], environment):
        return {name: median(processor_time([str(tool), *command.words], environment) for _ in range(RUNS))
                for name, command in COMMANDS.items()}


@contextmanager
def surroundings() -> Iterator[tuple[dict[str, str], Path]]:
    """An environment in which nothing but the programs decides what is counted, and a folder for the dumps."""
    with tempfile.TemporaryDirectory() as runtime, tempfile.TemporaryDirectory() as dumps:
        yield {
            "PATH": "/usr/bin:/bin",
            "KQDROID_RUNTIME_DIR": runtime,
            "KQDROID_TRANSPORT": "sockets",
            # The string functions that every processor of the kind has: others count bytes that they fill at once.
            "GLIBC_TUNABLES": "glibc.cpu.hwcaps=-AVX2,-ERMS,-FSRM",
        }, Path(dumps)
