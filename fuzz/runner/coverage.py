"""How much of the files of a target its corpus reaches."""

from __future__ import annotations

import os
import re
import subprocess
from dataclasses import dataclass, field

from engine import SCRATCH, command_of, environment
from targets import ROOT, FuzzError, Target

FUNCTION = re.compile(r"(?:UN)?COVERED_FUNC: hits: \d+ edges: (\d+)/(\d+) .* (\S+):\d+$")
MISSED = re.compile(r"\s*UNCOVERED_PC: (\S+):(\d+)$")


@dataclass
class Coverage:
    """Edges in the files of a target, and the lines of those that were not reached."""

    reached: int = 0
    edges: int = 0
    missed: dict[str, set[int]] = field(default_factory=dict)

    @property
    def percent(self) -> float:
        return 100 * self.reached / self.edges if self.edges else 0


def place(path: str) -> str:
    """From the root of the checkout."""
    return os.path.relpath(os.path.normpath(path), ROOT)


def belongs(path: str, target: Target) -> bool:
    return any(path == name or path.startswith(name.rstrip("/") + "/") for name in target.files)


def measure(target: Target) -> Coverage:
    if not target.corpus.is_dir():
        raise FuzzError(f"{target.name} has no corpus: {target.corpus}")
    command = command_of(target, target.program, (target.corpus,), "-runs=0", "-print_coverage=1")
    done = subprocess.run(
        command, cwd=SCRATCH, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, env=environment(), errors="replace"
    )
    if done.returncode != 0:
        raise FuzzError(f"{target.name}: an input of the corpus fails:\n{done.stdout[-3000:]}")
    coverage = Coverage()
    for line in done.stdout.splitlines():
        if (match := FUNCTION.match(line)) and belongs(place(match[3]), target):
            coverage.reached += int(match[1])
            coverage.edges += int(match[2])
        elif (match := MISSED.match(line)) and belongs(name := place(match[1]), target):
            coverage.missed.setdefault(name, set()).add(int(match[2]))
    return coverage


def unmatched_files(target: Target) -> list[str]:
    return [name for name in target.files if not (ROOT / name).exists()]


def shortened(lines: set[int]) -> str:
    """`3-5, 9`."""
    spans: list[list[int]] = []
    for line in sorted(lines):
        if spans and line == spans[-1][1] + 1:
            spans[-1][1] = line
        else:
            spans.append([line, line])
    return ", ".join(str(first) if first == last else f"{first}-{last}" for first, last in spans)


def report_missed(coverage: Coverage) -> str:
    return "".join(f"    {name}: lines {shortened(lines)}\n" for name, lines in sorted(coverage.missed.items()))
