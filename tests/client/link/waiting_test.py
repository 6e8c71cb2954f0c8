#!/usr/bin/env python3
"""The library itself never lets a thread wait: it imports nothing that sleeps, polls or tells the time.

    waiting_test.py NM LIBRARY
"""

from __future__ import annotations

import re
import subprocess
import sys

WAITING = re.compile(r"sleep|poll|select|wait|timer|alarm|pause|yield|clock|chrono|timeofday|syscall", re.IGNORECASE)
SANITIZER = re.compile(r"__(a|t|ub)san_")


def imported_symbols(nm: str, library: str) -> list[str]:
    command = [nm, "--dynamic", "--undefined-only", "--format=posix", library]
    output = subprocess.run(command, check=True, capture_output=True, text=True).stdout
    return [line.split()[0] for line in output.splitlines()]


def main(nm: str, library: str) -> int:
    imported = imported_symbols(nm, library)
    if not any("defaultServiceManager" in symbol for symbol in imported):
        print("the library's imports are not to be seen", file=sys.stderr)
        return 1
    waiting = [symbol for symbol in imported if WAITING.search(symbol) and not SANITIZER.match(symbol)]
    for symbol in waiting:
        print(f"imported, and lets a thread wait: {symbol}", file=sys.stderr)
    return 1 if waiting else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
