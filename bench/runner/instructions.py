"""Instructions of a call, both sides and the kernel: measured in a virtual machine whose clock counts them."""

from __future__ import annotations

import json
import os
import re
import sys
import tempfile
from pathlib import Path
from typing import Any

from figures import ROOT, BenchError, Figures, read_lines

sys.path.insert(0, str(ROOT / "tests" / "machine"))

import machine  # noqa: E402

SECONDS = 300
# How processes meet, as the figures and as the platform have it.
TRANSPORTS = {"sockets": "sockets", "driver": "kernel"}
MEASURED = ("calls", "first_answer")
# One nanosecond of the machine for each instruction, whatever else the host has to do.
COUNTING = ("-icount", "shift=0,sleep=off")
INSTRUCTIONS_PER_MICROSECOND = 1000


def plan_of(build: Path) -> dict[str, Any]:
    plan: dict[str, Any] = json.loads((build / "bench" / "machine.json").read_text(encoding="utf-8"))
    command = f"{plan['programs'][0]} --quick {' '.join(MEASURED)}"
    runs = [f"{name} {SECONDS} KQDROID_TRANSPORT={setting} KQLOG_LEVEL=f {command}" for name, setting in TRANSPORTS.items()]
    return plan | {"architecture": "amd64", "tests": runs}


def instructions(microseconds: float) -> int:
    return round(microseconds * INSTRUCTIONS_PER_MICROSECOND)


def lines_of(transport: str, console: str) -> list[str]:
    """The figures that one run in the machine has printed."""
    run = re.search(rf"machine: start {transport}\n(.*?)machine: end {transport} (.*?)\n", console, re.DOTALL)
    if not run or not run[2].startswith("exit 0 "):
        raise BenchError(f"the machine has not measured {transport}: {run[2] if run else console[-1000:]}")
    return [line for line in run[1].splitlines() if line.startswith(tuple(f"{name}/" for name in MEASURED))]


def figures_of(transport: str, console: str) -> Figures:
    """Instructions by kind of call."""
    measured = read_lines(lines_of(transport, console))
    calls = {
        kind: {"instructions": instructions(figures["p50_us"]), "ratio_to_bare": figures["ratio_to_bare"]}
        for kind, figures in measured["calls"]["same_core"].items()
    }
    first = measured["first_answer"]
    return {
        "calls": calls,
        "first_answer": {
            kind: instructions(first[kind]["main_to_answer_us"]) for kind in ("bare", "library", "bound_early")
        },
    }


def figures_in(console: str) -> Figures:
    """Figures by transport, from what the machine printed."""
    return {transport: figures_of(transport, console) for transport in TRANSPORTS}


def measure(build: Path, logs: Path) -> Figures:
    """Boots the machine and measures there."""
    os.environ.setdefault("KELUTV_KERNEL_CACHE", str(ROOT / "build" / "kernels"))
    plan = plan_of(build)
    try:
        kernel = machine.kernel_of("amd64", str(build))
        with tempfile.TemporaryDirectory() as work, open(logs / "machine-bench.log", "wb") as log:
            image, _ = machine.pack(plan, kernel, work)
            return figures_in(machine.boot(plan, kernel, image, log, *COUNTING))
    except (machine.Failure, OSError) as failure:
        raise BenchError(f"{failure}; --no-machine does without") from None
