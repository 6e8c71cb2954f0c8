"""Reads what callgrind counted."""

from __future__ import annotations

import re
from collections import Counter
from dataclasses import dataclass, field
from pathlib import Path

TRIGGER = "desc: Trigger: Client Request: "
ALLOCATORS = {"malloc", "calloc", "realloc", "aligned_alloc", "memalign", "posix_memalign"}
# A function in a cycle of calls appears once for each depth.
DEPTH = re.compile(r"'\d+$")


@dataclass(frozen=True)
class Function:
    name: str
    # The file name of the library or program that it is in.
    place: str


@dataclass
class Counts:
    """What was counted in a while."""

    # Instructions of each function without those that it calls.
    functions: Counter[Function] = field(default_factory=Counter)
    system_calls: int = 0
    allocations: int = 0

    def plus(self, other: Counts) -> Counts:
        return Counts(self.functions + other.functions, self.system_calls + other.system_calls,
                      self.allocations + other.allocations)

    def minus(self, other: Counts) -> Counts:
        functions = Counter(self.functions)
        functions.subtract(other.functions)
        return Counts(functions, self.system_calls - other.system_calls, self.allocations - other.allocations)

    def divided(self, calls: int) -> Counts:
        """The same for one of several calls: an allocation or system call of a few of them only counts as one of each."""
        functions = Counter({function: round(count / calls) for function, count in self.functions.items()})
        return Counts(functions, -(-self.system_calls // calls), -(-self.allocations // calls))

    def without(self, place: str) -> Counts:
        functions = Counter({function: count for function, count in self.functions.items() if function.place != place})
        return Counts(functions, self.system_calls, self.allocations)

    @property
    def instructions(self) -> int:
        return self.functions.total()


class Names:
    """Names, which are spelled out where they come first: (1) name, and later (1)."""

    def __init__(self) -> None:
        self.known: dict[str, str] = {}

    def read(self, text: str) -> str:
        number, _, name = text.partition(" ")
        return self.known.setdefault(number, name)


@dataclass
class Dump:
    """What one thread did in a while."""

    # What the program called it; nothing at the end of the program.
    name: str
    thread: int
    counts: Counts


def read_dump(path: Path) -> Dump:
    name, thread = "", 1
    counts = Counts()
    objects, functions = Names(), Names()
    place, function = "", Function("", "")
    events: list[str] = []
    inclusive = False
    for line in path.read_text().splitlines():
        if line.startswith(TRIGGER):
            name = line.removeprefix(TRIGGER)
        elif line.startswith("thread: "):
            thread = int(line[8:])
        elif line.startswith("events: "):
            events = line.split()[1:]
        elif line.startswith("ob="):
            place = Path(objects.read(line[3:])).name
        elif line.startswith("cob="):
            objects.read(line[4:])
        elif line.startswith("fn="):
            function = Function(DEPTH.sub("", functions.read(line[3:])), place)
        elif line.startswith("cfn="):
            called = functions.read(line[4:])
        elif line.startswith("calls="):
            if DEPTH.sub("", called) in ALLOCATORS:
                counts.allocations += int(line[6:].split()[0])
            inclusive = True
        elif line and line[0] in "0123456789+-*":
            # The line behind calls= has what the call cost.
            if not inclusive:
                costs = dict(zip(events, map(int, line.split()[1:])))
                counts.functions[function] += costs.get("Ir", 0)
                counts.system_calls += costs.get("sysCount", 0)
            inclusive = False
    return Dump(name, thread, counts)
