"""Builds the targets and runs the engine on them."""

from __future__ import annotations

import os
import subprocess
from collections.abc import Iterable
from pathlib import Path

from seeds import dictionary_of, seeds_of
from targets import BUILD, ROOT, WORK, FuzzError, Target

# Beyond these an input is a finding, too.
LONGEST_RUN_SECONDS = 25
MOST_MEGABYTES = 2048


def run_tool(*command: str | Path) -> None:
    """Its output is shown only if it fails."""
    done = subprocess.run(
        [str(word) for word in command], cwd=ROOT, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True
    )
    if done.returncode != 0:
        raise FuzzError(f"{' '.join(map(str, command))} failed:\n{done.stdout}")


def build(programs: Iterable[str]) -> None:
    if not (BUILD / "build.ninja").exists():
        run_tool("cmake", "--preset", "fuzz")
    run_tool("cmake", "--build", "--preset", "fuzz", "--target", *programs, "-j", str(os.cpu_count()))


# Where a run puts its files, those too whose names come from an input.
SCRATCH = WORK / "tmp"


def environment() -> dict[str, str]:
    SCRATCH.mkdir(parents=True, exist_ok=True)
    return {
        **os.environ,
        "TMPDIR": str(SCRATCH),
        "ASAN_OPTIONS": "detect_stack_use_after_return=1:strict_string_checks=1:allocator_may_return_null=1",
        "UBSAN_OPTIONS": "print_stacktrace=1",
    }


def limits(target: Target) -> list[str]:
    return [
        f"-max_len={target.longest}",
        f"-timeout={LONGEST_RUN_SECONDS}",
        f"-rss_limit_mb={MOST_MEGABYTES}",
        f"-dict={dictionary_of(target)}",
    ]


def command_of(target: Target, program: Path, folders: Iterable[Path], *options: str) -> list[str]:
    return [str(program), *limits(target), *options, *(str(folder) for folder in folders)]


def fuzz(target: Target, program: Path, seconds: int, log: Path, *options: str) -> subprocess.Popen[bytes]:
    """Starts the engine, which goes on from the corpus and keeps what it learns in a folder of the build."""
    learned = WORK / "corpus" / target.name
    for folder in (learned, target.findings, log.parent):
        folder.mkdir(parents=True, exist_ok=True)
    command = command_of(
        target,
        program,
        (learned, target.corpus),
        f"-max_total_time={seconds}",
        f"-artifact_prefix={target.findings}/",
        *options,
    )
    with log.open("wb") as output:
        return subprocess.Popen(
            command, env=environment(), cwd=SCRATCH, stdin=subprocess.DEVNULL, stdout=output, stderr=output
        )


def minimise(target: Target) -> tuple[int, int]:
    """Writes the corpus anew: the fewest inputs of the present one, of the seeds and of what runs have learned that reach
    as much; those with names of their own stay. Returns the number of inputs and of bytes."""
    kept = WORK / "minimised" / target.name
    run_tool("rm", "-rf", kept)
    kept.mkdir(parents=True)
    learned = WORK / "corpus" / target.name
    learned.mkdir(parents=True, exist_ok=True)
    target.corpus.mkdir(parents=True, exist_ok=True)
    folders = (kept, target.corpus, seeds_of(target), learned)
    done = subprocess.run(
        command_of(target, target.program, folders, "-merge=1", "-use_counters=0"),
        stdout=subprocess.PIPE,
        stderr=subprocess.STDOUT,
        env=environment(),
        cwd=SCRATCH,
    )
    if done.returncode != 0:
        raise FuzzError(f"{target.name}: merging failed:\n{done.stdout.decode(errors='replace')[-2000:]}")
    for path in target.corpus.iterdir():
        if is_made(path):
            path.unlink()
    for path in kept.iterdir():
        if not (target.corpus / path.name).exists():
            path.rename(target.corpus / path.name[:16])
    sizes = [path.stat().st_size for path in target.corpus.iterdir()]
    return len(sizes), sum(sizes)


def is_made(path: Path) -> bool:
    """Whether the engine named the input, by what is in it; a person gives a name with more than hexadecimal digits."""
    return all(character in "0123456789abcdef" for character in path.name)
