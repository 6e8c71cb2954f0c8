"""Calls over the kernel's driver, measured in a virtual machine whose clock counts instructions."""

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
NAME = "driver"
# One nanosecond of the machine for each instruction, the kernel's included, whatever else the host has to do.
COUNTING = ("-icount", "shift=0,sleep=off")
INSTRUCTIONS_PER_MICROSECOND = 1000


def plan_of(build: Path) -> dict[str, Any]:
    plan: dict[str, Any] = json.loads((build / "bench" / "machine.json").read_text(encoding="utf-8"))
    program = plan["programs"][0]
    settings = "KQDROID_TRANSPORT=kernel KQLOG_LEVEL=f"
    return plan | {"architecture": "amd64", "tests": [f"{NAME} {SECONDS} {settings} {program} --quick calls"]}


def figures_in(console: str) -> Figures:
    """Instructions by kind of call, from what the machine printed."""
    run = re.search(rf"machine: start {NAME}\n(.*?)machine: end {NAME} (.*?)\n", console, re.DOTALL)
    if not run or not run[2].startswith("exit 0 "):
        raise BenchError(f"the machine has not measured: {run[2] if run else console[-1000:]}")
    lines = [line for line in run[1].splitlines() if line.startswith("calls/same_core/")]
    kinds = read_lines(lines)["calls"]["same_core"]
    return {
        kind: {
            "instructions": round(figures["p50_us"] * INSTRUCTIONS_PER_MICROSECOND),
            "ratio_to_bare": figures["ratio_to_bare"],
        }
        for kind, figures in kinds.items()
    }


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
        raise BenchError(f"{failure}; --no-driver does without") from None
