"""The test of all targets: they hold, their corpora reach what they reached, and they find what was planted."""

from __future__ import annotations

import os
import subprocess
import sys
import time
from collections.abc import Iterable, Iterator
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

import coverage
import engine
import seeds
from targets import BUILD, WORK, FuzzError, Target, read_targets

PLANT_SECONDS = 60
# An engine ends by itself; one that does not is ended.
GRACE_SECONDS = 60
LOGS = WORK / "logs"


def ended(process: subprocess.Popen[bytes], seconds: int) -> int:
    try:
        return process.wait(seconds + GRACE_SECONDS)
    except subprocess.TimeoutExpired:
        process.kill()
        process.wait()
        raise FuzzError(f"the engine did not end within {seconds + GRACE_SECONDS} s") from None


def tail(log: Path) -> str:
    lines = log.read_text(encoding="utf-8", errors="replace").splitlines()
    told = [line for line in lines if not line.startswith(("#", "\tNEW_FUNC", "INFO:"))]
    return "\n".join(told[-40:])


def lines_with(log: Path, *starts: str) -> Iterator[str]:
    for line in log.read_text(encoding="utf-8", errors="replace").splitlines():
        if line.startswith(starts):
            yield line


def hold(target: Target, seconds: int) -> str:
    """Runs the engine on; raises what it found."""
    log = LOGS / f"{target.name}.log"
    process = engine.fuzz(target, target.program, seconds, log)
    if ended(process, seconds) != 0:
        raise FuzzError(f"{target.name} found something, kept in {target.findings}:\n{tail(log)}")
    return ", ".join(line.removeprefix("INFO: ") for line in lines_with(log, "INFO: Seed:", "Done "))


def reach(target: Target) -> str:
    """Compares what the corpus reaches with the floor."""
    missing = coverage.unmatched_files(target)
    if missing:
        raise FuzzError(f"{target.name}: there is no {', '.join(missing)}")
    measured = coverage.measure(target)
    text = f"{measured.reached} of {measured.edges} edges, {measured.percent:.1f} %, at least {target.floor} %"
    if measured.percent < target.floor:
        raise FuzzError(f"{target.name}: the corpus reaches {text}; it misses\n{coverage.report_missed(measured)}")
    return text


def find_plant(target: Target) -> str:
    """Lets the engine look for the planted fault."""
    log = LOGS / f"{target.name}-plant.log"
    program = BUILD / "fuzz" / f"fuzz_{target.name}_planted"
    start = time.monotonic()
    found = WORK / "planted" / target.name
    found.mkdir(parents=True, exist_ok=True)
    process = engine.fuzz(target, program, PLANT_SECONDS, log, f"-artifact_prefix={found}/")
    status = ended(process, PLANT_SECONDS)
    if status == 0 or "Test unit written" not in log.read_text(encoding="utf-8", errors="replace"):
        raise FuzzError(f"{target.name}: the fault planted in {target.plant.file} was not found:\n{tail(log)}")
    return f"the planted fault was found after {time.monotonic() - start:.0f} s"


def check_one(target: Target, seconds: int) -> list[str]:
    return [reach(target), hold(target, seconds), find_plant(target)]


def check(names: Iterable[str], seconds: int) -> bool:
    """Prints a line for each target; false when one of them failed."""
    targets = [target for name, target in read_targets().items() if name in names]
    engine.build(["fuzz-programs", "fuzz-plants"])
    seeds.make()
    passed = True
    # The time of a target is that of the clock, so that more of them take no more of the processor.
    with ThreadPoolExecutor(3 * (os.cpu_count() or 1)) as pool:
        results = [(target, pool.submit(check_one, target, seconds)) for target in targets]
        for target, result in results:
            try:
                print(f"{target.name}: " + "; ".join(result.result()), flush=True)
            except FuzzError as error:
                passed = False
                print(f"{target.name}: FAILED\n{error}", file=sys.stderr, flush=True)
    return passed
