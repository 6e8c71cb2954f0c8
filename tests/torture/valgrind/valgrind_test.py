#!/usr/bin/env python3
"""Runs the examples and the commands of the tool under valgrind's memcheck and helgrind.

usage: valgrind_test.py SIMULATOR KELUTV EXAMPLES

SIMULATOR  the simulated television, which runs without valgrind
KELUTV     the command-line tool
EXAMPLES   the directory of the example programs

Each program must end as it does without valgrind, and valgrind must find nothing that no suppression names.
"""

import itertools
import os
import re
import signal
import subprocess
import sys
import tempfile
import time
from collections.abc import Iterator
from concurrent.futures import ThreadPoolExecutor
from contextlib import contextmanager
from pathlib import Path

HERE = Path(__file__).resolve().parent
FOUND = 99
PATIENCE = 60
CHECKERS = {
    "memcheck": ["--leak-check=full", "--errors-for-leak-kinds=definite", "--show-leak-kinds=definite"],
    "helgrind": ["--history-level=approx"],
}

# The commands of the tool, each with what it reads.
COMMANDS = [
    ["status"],
    ["status", "--json"],
    ["get", "volume"],
    ["set", "volume", "+5"],
    ["list", "audio"],
    ["describe", "audio.setVolume"],
    ["call", "audio.setVolume", "speaker", "35"],
    ["call", "sourcemanager.getSourceList"],
    ["encode", "audio.setVolume", "speaker", "35"],
    ["eep", "dump", "tv"],
    ["sim", "show", "audio"],
    ["wait", "volume>=0", "--timeout", "50"],
    ["repl"],
]
EXAMPLES = ["volume_c", "volume_cpp", "sources_c"]
INPUT = "get volume\nset volume 20\ncall audio.getVolume speaker\nquit\n"


class Television:
    """A simulated television in a runtime directory of its own."""

    def __init__(self, simulator: str, folder: str) -> None:
        self.environment = {**os.environ, "KQDROID_RUNTIME_DIR": folder, "KQDROID_TRANSPORT": "sockets"}
        self.process = subprocess.Popen([simulator], env=self.environment, stdout=subprocess.PIPE, text=True)
        if "ready" not in self.process.stdout.readline():
            raise RuntimeError("the simulator did not get ready")

    def end(self) -> None:
        self.process.send_signal(signal.SIGTERM)
        self.process.wait(PATIENCE)
        self.process.stdout.close()


@contextmanager
def television(simulator: str) -> Iterator[Television]:
    with tempfile.TemporaryDirectory() as folder:
        running = Television(simulator, folder)
        try:
            yield running
        finally:
            running.end()


def under(checker: str, command: list[str], log: str) -> list[str]:
    return [
        "valgrind", f"--tool={checker}", f"--error-exitcode={FOUND}", f"--log-file={log}", "--num-callers=25",
        f"--suppressions={HERE / checker}.supp", *CHECKERS[checker], *command,
    ]


def findings(folder: str) -> str:
    """The logs of the program's processes that have findings; one that becomes another program has no summary."""
    logs = [log.read_text() for log in sorted(Path(folder).iterdir())]
    return "\n".join(log for log in logs if re.search(r"ERROR SUMMARY: [1-9]", log))


def run(checker: str, command: list[str], environment: dict[str, str], changing: str | None = None) -> str:
    """Runs one program, while a tool changes the volume if one is given; gives what is wrong, nothing if nothing is."""
    with tempfile.TemporaryDirectory() as logs, tempfile.TemporaryFile("w+") as output:
        process = subprocess.Popen(
            under(checker, command, f"{logs}/%p"), env=environment, stdin=subprocess.PIPE, stdout=output, stderr=output, text=True)
        process.stdin.write(INPUT if command[-1] == "repl" else "")
        process.stdin.close()
        deadline = time.monotonic() + PATIENCE
        volumes = itertools.cycle(range(10, 90))
        while changing and process.poll() is None and time.monotonic() < deadline:
            subprocess.run([changing, "set", "volume", str(next(volumes))], env=environment, stdout=subprocess.DEVNULL,
                           timeout=PATIENCE, check=True)
        try:
            code = process.wait(max(deadline - time.monotonic(), 1))
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()
            code = "none in time"
        found = findings(logs)
        if code == 0 and not found:
            return ""
        output.seek(0)
        return f"{checker} {' '.join(command)}: exit code {code}\n{output.read()}\n{found}"


def check(checker: str, simulator: str, kelutv: str, examples: str) -> list[str]:
    """Runs everything under one checker; gives what was wrong."""
    with television(simulator) as running:
        def outcome(command: list[str], changing: str | None = None) -> str:
            return run(checker, command, running.environment, changing)

        wrong = [outcome([kelutv, *command]) for command in COMMANDS]
        wrong += [outcome([f"{examples}/example_{name}"]) for name in EXAMPLES]
        wrong.append(outcome([kelutv, "trace", "--", f"{examples}/example_volume_c"]))
        wrong.append(outcome([kelutv, "monitor", "--count", "3"], kelutv))
    return [text for text in wrong if text]


def main() -> int:
    simulator, kelutv, examples = sys.argv[1:]
    with ThreadPoolExecutor(len(CHECKERS)) as pool:
        wrong = [text for texts in pool.map(lambda checker: check(checker, simulator, kelutv, examples), CHECKERS)
                 for text in texts]
    print("\n".join(wrong))
    runs = len(CHECKERS) * (len(COMMANDS) + len(EXAMPLES) + 2)
    print(f"torture: valgrind: {runs} runs under {' and '.join(CHECKERS)}, {len(wrong)} with a finding")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
